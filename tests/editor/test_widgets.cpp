// The mouse's way to controls, and the gestures that come of it.

#include "tests/editor/frame_rig.h"

#include "editor/engine/kick_button.h"
#include "editor/engine/on_off_button.h"
#include "editor/engine/option_menu.h"

namespace velmora::test {
namespace {

class WidgetTest : public FrameRig {
protected:
    void SetUp() override
    {
        FrameRig::SetUp();
        if (frame != nullptr) knob = &add<DragControl>(rectAt(0.0, 0.0, 40.0, 20.0));
    }
    DragControl* knob = nullptr; // at 10, 30 to 50, 50 of the window
};

TEST_F(WidgetTest, ADragIsOneGestureHoweverFarItGoes)
{
    screen->move(15.0, 35.0);
    screen->press(15.0, 35.0);
    for (int x = 16; x < 300; x += 20) screen->move(x, 35.0);
    screen->leave();
    screen->move(-50.0, -70.0);
    screen->release(-50.0, -70.0);
    poll();
    EXPECT_EQ(heard.front(), "begin 5");
    EXPECT_EQ(heard.back(), "end 5");
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "begin 5"), 1);
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "end 5"), 1);
    EXPECT_EQ(std::count(heard.begin(), heard.end(), "value 5"), static_cast<long>(heard.size()) - 2);
    EXPECT_EQ(knob->getValue(), 0.0) << "clamped on its way out";
    EXPECT_TRUE(knob->log.ends_with("uo"));
    EXPECT_FALSE(frame->isMouseInside());
    EXPECT_EQ(frame->getCurrentMouseButtons(), 0u);
}

TEST_F(WidgetTest, WhoIsNotHeldHearsOfHoverOnly)
{
    DragControl& other = add<DragControl>(rectAt(60.0, 0.0, 40.0, 20.0), 6);
    screen->move(15.0, 35.0);
    screen->move(75.0, 35.0);
    screen->press(75.0, 35.0);
    screen->move(15.0, 35.0);
    screen->release(15.0, 35.0);
    poll();
    EXPECT_EQ(other.log, "imdmuo");
    EXPECT_EQ(knob->log, "imoim") << "entered once the other one let go";
    screen->leave();
    poll();
    EXPECT_EQ(knob->log, "imoimo");
}

TEST_F(WidgetTest, ASecondButtonOrALostReleaseLeavesNoControlHanging)
{
    screen->press(15.0, 35.0);
    screen->press(15.0, 35.0, kRightButton);
    screen->release(15.0, 35.0, kRightButton);
    poll();
    EXPECT_TRUE(knob->dragging) << "the left button is still down";
    screen->held = 0; // went up where nobody saw it
    screen->move(20.0, 35.0);
    poll();
    EXPECT_FALSE(knob->dragging);
    EXPECT_EQ(heard.back(), "end 5");
}

TEST_F(WidgetTest, AGestureBelongsToPressesThatAreTaken)
{
    screen->click(15.0, 35.0, kRightButton);
    poll();
    EXPECT_EQ(takeHeard(), Heard{});
    screen->wheel(15.0, 35.0, 1.0f);
    poll();
    EXPECT_EQ(takeHeard(), Heard{"value 5"});
    auto& button = add<QOROnOffButton>(rectAt(60.0, 0.0, 20.0, 20.0), 18, nullptr);
    button.setValue(0.0);
    screen->click(75.0, 35.0);
    poll();
    EXPECT_EQ(takeHeard(), (Heard{"begin 18", "value 18", "end 18"}));
}

TEST_F(WidgetTest, AViewThatGoesInMidDragLetsGo)
{
    knob->setHintTracking(true);
    screen->move(15.0, 35.0);
    screen->press(15.0, 35.0);
    screen->move(20.0, 35.0);
    poll();
    EXPECT_EQ(QORBaseControl::hovered(), knob);
    panel->removeControl(knob);
    EXPECT_EQ(heard.back(), "end 5");
    EXPECT_EQ(knob->log, "imdmoc");
    EXPECT_EQ(QORBaseControl::hovered(), nullptr);
    const std::size_t told = heard.size();
    screen->move(25.0, 35.0);
    screen->release(25.0, 35.0);
    poll();
    EXPECT_EQ(heard.size(), told);

    panel->addControl(knob);
    screen->press(15.0, 35.0);
    poll();
    frame->plugArea().removeChild(panel.get());
    EXPECT_EQ(heard.back(), "end 5") << "also with the container it lies in";
    frame->plugArea().addChild(panel.get());
    screen->press(15.0, 35.0);
    poll();
    closeFrame();
    EXPECT_EQ(heard.back(), "end 5");
}

