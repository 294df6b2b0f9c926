// The engine between editor and host: opening and closing at any moment, gestures, ticks, hints, sizes.

#include "tests/editor/chain_rig.h"

#include <limits>

namespace velmora::test {
namespace {

class ChainTest : public ChainRig {};

TEST_F(ChainTest, OpensBelowThePresetBarAndAgain)
{
    int width = 0;
    int height = 0;
    view->getWindowSize(width, height);
    EXPECT_EQ(width, 200);
    EXPECT_EQ(height, 152);
    EXPECT_EQ(editor->engine.createViewContainer(rectAt(0.0, 0.0, 5.0, 5.0)), nullptr) << "no window yet";
    view->closeWindow();
    for (int round = 0; round < 3; ++round) {
        ASSERT_TRUE(open());
        EXPECT_FALSE(view->openIn(std::make_unique<FakeWindow>(std::make_shared<FakeScreen>(), 10, 10)));
        idle();
        EXPECT_EQ(screen->presentedArea(), 200.0 * 152.0);
        EXPECT_EQ(screen->at(100, 80), 0xFF28282Cu);
        EXPECT_EQ(screen->at(100, 30), 0xFF1E1E1Eu) << "the preset bar's ground";
        view->closeWindow();
        EXPECT_FALSE(screen->exists);
    }
    EXPECT_EQ(editor->calls, "ocococ");
    EXPECT_EQ(editor->engine.createBitmap(30000, 1), nullptr);
}

TEST_F(ChainTest, ADragIsOneGestureForTheHost)
{
    open();
    screen->press(5.0, 60.0);
    for (int x = 6; x < 40; x += 8) screen->move(x, 60.0);
    screen->release(39.0, 60.0);
    idle();
    EXPECT_EQ(master.heard.front(), "begin 5");
    EXPECT_EQ(master.heard.back(), "end 5");
    EXPECT_EQ(std::count(master.heard.begin(), master.heard.end(), "edit 5"),
              static_cast<long>(master.heard.size()) - 2);
    EXPECT_GT(master.heard.size(), 4u);

    master.heard.clear();
    screen->press(5.0, 60.0);
    screen->move(20.0, 60.0);
    idle();
    view->closeWindow();
    EXPECT_EQ(master.heard.back(), "end 5") << "also when the window closes";
    open();
    screen->press(5.0, 60.0);
    idle();
    master.heard.clear();
    view.reset();
    EXPECT_EQ(master.heard, Heard{"end 5"}) << "or the engine goes";
}

// Every call that reaches the host may bring the end of the window, or a new one, or another idle call.
TEST_F(ChainTest, TheHostMayCloseReopenOrIdleInsideAnyCall)
{
    for (const std::string moment : {"begin 5", "edit 5", "end 5", "edit 903", "edit 901"}) {
        for (const bool again : {false, true}) {
            ASSERT_TRUE(open());
            idle();
            editor->calls.clear();
            editor->knobAlive = false;
            const auto first = screen;
            bool nested = false;
            master.onHeard = [&](const std::string& what) {
                if (what != moment || nested) return;
                nested = true;
                const int ticks = editor->ticks;
                idle(100); // some hosts do
                EXPECT_EQ(editor->ticks, ticks) << "what is on the stack goes first";
                view->closeWindow();
                EXPECT_FALSE(view->isOpen());
                if (again) {
                    EXPECT_TRUE(open());
                }
            };
            screen->press(5.0, 60.0);
            screen->move(20.0, 60.0);
            screen->release(20.0, 60.0);
            screen->click(60.0, 60.0);
            screen->type("typed");
            screen->key(Key::Return);
            screen->click(130.0, 60.0);
            screen->key(Key::Down);
            screen->key(Key::Return);
            idle();
            EXPECT_TRUE(nested) << moment;
            EXPECT_EQ(editor->calls, again ? "co" : "c") << moment;
            EXPECT_FALSE(first->exists) << moment;
            EXPECT_EQ(view->isOpen(), again);
            if (!again && moment.starts_with("edit")) {
                EXPECT_TRUE(editor->knobAlive || moment != "edit 5")
                    << "nothing of the editor goes while it is on the stack";
            }
            master.onHeard = nullptr;
            idle();
            view->closeWindow();
            EXPECT_FALSE(screen->exists);
        }
    }
}

TEST_F(ChainTest, ClosedFromInsideOpenIdleDrawOrSetParameter)
{
    editor->onOpen = [this] { view->closeWindow(); };
    EXPECT_FALSE(open());
    EXPECT_EQ(editor->calls, "oc");
    EXPECT_FALSE(screen->exists);
    editor->onOpen = nullptr;

    ASSERT_TRUE(open());
    editor->onIdle = [this] { view->closeWindow(); };
    editor->ticks = 0;
    idle(500);
    EXPECT_EQ(editor->ticks, 1);
    EXPECT_FALSE(screen->exists);
    editor->onIdle = nullptr;

    ASSERT_TRUE(open());
    editor->knob->onDraw = [this] { view->closeWindow(); };
    idle();
    EXPECT_FALSE(screen->exists);
    EXPECT_EQ(screen->presents, 0);

    ASSERT_TRUE(open());
    screen->press(5.0, 60.0);
    idle();
    master.onHeard = [this](const std::string& what) {
        if (what == "end 5") view->closeWindow();
    };
    editor->onTold = [this](std::int32_t) { editor->root->removeControl(editor->knob); };
    view->setParameter(3, 0.5);
    EXPECT_FALSE(screen->exists);
    master.onHeard = nullptr;
    editor->onTold = nullptr;

    ASSERT_TRUE(open());
    onResized = [this] { view->closeWindow(); };
    view->resizeEditor(300.0, 200.0);
    EXPECT_FALSE(screen->exists);
    EXPECT_EQ(editor->calls, "ocococococ");
}

TEST_F(ChainTest, WhatIsTypedCountsWhenTheWindowCloses)
{
    open();
    screen->click(60.0, 60.0);
    screen->type("typed");
    idle();
    EXPECT_TRUE(view->takesKeys());
    view->closeWindow();
    EXPECT_EQ(editor->changed, std::vector{903});
    EXPECT_FALSE(screen->keyboardTaken);

    open();
    screen->click(130.0, 60.0);
    idle();
    EXPECT_TRUE(view->takesKeys());
    view->closeWindow();
    EXPECT_FALSE(screen->keyboardTaken);
    EXPECT_EQ(editor->changed.size(), 1u);
}

TEST_F(ChainTest, TicksCatchUpWithOnePictureAndWithinBounds)
{
    open();
    idle(33);
    const auto ticksIn = [this](std::uint32_t milliseconds) {
        editor->ticks = 0;
        screen->presents = 0;
        editor->knob->setDirty(true);
        idle(milliseconds);
        EXPECT_LE(screen->presents, 1);
        return editor->ticks;
    };
    int ticks = 0;
    int time = 0;
    for (int i = 0; i < 100; ++i) {
        ticks += ticksIn(static_cast<std::uint32_t>(7 + i % 40));
        time += 7 + i % 40;
    }
    EXPECT_NEAR(ticks, time / 17, 1) << "none lost or invented";
    EXPECT_NEAR(ticksIn(340), 20, 1);
    EXPECT_NEAR(ticksIn(60000), 59, 1) << "a second's worth at most";
    EXPECT_LE(ticksIn(0x80000000u), 59) << "a host that slept for weeks";
    EXPECT_EQ(ticksIn(17), 1);
}

TEST_F(ChainTest, AHintComesAtTheFortySeventhStillTick)
{
    open();
    screen->move(10.0, 60.0);
    idle(); // another place and widget than before
    idle();
    const auto ticksToHint = [this](int most) {
        for (int i = 1; i <= most; ++i) {
            screen->forgetPresented();
            idle();
            idle(0);
            if (screen->at(14, 82) != 0xFF28282Cu) return i; // below the anchor, which is 15 high
        }
        return 0;
    };
    EXPECT_NEAR(ticksToHint(60), 46, 2) << "pictures come every other tick";

    screen->move(10.5, 60.5);
    idle(40);
    EXPECT_NE(screen->at(14, 82), 0xFF28282Cu) << "half a pixel is still";
    screen->move(14.0, 60.0);
    idle(40);
    EXPECT_EQ(screen->at(14, 82), 0xFF28282Cu);
    EXPECT_NEAR(ticksToHint(60), 45, 3);
    PresetStore::setHintsShown(false);
    editor->told.clear();
    idle(40);
    EXPECT_EQ(screen->at(14, 82), 0xFF28282Cu);
    EXPECT_EQ(editor->told, (std::vector<std::pair<std::int32_t, double>>{{847, 0.0}}));
    EXPECT_EQ(ticksToHint(60), 0);
}

TEST_F(ChainTest, AHintWaitsForExactlyFortySevenTicks)
{
    open();
    screen->move(10.0, 60.0);
    view->poll();
    view->idle(); // the widget is new
    for (int tick = 1; tick <= 47; ++tick) {
        view->redraw();
        EXPECT_EQ(screen->at(14, 82), 0xFF28282Cu) << "tick " << tick;
        view->idle();
    }
    view->redraw();
    EXPECT_NE(screen->at(14, 82), 0xFF28282Cu);

    screen->press(10.0, 60.0); // hides it; the count begins behind the press
    view->poll();
    for (int tick = 0; tick < 60; ++tick) view->idle();
    view->redraw();
    EXPECT_EQ(screen->at(14, 82), 0xFF28282Cu);
    screen->release(10.0, 60.0);
    view->poll();
    for (int tick = 0; tick < 46; ++tick) view->idle();
    view->redraw();
    EXPECT_EQ(screen->at(14, 82), 0xFF28282Cu);
    view->idle();
    view->redraw();
    EXPECT_NE(screen->at(14, 82), 0xFF28282Cu);
    view->setResizeBatch(true);
    view->idle();
    view->redraw();
    EXPECT_EQ(screen->at(14, 82), 0xFF28282Cu) << "not in a batch";
    view->setResizeBatch(false);
}

TEST_F(ChainTest, SizesInABatchCountOnceAtItsEnd)
{
    open();
    idle();
    view->setResizeBatch(true);
    view->resizeEditor(300.0, 120.0);
    view->resizeEditor(320.0, 140.0);
    EXPECT_TRUE(sizes.empty());
    view->setResizeBatch(true);
    view->setResizeBatch(false);
    EXPECT_EQ(sizes, (std::vector<std::pair<int, int>>{{320, 192}}));
    EXPECT_EQ(screen->width, 320);
    EXPECT_EQ(screen->height, 192);

    view->setResizeBatch(true);
    view->setResizeBatch(false);
    view->setResizeBatch(true);
    view->resizeEditor(0.0, 150.0);
    view->setResizeBatch(false);
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    view->resizeEditor(kNaN, 150.0);
    view->resizeEditor(-5.0, 150.0);
    view->resizeEditor(1e9, 150.0);
    view->resizeEditor(320.0, 140.0);
    EXPECT_EQ(sizes.size(), 1u);
    screen->forgetPresented();
    view->resizeEditor(250.0, 90.0);
    idle(40);
    EXPECT_EQ(screen->presentedArea(), 250.0 * 142.0);
    EXPECT_EQ(screen->at(249, 30), 0xFF1E1E1Eu) << "the preset bar's ground follows";
    view->closeWindow();
    view->resizeEditor(220.0, 100.0);
    EXPECT_EQ(sizes.size(), 2u) << "nobody shows it";
    open();
    EXPECT_EQ(screen->width, 220);
}

TEST_F(ChainTest, MouseAndValuesAsTheEditorAsksForThem)
{
    Point place{1.0, 1.0};
    std::uint32_t buttons = 99;
    view->getMouseButtons(buttons);
    EXPECT_EQ(buttons, 0u) << "no window";
    open();
    screen->held = kShiftKey | kAltKey | 0x1000;
    screen->press(10.0, 60.0, kRightButton, kDoubleClick);
    idle();
    view->getMousePosition(place);
    view->getMouseButtons(buttons);
    EXPECT_EQ(place, (Point{10.0, 8.0}));
    EXPECT_EQ(buttons, kRightButton | kShiftKey | kAltKey);

    const std::size_t before = master.heard.size();
    view->editParameter(7, std::numeric_limits<double>::quiet_NaN());
    editor->told.clear();
    view->setParameter(7, std::numeric_limits<double>::infinity());
    EXPECT_TRUE(editor->told.empty());
    EXPECT_EQ(master.heard.size(), before);
    master.onHeard = [this](const std::string&) { view->editParameter(7, 0.25); };
    view->editParameter(7, 3.0);
    EXPECT_EQ(master.heard.size(), before + 1) << "the host's echo is no other edit";
}

TEST_F(ChainTest, OnlyADirtyControlIsShownAndAQuietWindowCostsNoPicture)
{
    open();
    idle(40);
    screen->presents = 0;
    for (int i = 0; i < 30; ++i) idle(33);
    EXPECT_EQ(screen->presents, 0);
    screen->forgetPresented();
    editor->knob->setValue(0.75);
    idle(33);
    EXPECT_EQ(screen->presentedArea(), 40.0 * 20.0);
}

} // namespace
} // namespace velmora::test
