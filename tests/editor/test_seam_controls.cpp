#include "editor/engine/bitmaps.h"
#include "editor/engine/custom_control.h"
#include "editor/engine/engine_view.h"
#include "editor/engine/fonts.h"
#include "editor/engine/kick_button.h"
#include "editor/engine/on_off_button.h"
#include "editor/engine/option_menu.h"
#include "editor/engine/text_edit.h"
#include "editor/engine/view_container.h"
#include "params/catalogue.h"
#include "presets/factory_bank.h"
#include "tests/editor/drawing_log.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace velmora {
namespace {

constexpr Rect kPlace = rectAt(10, 20, 30, 40);
constexpr std::uint32_t kEditorTag = 900;
constexpr std::uint32_t kParameterTag = 20;
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// Notes what a control tells its widget.
class NotingView : public QORTextView {
public:
    explicit NotingView(QORBaseControl& shown) : control(shown) { control.setPeer(this); }
    ~NotingView() override { control.setPeer(nullptr); }

    void setDirty(bool) override { ++repaints; }
    void valueChanged() override { told.push_back(control.getValue()); }
    void setTooltip(std::string_view hint) override { tooltip = hint; }
    void setBackgroundColor(Rgba) override {}
    void setValue(double value) override { values.push_back(value); }
    void setViewSize(const Rect& rect) override { size = rect; }
    bool isVisible() override { return true; }
    QOROffscreenContext* createOffscreen(double, double) override { return nullptr; }
    void beginEdit() override {}
    void endEdit() override {}
    void setText(std::string_view shown) override { text = shown; }
    void setFont(QORFont* newFont) override { font = newFont; }
    void setFontColor(Rgba) override {}
    void takeFocus() override {}
    void setFrameColor(Rgba) override {}
    void setTextInset(Point) override {}
    void setRoundRectRadius(double) override {}
    void setTextAlign(TextAlign) override {}