TEST_F(WidgetTest, RemovedFromInsideItsOwnPressOrGesture)
{
    knob->onDown = [this] { panel->removeControl(knob); };
    screen->click(15.0, 35.0);
    poll();
    EXPECT_FALSE(std::count(heard.begin(), heard.end(), "begin 5") !=
                 std::count(heard.begin(), heard.end(), "end 5"));
    knob->onDown = nullptr;

    panel->addControl(knob);
    onHeard = [this](const std::string& what) {
        if (what.starts_with("end")) panel->removeControl(knob);
    };
    screen->press(15.0, 35.0);
    poll();
    panel->removeControl(knob); // whose end of gesture removes it again
    EXPECT_EQ(knob->getPeer()->isVisible(), false);
}

TEST_F(WidgetTest, AKickThatOpensAMenuIsLetGoByItsOwnRelease)
{
    auto& kick = add<QORKickButton>(rectAt(60.0, 0.0, 40.0, 20.0), 900, nullptr);
    auto& menu = add<QOROptionMenu>(rectAt(60.0, 0.0, 40.0, 20.0), 901);
    for (const char* text : {"one", "two", "three"})
        menu.addEntry(text, QOROptionMenu::kAppend, QOROptionMenu::kPlain);
    panel->removeControl(&menu);
    onHeard = [&](const std::string& what) {
        if (what == "value 900") {
            panel->addControl(&menu);
            menu.popup();
        } else if (what == "value 901") {
            panel->removeControl(&menu);
        }
    };
    screen->press(75.0, 35.0);
    poll();
    ASSERT_NE(frame->getPopup(), nullptr);
    EXPECT_EQ(kick.getValue(), 1.0);
    const Rect list = frame->getPopup()->getPlace();
    screen->move(list.left + 30.0, list.top + 4.0 + 19.0 * 1.5);
    screen->release(list.left + 30.0, list.top + 4.0 + 19.0 * 1.5);
    poll();
    EXPECT_EQ(kick.getValue(), 0.0);
    EXPECT_EQ(menu.getCurrent(), 1);
    EXPECT_EQ(menu.getValue(), 0.5);
    EXPECT_EQ(frame->getPopup(), nullptr);
    EXPECT_EQ(heard, (Heard{"begin 900", "value 900", "end 900", "value 901"}));
    EXPECT_FALSE(screen->keyboardTaken);
}

TEST_F(WidgetTest, OddControlsDoNoHarm)
{
    auto& strange = add<QORBaseControl>(rectAt(60.0, 0.0, 40.0, 20.0), 4000, nullptr, 99u);
    EXPECT_EQ(strange.getPeer(), nullptr);
    strange.commitValue(0.5);
    strange.setDirty(true);
    panel->addControl(nullptr);
    panel->addControl(knob);
    panel->removeControl(&strange);
    Qorvane::CQORViewContainer elsewhere(rectAt(0.0, 0.0, 10.0, 10.0));
    elsewhere.addControl(knob); // belongs to the panel
    EXPECT_TRUE(knob->getPeer()->isVisible());
    screen->click(75.0, 35.0);
    poll();
    frame->paint();
    EXPECT_EQ(takeHeard(), Heard{});

    for (const auto& [width, height] : {std::pair{0.5, 10.0}, {10.0, -1.0}, {10.0, 10.0}}) {
        QOROffscreenContext* const offscreen = knob->getPeer()->createOffscreen(width, height);
        ASSERT_NE(offscreen, nullptr);
        offscreen->drawRect(rectAt(0.0, 0.0, 5.0, 5.0), DrawStyle::Filled);
        EXPECT_EQ(offscreen->getBitmap() != nullptr, width >= 1.0 && height >= 1.0);
        offscreen->forget();
    }
}

} // namespace
} // namespace velmora::test
