#include "tests/editor/host/board_test.h"

#include "editor/engine/toolkit/wrapper/hover_hint.h"

namespace velmora::test {
namespace {

using ControlsByHand = BoardTest;
using Lines = std::vector<std::string>;

TEST_F(ControlsByHand, AWholeDragIsOneGesture)
{
    moveTo(20, 60);
    desk->button(1, true);
    for (int y = 59; y >= 40; --y) moveTo(20, y);
    ASSERT_TRUE(idleUntilLine("edit 5 0.70"));
    moveTo(-60, -70); // beside the window, and back
    ASSERT_TRUE(idleUntilLine("edit 5 1.00"));
    moveTo(20, 80);
    ASSERT_TRUE(idleUntilLine("edit 5 0.30"));
    desk->button(1, false);
    ASSERT_TRUE(idleUntilLine("end 5"));
    EXPECT_EQ(master.lines.front(), "begin 5");
    EXPECT_EQ(linesWith("begin"), 1);
    EXPECT_EQ(linesWith("end"), 1);
    EXPECT_DOUBLE_EQ(board().bar->getValue(), 0.3);
}

TEST_F(ControlsByHand, TheWheelMovesWhatLiesBelowIt)
{
    moveTo(ControlBoard::kBarPlace);
    desk->click(4, 2);
    EXPECT_TRUE(idleUntilLine("edit 5 0.70"));
    moveTo(ControlBoard::kSwitchPlace);
    desk->click(4);
    EXPECT_TRUE(idleUntilLine("edit 6 0.00"));
    desk->click(5);
    EXPECT_TRUE(idleUntilLine("edit 6 1.00"));
}

TEST_F(ControlsByHand, ClicksReachEachKind)
{
    click(ControlBoard::kSwitchPlace);
    EXPECT_TRUE(idleUntilLine("end 6"));
    click(ControlBoard::kKickPlace);
    EXPECT_TRUE(idleUntilLine("end 7"));
    EXPECT_EQ(master.lines, Lines({"begin 6", "edit 6 0.00", "end 6", "begin 7", "edit 7 1.00", "end 7"}));
    EXPECT_EQ(board().kick->getValue(), 0.0);

    master.lines.clear();
    board().bar->setDefaultValue(0.25);
    doubleClick(ControlBoard::kBarPlace);
    EXPECT_TRUE(idleUntil([&] { return linesWith("end 5") == 2; }));
    EXPECT_EQ(linesWith("edit 5 0.25"), 1);

    master.lines.clear();
    click(ControlBoard::kLabelPlace);
    click(ControlBoard::kPlainPlace); // takes no press
    click(ControlBoard::kSwitchPlace);
    EXPECT_TRUE(idleUntilLine("end 6"));
    EXPECT_EQ(linesWith("edit"), 1);
}

TEST_F(ControlsByHand, TextIsTypedAndTheKeyboardGivenBack)
{
    openText();
    desk->type(kKeyA);
    desk->type(kKeyUmlaut);
    desk->type(kKeyReturn);
    ASSERT_TRUE(idleUntil([&] { return isKeyboardBack(); }));
    EXPECT_EQ(board().text->getText(), "aö");
    EXPECT_FALSE(view->takesKeys());

    openText();
    desk->type(kKeyA);
    desk->type(kKeyEscape);
    ASSERT_TRUE(idleUntil([&] { return isKeyboardBack(); }));
    EXPECT_EQ(board().text->getText(), "aö") << "Escape restores";

    openText();
    desk->type(kKeyUmlaut);
    click(ControlBoard::kSwitchPlace); // ends the edit and is a click of its own
    ASSERT_TRUE(idleUntil([&] { return isKeyboardBack() && linesWith("end 6") == 1; }));
    EXPECT_EQ(board().text->getText(), "ö");
}

TEST_F(ControlsByHand, OtherKeysAreTheHosts)
{
    click(ControlBoard::kBarPlace);
    ASSERT_TRUE(idleUntilLine("end 5"));
    ASSERT_TRUE(isKeyboardBack());
    for (const int key : {kKeyA, kKeyEscape, kKeyReturn}) {
        desk->type(key);
        const XEvent event = desk->await(XCB_KEY_PRESS, [&] { view->poll(); });
        ASSERT_TRUE(event);
        EXPECT_EQ(reinterpret_cast<const xcb_key_press_event_t&>(*event).detail, key);
    }
    EXPECT_EQ(board().text->getText(), "before");
}

TEST_F(ControlsByHand, TheMenuWorksByMouse)
{
    openMenu();
    click(entryPlace(3));
    ASSERT_TRUE(idleUntil([&] { return !isMenuOpen() && isKeyboardBack(); }));
    EXPECT_EQ(linesWith("edit 10 0.75"), 1);
    EXPECT_EQ(board().menu->getCurrent(), 3);

    moveTo(ControlBoard::kMenuPlace); // in one stroke
    desk->button(1, true);
    ASSERT_TRUE(idleUntil([&] { return isMenuOpen(); }));
    moveTo(entryPlace(1));
    desk->button(1, false);
    ASSERT_TRUE(idleUntil([&] { return !isMenuOpen() && isKeyboardBack(); }));
    EXPECT_EQ(linesWith("edit 10 0.25"), 1);

    openMenu();
    click(ControlBoard::kSwitchPlace); // closes the menu, no more
    ASSERT_TRUE(idleUntil([&] { return !isMenuOpen() && isKeyboardBack(); }));
    EXPECT_EQ(linesWith("edit"), 2);
}

TEST_F(ControlsByHand, TheMenuWorksByKeys)
{
    openMenu();
    desk->type(kKeyDown);
    desk->type(kKeyDown);
    desk->type(kKeyReturn);
    ASSERT_TRUE(idleUntil([&] { return !isMenuOpen() && isKeyboardBack(); }));
    EXPECT_EQ(linesWith("edit 10 0.50"), 1);

    openMenu();
    desk->type(kKeyDown);
    desk->type(kKeyEscape);
    ASSERT_TRUE(idleUntil([&] { return !isMenuOpen() && isKeyboardBack(); }));
    EXPECT_EQ(linesWith("edit"), 1);
    EXPECT_EQ(board().menu->getCurrent(), 2);
}

TEST_F(ControlsByHand, TheHintComesAfterStillTicksAndGoesWithAMove)
{
    const auto ground = [&] { return desk->pixelAt(parent, 60, 52 + 85); }; // to the right, below the pointer
    moveTo(20, 60);
    ASSERT_TRUE(idleUntil([&] { return board().stillTicks == 0 && ground() != 0; }));
    const std::uint32_t bare = ground();
    ASSERT_TRUE(idleUntil([&] { return ground() != bare; }));
    EXPECT_GE(board().stillTicks, Qorvane::HoverHint::kStillTicks);
    moveTo(22, 63);
    EXPECT_TRUE(idleUntil([&] { return ground() == bare; }));
    EXPECT_LT(board().stillTicks, Qorvane::HoverHint::kStillTicks);
    EXPECT_TRUE(master.lines.empty());
}

} // namespace
} // namespace velmora::test