    QORBaseControl& control;
    int repaints = 0;
    std::vector<double> told;
    std::vector<double> values;
    std::string tooltip;
    std::string text;
    QORFont* font = nullptr;
    Rect size;
};

TEST(SeamControls, StartWithTheFirstPresetsValueAndTheCataloguesDefault)
{
    std::array<double, kHostParameterCount> first{};
    for (ParameterId id = 0; id < kHostParameterCount; ++id) first[id] = defaultValue(id);
    factoryPreset(0, first.data(), nullptr, nullptr);
    for (ParameterId id = 0; id < kIdCount; ++id) {
        QORBaseControl control(kPlace, static_cast<std::uint32_t>(id), nullptr, kControlKindOnOff);
        EXPECT_EQ(control.getValue(), id < kHostParameterCount ? first[id] : defaultValue(id)) << id;
        EXPECT_EQ(control.getDefaultValue(), defaultValue(id)) << id;
    }

    for (const std::uint32_t tag : {kEditorTag, std::uint32_t{819}, kNoTag}) {
        QORBaseControl local(kPlace, tag, nullptr, kControlKindHorizontalSwitch);
        EXPECT_EQ(local.getValue(), 0.0) << tag;
    }
    QORCustomControl drawn(kPlace, kParameterTag, nullptr);
    EXPECT_EQ(drawn.getDefaultValue(), 0.5);
    EXPECT_EQ(drawn.getKind(), 13u);
}

TEST(SeamControls, ClampValuesAndIgnoreWhatIsNoNumber)
{
    QORBaseControl control(kPlace, kEditorTag, nullptr, kControlKindHorizontalSwitch);
    NotingView view(control);
    control.setValue(0.25);
    control.setValue(kNaN);
    control.setValue(std::numeric_limits<double>::infinity());
    control.commitValue(-3.0);
    control.commitValue(kNaN);
    control.setHint({});
    EXPECT_EQ(view.values, (std::vector{0.25, 1.0, 0.0}));
    EXPECT_EQ(view.told, std::vector{0.0});
    EXPECT_EQ(view.repaints, 0);
}

TEST(SeamControls, DoNothingWithoutAWidget)
{
    QOROptionMenu menu(kPlace, kEditorTag);
    menu.addEntry("one", QOROptionMenu::kAppend, QOROptionMenu::kPlain);
    menu.setEntryEnabled(0, false);
    menu.setCurrent(3);
    menu.popup();
    EXPECT_EQ(menu.getCurrent(), -1);

    QORTextEdit edit(kPlace, kEditorTag, "text");
    edit.takeFocus();
    edit.setDirty(true);
    edit.setHint("hint");
    edit.commitValue(0.5);
    EXPECT_EQ(edit.getValue(), 0.5);
    EXPECT_EQ(edit.getHint(), "hint");
    edit.draw(nullptr);
}

TEST(SeamControls, CutHintsAndTextsBetweenCharacters)
{
    QORTextLabel label(kPlace, kEditorTag);
    NotingView view(label);
    const std::string wide = std::string(510, 'a') + "\u00e9" + "tail";
    label.setHint(wide);
    EXPECT_EQ(view.tooltip, std::string(510, 'a'));
    label.setHint(std::string(600, 'b'));
    EXPECT_EQ(label.getHint().size(), QORBaseControl::kMaxHintBytes);
    label.setText(std::string(253, 'c') + "\U0001F600");
    EXPECT_EQ(label.getText(), std::string(253, 'c'));
    label.setText(std::string(300, '\x80')); // no UTF-8: cut all the same
    EXPECT_EQ(label.getText().size(), 255u);
    label.setText({"one\0two", 7});
    EXPECT_EQ(view.text, "one");
}

TEST(SeamControls, RescaleFromTheSizeAtTheStart)
{
    QORBaseControl control(kPlace, kEditorTag, nullptr, kControlKindHorizontalSwitch);
    NotingView view(control);
    control.rescale(2.0);
    control.rescale(1.5);
    EXPECT_EQ(view.size, rectAt(10, 20, 45, 60));
    control.rescale(kNaN);
    control.rescale(-1.0);
    EXPECT_EQ(control.getRect(), rectAt(10, 20, 45, 60));
}

TEST(SeamControls, TellWhichOneIsUnderTheMouse)
{
    QORBaseControl plain(kPlace, kEditorTag, nullptr, kControlKindOnOff);
    plain.onMouseEntered({}, 0);
    EXPECT_EQ(QORBaseControl::hovered(), nullptr);
    {
        QORBaseControl first(kPlace, kEditorTag, nullptr, kControlKindOnOff);
        QORBaseControl second(kPlace, kEditorTag, nullptr, kControlKindOnOff);
        first.setHintTracking(true);
        second.setHintTracking(true);
        first.onMouseEntered({}, 0);
        second.onMouseEntered({}, 0);
        first.onMouseExited({}, 0); // late: the other one is hovered already
        EXPECT_EQ(QORBaseControl::hovered(), &second);
    }
    EXPECT_EQ(QORBaseControl::hovered(), nullptr);
}

TEST(OnOffButton, TogglesByLeftClicksAndSwitchesByTheWheel)
{
    QOROnOffButton button(kPlace, kEditorTag, nullptr);
    NotingView view(button);
    EXPECT_EQ(button.onMouseDown({}, kRightButton), kMouseNotHandled);
    EXPECT_EQ(button.onMouseDown({}, kLeftButton), kMouseHandled);
    EXPECT_EQ(button.onMouseDown({}, kLeftButton | kShiftKey), kMouseHandled);
    EXPECT_EQ(view.told, (std::vector{1.0, 0.0}));

    const std::vector<std::pair<float, double>> turns{{-0.1f, 0.0}, {-0.11f, 1.0}, {-1.0f, 1.0},
                                                      {0.1f, 1.0},  {0.11f, 0.0},  {std::nanf(""), 0.0}};
    for (const auto& [distance, value] : turns) {
        button.onMouseWheel({}, distance, 0);
        EXPECT_EQ(button.getValue(), value) << distance;
    }
}

TEST(KickButton, HasItsValueWhileItIsPressed)
{
    QORKickButton button(kPlace, kParameterTag, nullptr);
    NotingView view(button);
    EXPECT_EQ(button.getValue(), 0.0);
    EXPECT_EQ(button.onMouseDown({}, kLeftButton | kControlKey), kMouseHandled);
    EXPECT_EQ(button.getValue(), 1.0);
    button.onMouseUp({}, kLeftButton);
    EXPECT_EQ(button.getValue(), 0.0);
    EXPECT_EQ(view.told, std::vector{1.0}); // the release isn't told
    EXPECT_EQ(view.repaints, 2);
}

TEST(KickButton, ForDoubleClicksIgnoresSingleOnes)
{
    QORKickButton button(kPlace, kEditorTag, nullptr, true);
    NotingView view(button);
    EXPECT_EQ(button.onMouseDown({}, kLeftButton), kMouseNotHandled);
    button.onMouseUp({}, kLeftButton);
    button.onMouseDown({}, kLeftButton | kDoubleClick);
    button.onMouseUp({}, kLeftButton);
    button.onMouseDown({}, kLeftButton | kDoubleClick | kControlKey);
    button.onMouseUp({}, kLeftButton);
    EXPECT_EQ(view.told, (std::vector{1.0, 0.5}));
}

TEST(Buttons, DrawTheFrameOfTheirState)
{
    const auto picture = ResourceRef<QORBitmap>::adopt(new SizedBitmap(30, 120));
    FrameLog log;
    QORKickButton kick(kPlace, kEditorTag, picture.get());
    kick.draw(&log);
    kick.onMouseEntered({}, 0);
    kick.draw(&log);
    kick.onMouseDown({}, kLeftButton);
    kick.draw(&log);
    kick.onMouseUp({}, kLeftButton);
    kick.onMouseExited({}, 0);
    kick.draw(&log);
    QOROnOffButton onOff(kPlace, kEditorTag, picture.get());
    onOff.draw(&log);
    onOff.setValue(0.5);
    onOff.draw(&log);
    EXPECT_EQ(log.tops, (std::vector{0.0, 40.0, 80.0, 0.0, 0.0, 60.0}));
}

TEST(TextEdit, TakesTypedTextThroughItsConverter)
{
    QORTextEdit edit(kPlace, kEditorTag, "5");
    NotingView view(edit);
    edit.setConverters(
        [](std::string_view text) -> std::optional<double> {
            if (text.empty() || text[0] < '0' || text[0] > '9') return std::nullopt;
            return (text[0] - '0') / 10.0;
        },
        [](double value) { return std::to_string(static_cast<int>(std::lround(value * 10))) + " dB"; });
    edit.beginText();
    edit.commitText("7");
    EXPECT_EQ(view.told, std::vector{0.7});
    EXPECT_EQ(view.text, "7 dB");
    edit.beginText();
    edit.setText("half typed");
    edit.commitText("nothing");
    EXPECT_EQ(view.text, "7 dB");
    EXPECT_EQ(edit.getValue(), 0.7);
    EXPECT_EQ(view.told.size(), 1u);

    edit.onMouseWheel({}, 1.0f, 0); // has no increment yet
    EXPECT_EQ(edit.getValue(), 0.7);
    edit.setWheelIncrement(0.25f);
    edit.onMouseWheel({}, -2.0f, 0);
    EXPECT_DOUBLE_EQ(edit.getValue(), 0.2);
    EXPECT_EQ(view.text, "2 dB");
}

TEST(Statics, AreOneBitmapForEachPictureAndTheFaces)
{
    for (const std::uint32_t id : kPictureIds) {
        ASSERT_NE(bitmapOf(id), nullptr) << id;
        EXPECT_EQ(bitmapOf(id), bitmapOf(id));
    }
    EXPECT_EQ(bitmapOf(30006), nullptr);
    EXPECT_EQ(bitmapOf(0), nullptr);
    EXPECT_EQ(bitmapOf(90024), nullptr);
    EXPECT_EQ(fonts::comic32->getName(), "Comic Sans MS");
    EXPECT_EQ(fonts::helvetica18->getSize(), 18.0);

    QORTextLabel label(kPlace, kEditorTag);
    NotingView view(label);
    label.setFont(fonts::helvetica10.get());
    label.setFont(nullptr);
    EXPECT_EQ(view.font, fonts::standard.get());
}

} // namespace
} // namespace velmora
