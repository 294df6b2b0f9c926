#include "tests/editor/host/board_test.h"

#include "editor/engine/engine_view.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/window/native_window.h"

#include <algorithm>
#include <cstdlib>

#include <xcb/xtest.h>

namespace velmora::test {

void BoardTest::SetUp()
{
    ASSERT_TRUE(Qorvane::openToolkit()) << Qorvane::missingFromToolkit();
    ASSERT_TRUE(server.isRunning()) << "no Xvfb";
    ASSERT_EQ(std::system("setxkbmap -layout de"), 0);
    desk = std::make_unique<XClient>();
    ASSERT_TRUE(desk->isConnected());
    desk->movePointer(5, 5);
    parent = desk->openWindow(kParentX, kParentY, 600, 500);
    desk->setFocus(parent);
    view = std::make_unique<Qorvane::QORViewWrapper>(master, ControlBoard::factory());
    ASSERT_TRUE(open());
}

bool BoardTest::open()
{
    int width = 0;
    int height = 0;
    view->getWindowSize(width, height);
    auto window = Qorvane::openX11Window(parent, width, height);
    child = window != nullptr ? window->id() : XCB_NONE;
    return view->openIn(std::move(window));
}

bool BoardTest::idleUntil(const std::function<bool()>& done)
{
    return comesTrue([&] {
        view->poll();
        return done();
    });
}

bool BoardTest::idleUntilLine(const std::string& line)
{
    return idleUntil([&] { return !master.lines.empty() && master.lines.back() == line; });
}

bool BoardTest::isMenuOpen()
{
    auto* const list = view->isOpen() ? dynamic_cast<QORMenuView*>(board().menu->getPeer()) : nullptr;
    return list != nullptr && list->isPopupOpen();
}

bool BoardTest::hasKeyboard()
{
    return view->takesKeys() && desk->focus() == child;
}

long BoardTest::linesWith(const std::string& start) const
{
    return std::ranges::count_if(master.lines,
                                 [&](const std::string& line) { return line.starts_with(start); });
}

void BoardTest::moveTo(double x, double y)
{
    constexpr double kAreaTop = Qorvane::QOREditorWrapperV2::kPresetBarHeight;
    desk->movePointer(kParentX + static_cast<int>(x), kParentY + static_cast<int>(kAreaTop + y));
}

void BoardTest::click(const Rect& place)
{
    moveTo(place);
    desk->click(1);
}

void BoardTest::doubleClick(const Rect& place)
{
    moveTo(place);
    for (int i = 0; i < 2; ++i)
        for (const auto type : {std::uint8_t{XCB_BUTTON_PRESS}, std::uint8_t{XCB_BUTTON_RELEASE}})
            xcb_test_fake_input(desk->get(), type, 1, XCB_CURRENT_TIME, XCB_NONE, 0, 0, 0);
    desk->sync();
}

void BoardTest::openMenu()
{
    click(ControlBoard::kMenuPlace);
    ASSERT_TRUE(idleUntil([&] { return isMenuOpen() && hasKeyboard(); }));
}

void BoardTest::openText()
{
    click(ControlBoard::kTextPlace);
    ASSERT_TRUE(idleUntil([&] { return hasKeyboard(); }));
}

Rect BoardTest::entryPlace(int index)
{
    constexpr double kMargin = 4.0, kLine = 19.0;
    constexpr Rect kMenu = ControlBoard::kMenuPlace;
    return rectAt(kMenu.left, kMenu.bottom + kMargin + index * kLine, kMenu.width(), kLine);
}

} // namespace velmora::test
