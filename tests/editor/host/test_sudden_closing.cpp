#include "tests/editor/host/board_test.h"

namespace velmora::test {
namespace {

/// The window goes while something is under way in it.
class SuddenClosing : public BoardTest {
protected:
    void closeAndExpectNothingLeft()
    {
        view->closeWindow();
        expectClosed();
    }
    void expectClosed()
    {
        EXPECT_FALSE(view->isOpen());
        EXPECT_TRUE(comesTrue([&] { return desk->childCount(parent) == 0; }));
        EXPECT_TRUE(comesTrue([&] { return isKeyboardBack(); }));
    }
    void expectUsable()
    {
        master.react = [](const std::string&) {};
        master.lines.clear();
        desk->button(1, false);
        moveTo(300, 200);
        ASSERT_TRUE(view->isOpen() || open());
        openMenu();
        desk->type(kKeyEscape);
        ASSERT_TRUE(idleUntil([&] { return isKeyboardBack(); }));
        click(ControlBoard::kSwitchPlace);
        EXPECT_TRUE(idleUntilLine("end 6"));
    }
};

TEST_F(SuddenClosing, WithTheMenuOpen)
{
    openMenu();
    closeAndExpectNothingLeft();
    EXPECT_EQ(linesWith("edit"), 0);
    expectUsable();
}

TEST_F(SuddenClosing, InTheMiddleOfAText)
{
    openText();
    desk->type(kKeyA);
    closeAndExpectNothingLeft();
    expectUsable();
}

TEST_F(SuddenClosing, InTheMiddleOfADrag)
{
    moveTo(20, 60);
    desk->button(1, true);
    moveTo(20, 50);
    ASSERT_TRUE(idleUntilLine("edit 5 0.60"));
    closeAndExpectNothingLeft();
    EXPECT_EQ(master.lines.back(), "end 5") << "the host's touch would last for ever";
    EXPECT_EQ(linesWith("end"), 1);
    expectUsable();
}

// A host may answer any call of ours with calls of its own.
TEST_F(SuddenClosing, ByTheHostInsideOurCall)
{
    for (const std::string call : {"begin 5", "edit 5", "end 5"}) {
        SCOPED_TRACE(call);
        master.react = [&](const std::string& line) {
            if (line.starts_with(call)) view->closeWindow();
        };
        moveTo(20, 60);
        desk->button(1, true);
        moveTo(20, 50);
        desk->button(1, false);
        ASSERT_TRUE(idleUntil([&] { return !view->isOpen(); }));
        expectClosed();
        EXPECT_EQ(linesWith("begin"), 1);
        EXPECT_EQ(linesWith("end"), 1);
        expectUsable();
        view->closeWindow();
        ASSERT_TRUE(open());
        master.lines.clear();
    }
    master.react = [&](const std::string& line) {
        if (line.starts_with("edit 10")) view->closeWindow();
    };
    openMenu();
    click(entryPlace(2));
    ASSERT_TRUE(idleUntil([&] { return !view->isOpen(); }));
    expectClosed();
    expectUsable();
}

TEST_F(SuddenClosing, AndOpenedAgainInsideOurCall)
{
    int opened = 0;
    master.react = [&](const std::string& line) {
        view->poll();
        if (!line.starts_with("edit 5")) return;
        view->closeWindow();
        opened += open() ? 1 : 0;
        view->poll();
    };
    moveTo(20, 60);
    desk->button(1, true);
    moveTo(20, 50);
    ASSERT_TRUE(idleUntil([&] { return opened == 1; }));
    EXPECT_TRUE(comesTrue([&] { return desk->childCount(parent) == 1; }));
    EXPECT_EQ(linesWith("end 5"), 1);
    expectUsable();
}

TEST_F(SuddenClosing, TheWrapperGoesWithTheMenuOpen)
{
    openMenu();
    view.reset();
    EXPECT_TRUE(comesTrue([&] { return desk->childCount(parent) == 0 && isKeyboardBack(); }));
}

TEST_F(SuddenClosing, TheParentGoesInTheMiddleOfAText)
{
    openText();
    desk->closeWindow(parent);
    desk->sync();
    for (int i = 0; i < 10; ++i) view->poll();
    view->closeWindow();
    EXPECT_FALSE(view->isOpen());
}

} // namespace
} // namespace velmora::test
