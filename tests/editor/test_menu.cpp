// The open list of an option menu.

#include "tests/editor/frame_rig.h"

#include "editor/engine/option_menu.h"
#include "editor/engine/text_edit.h"

namespace velmora::test {
namespace {

constexpr double kLine = 19.0;
constexpr double kMargin = 4.0;

class MenuTest : public FrameRig {
protected:
    void SetUp() override
    {
        FrameRig::SetUp();
        if (frame != nullptr) menu = &addMenu(rectAt(20.0, 0.0, 60.0, 20.0), 5);
    }
    QOROptionMenu& addMenu(const Rect& place, int entries, std::uint32_t tag = 901)
    {
        auto& made = add<QOROptionMenu>(place, tag);
        for (int i = 0; i < entries; ++i)
            made.addEntry("entry " + std::to_string(i), QOROptionMenu::kAppend, QOROptionMenu::kPlain);
        return made;
    }
    bool isOpen() const { return frame->getPopup() != nullptr; }
    Rect list() const { return frame->getPopup()->getPlace(); }
    /// The middle of a line as the list opens.
    Point line(int index) const { return {list().left + 20.0, list().top + kMargin + kLine * (index + 0.5)}; }

    QOROptionMenu* menu = nullptr; // at 30, 30 to 90, 50 of the window
};

TEST_F(MenuTest, OpensDownOrUpwardsOrOverItsPlace)
{
    menu->popup();
    EXPECT_EQ(list().top, 50.0);
    EXPECT_EQ(list().left, 30.0);
    EXPECT_TRUE(menu->getPeer() != nullptr && screen->keyboardTaken);
    screen->key(Key::Escape);
    poll();
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(screen->keyboardTaken);

    auto& low = addMenu(rectAt(180.0, 120.0, 60.0, 20.0), 5);
    low.popup();
    EXPECT_EQ(list().bottom, 150.0) << "upwards";
    EXPECT_LE(list().right, kWidth);

    auto& longer = addMenu(rectAt(20.0, 60.0, 60.0, 20.0), 100);
    longer.popup();
    EXPECT_EQ(list().top, 0.0);
    EXPECT_EQ(list().bottom, kHeight) << "as much as fits";
}

TEST_F(MenuTest, ChosenByTwoClicksOrByOneDrag)
{
    screen->click(40.0, 40.0);
    poll();
    ASSERT_TRUE(isOpen()) << "a click that doesn't move leaves it open";
    const Point second = line(1);
    screen->move(second.x, second.y);
    screen->click(second.x, second.y);
    poll();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(menu->getCurrent(), 1);
    EXPECT_EQ(menu->getValue(), 0.25);

    screen->press(40.0, 40.0);
    screen->move(42.0, 41.0);
    poll();
    const Point third = line(2);
    screen->move(third.x, third.y);
    screen->release(third.x, third.y);
    poll();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(menu->getCurrent(), 2);
    EXPECT_EQ(takeHeard(), (Heard{"value 901", "value 901"}));

    screen->press(40.0, 40.0);
    screen->move(200.0, 190.0);
    screen->release(200.0, 190.0);
    poll();
    EXPECT_FALSE(isOpen()) << "dragged past it";
    screen->click(40.0, 40.0);
    screen->click(200.0, 190.0);
    poll();
    EXPECT_FALSE(isOpen()) << "a click beside it only closes it";
    EXPECT_EQ(takeHeard(), Heard{});
}

TEST_F(MenuTest, TitlesSeparatorsAndDisabledEntriesAreSkipped)
{
    menu->addEntry("title", 0, QOROptionMenu::kTitle);
    menu->addEntry("", 2, QOROptionMenu::kSeparator); // title, 0, ---, 1, 2, 3, 4
    menu->setEntryEnabled(3, false);
    menu->popup();
    screen->click(line(0).x, line(0).y);
    poll();
    EXPECT_TRUE(isOpen());
    for (int i = 0; i < 2; ++i) screen->key(Key::Down); // 0, then over the separator and the disabled one
    screen->key(Key::Return);
    poll();
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(menu->getCurrent(), 4);
}

TEST_F(MenuTest, KeysWalkJumpAndSeek)
{
    auto& longer = addMenu(rectAt(20.0, 60.0, 60.0, 20.0), 100, 902);
    longer.setCurrent(50);
    const auto chosenBy = [&](auto&&... keys) {
        longer.popup();
        (screen->key(keys), ...);
        screen->type(" ");
        poll();
        EXPECT_FALSE(isOpen());
        return longer.getCurrent();
    };
    EXPECT_EQ(chosenBy(Key::Down), 51);
    EXPECT_EQ(chosenBy(Key::Up, Key::Up), 49);
    EXPECT_EQ(chosenBy(Key::Home), 0);
    EXPECT_EQ(chosenBy(Key::Up), 0) << "stays at the end";
    const int page = chosenBy(Key::PageDown);
    EXPECT_GT(page, 5);
    EXPECT_LT(page, 10);
    EXPECT_EQ(chosenBy(Key::PageUp), 0);
    EXPECT_EQ(chosenBy(Key::End), 99);

    longer.setCurrent(50);
    screen->click(40.0, 100.0);
    screen->key(Key::Down);
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(longer.getCurrent(), 51) << "a click leaves the current entry lit";

    longer.addEntry("Zulu", 40, QOROptionMenu::kPlain);
    longer.popup();
    screen->type("z");
    screen->key(Key::Return);
    poll();
    EXPECT_EQ(longer.getCurrent(), 40) << "the search goes round";
}

TEST_F(MenuTest, ALongListScrollsByWheelAndAtItsEnds)
{
    auto& longer = addMenu(rectAt(20.0, 60.0, 60.0, 20.0), 100, 902);
    longer.popup();
    const Point third = line(3);
    screen->move(third.x, third.y);
    screen->wheel(third.x, third.y, -2.0f); // two notches of three lines
    screen->click(third.x, third.y);
    poll();
    EXPECT_EQ(longer.getCurrent(), 9);

    longer.setCurrent(0);
    longer.popup();
    screen->move(40.0, 100.0);
    screen->move(40.0, kHeight - 3.0);
    screen->click(40.0, kHeight - 3.0);
    poll();
    EXPECT_TRUE(isOpen()) << "the strip itself chooses nothing";
    for (int i = 0; i < 19; ++i) frame->tick();
    screen->move(40.0, kMargin + kLine * 4.5);
    screen->click(40.0, kMargin + kLine * 4.5);
    poll();
    EXPECT_EQ(longer.getCurrent(), 4 + 4) << "nineteen ticks of four pixels make four lines";
}

TEST_F(MenuTest, OneListAtATimeAndTheKeyboardGoesWithIt)
{
    auto& other = addMenu(rectAt(100.0, 0.0, 60.0, 20.0), 3, 902);
    auto& edit = add<QORTextEdit>(rectAt(20.0, 60.0, 60.0, 20.0), 903, "old");
    edit.takeFocus();
    screen->type("new");
    poll();
    menu->popup();
    EXPECT_EQ(edit.getText(), "new") << "taken";
    EXPECT_TRUE(isOpen());
    EXPECT_TRUE(screen->keyboardTaken);
    other.popup();
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(list().left, 110.0);
    edit.takeFocus();
    EXPECT_FALSE(isOpen());
    EXPECT_TRUE(screen->keyboardTaken);
    screen->events.push_back([](auto& to) { to.onKeyboardLost(); });
    poll();
    EXPECT_EQ(frame->getKeyTarget(), nullptr);
}

TEST_F(MenuTest, GoesWithItsControlItsEntriesAndItsWindow)
{
    menu->popup();
    panel->removeControl(menu);
    EXPECT_FALSE(isOpen());
    EXPECT_FALSE(screen->keyboardTaken);
    menu->popup();
    EXPECT_FALSE(isOpen()) << "nowhere to open";

    panel->addControl(menu);
    menu->popup();
    menu->addEntry("late", QOROptionMenu::kAppend, QOROptionMenu::kPlain);
    EXPECT_FALSE(isOpen());
    menu->popup();
    frame->resize(300.0, 300.0);
    EXPECT_FALSE(isOpen());

    menu->popup();
    frame->paint();
    closeFrame();
    EXPECT_EQ(heard, Heard{});
    EXPECT_FALSE(screen->exists);
}

} // namespace
} // namespace velmora::test
