#include "tests/editor/window_test.h"

namespace velmora::test {
namespace {

using Lines = std::vector<std::string>;

// Keys of a PC keyboard, as the server numbers them.
constexpr int kKeyE = 26, kKeyA = 38, kKeyC = 54, kKeyShift = 50, kKeyControl = 37, kKeyReturn = 36,
              kKeyLeft = 113;
constexpr int kKeyRightOfZero = 21; // one further: a dead accent in German

TEST_F(WindowTest, TellsWhatThePointerDoes)
{
    movePointer(10, 20);
    EXPECT_EQ(polled(), Lines({"inside", "moved at 10,20 with 0"}));
    for (int x = 11; x <= 30; ++x) movePointer(x, 20);
    EXPECT_EQ(polled(), Lines({"moved at 30,20 with 0"})) << "the last of the motions";

    host->key(kKeyShift, true);
    host->button(1, true);
    host->button(3, true);
    movePointer(31, 20);
    host->button(1, false);
    host->button(3, false);
    host->key(kKeyShift, false);
    EXPECT_EQ(polled(),
              Lines({"pressed at 30,20 with 12", "pressed at 30,20 with 1A", "moved at 31,20 with 1A",
                     "released at 31,20 with 12", "released at 31,20 with 18"}));

    Point point;
    std::uint32_t buttons = 0;
    EXPECT_TRUE(window->queryPointer(point, buttons));
    EXPECT_EQ(point, (Point{31, 20}));
    movePointer(250, 20);
    EXPECT_EQ(polled(), Lines({"outside"}));
    EXPECT_FALSE(window->queryPointer(point, buttons));
}

TEST_F(WindowTest, KeepsADragThatLeavesIt)
{
    movePointer(10, 20);
    host->button(1, true);
    polled();
    movePointer(-60, 250);
    EXPECT_EQ(polled(), Lines({"outside", "moved at -60,250 with 2"}));
    host->button(1, false);
    EXPECT_EQ(polled(), Lines({"released at -60,250 with 2"}));
    movePointer(-61, 250);
    EXPECT_EQ(polled(), Lines());
}

TEST_F(WindowTest, AddsUpTheWheel)
{
    movePointer(10, 20);
    polled();
    host->click(4, 5);
    host->click(5, 2);
    host->click(6);
    EXPECT_EQ(polled(), Lines({"wheel 3 at 10,20 with 0"}));
    host->click(5, 2);
    host->key(kKeyControl, true);
    host->click(5, 1);
    host->key(kKeyControl, false);
    EXPECT_EQ(polled(), Lines({"wheel -2 at 10,20 with 0", "wheel -1 at 10,20 with 20"}));
    host->click(4);
    host->click(5);
    EXPECT_EQ(polled(), Lines()) << "up and down again";
}

TEST_F(WindowTest, TellsDoubleClicks)
{
    movePointer(10, 20);
    polled();
    host->click(1, 3);
    EXPECT_EQ(polled(),
              Lines({"pressed at 10,20 with 2", "released at 10,20 with 2", "pressed at 10,20 with 402",
                     "released at 10,20 with 2", "pressed at 10,20 with 2", "released at 10,20 with 2"}))
        << "the third begins anew";
    movePointer(15, 20);
    host->click(1);
    host->click(3);
    usleep(450000);
    host->click(3);
    polled();
    for (const std::string& line : notes.lines) EXPECT_EQ(line.find(" with 4"), line.npos) << line;
    movePointer(17, 22);
    host->click(3);
    polled();
    EXPECT_TRUE(notes.has("pressed at 17,22 with 408"));
}

/// A host closes the editor from inside what the editor tells it.
TEST_F(WindowTest, MayBeClosedFromInsideACall)
{
    for (const char* last :
         {"moved at 12,20 with 0", "pressed at 12,20 with 2", "outside", "wheel 1 at 12,20 with 0"}) {
        window = open();
        movePointer(10, 20);
        polled();
        movePointer(12, 20);
        host->click(4);
        host->click(1);
        movePointer(300, 20);
        notes.lines.clear();
        notes.onLine = [&](const std::string& line) {
            if (line == last) window.reset();
        };
        host->sync();
        for (int i = 0; i < 1000 && window; ++i) {
            window->pollEvents(notes);
            usleep(500);
        }
        EXPECT_FALSE(window);
        EXPECT_EQ(notes.lines.back(), last) << "nothing is told afterwards";
        notes.onLine = [](const std::string&) {};
    }
}

TEST_F(WindowTest, LeavesKeysToTheHostUnlessItNeedsThem)
{
    movePointer(10, 20);
    host->setFocus(parent);
    host->type(kKeyA);
    XEvent event = host->await(XCB_KEY_PRESS);
    ASSERT_TRUE(event) << "though the pointer is over our window";
    EXPECT_EQ(event->response_type, XCB_KEY_PRESS) << "the key itself, not a copy";
    polled();
    EXPECT_FALSE(notes.has("key 'a' 61 with 0"));

    const xcb_window_t other = host->openWindow(600, 300, 50, 50);
    host->setFocus(other);
    window->takeKeyboard();
    EXPECT_EQ(host->focus(), window->id());
    host->type(kKeyA);
    EXPECT_EQ(polled(), Lines({"key 'a' 61 with 0"}));
    window->returnKeyboard();
    EXPECT_EQ(host->focus(), other);
    window->takeKeyboard();
    EXPECT_EQ(polled(), Lines()) << "what was lost by giving it back is no loss now";

    host->setFocus(parent);
    EXPECT_EQ(polled(), Lines({"keyboard lost"}));
    window->returnKeyboard();
    EXPECT_EQ(host->focus(), parent) << "it isn't ours to give";

    host->setFocus(other);
    window->takeKeyboard();
    host->closeWindow(other);
    window->returnKeyboard();
    EXPECT_EQ(host->focus(), parent) << "the former owner has gone";

    window->takeKeyboard();
    window.reset();
    EXPECT_EQ(host->focus(), parent);
}

TEST_F(WindowTest, TypesInTheUsersLayouts)
{
    window->takeKeyboard();
    host->type(kKeyA, kKeyShift);
    host->type(kKeyC, kKeyControl);
    host->type(kKeyReturn);
    host->type(kKeyLeft, kKeyShift);
    EXPECT_EQ(polled(), Lines({"key 'A' 61 with 10", "key '' 63 with 20", "key Return'' 0 with 0",
                               "key Left'' 0 with 10"}));

    ASSERT_EQ(std::system("setxkbmap -layout de,ru -option grp:lwin_switch"), 0);
    host->sync();
    polled();
    host->type(kKeyRightOfZero);
    host->type(kKeyE);
    host->type(kKeyRightOfZero);
    host->type(kKeyC, kKeyControl);
    host->type(kKeyLeft);
    host->type(kKeyRightOfZero);
    EXPECT_EQ(polled(), Lines({"key 'é' 65 with 0", "key '' 63 with 20", "key Left'' 0 with 0"}));
    window->returnKeyboard();
    window->takeKeyboard();
    host->type(kKeyE);
    EXPECT_EQ(polled(), Lines({"key 'e' 65 with 0"})) << "the accent before belonged to another edit";

    ASSERT_EQ(std::system("setxkbmap -layout ru,us -option"), 0);
    host->sync();
    polled();
    host->type(kKeyC);
    host->type(kKeyC, kKeyControl);
    EXPECT_EQ(polled(), Lines({"key 'с' 63 with 0", "key '' 63 with 20"}));
}

} // namespace
} // namespace velmora::test
