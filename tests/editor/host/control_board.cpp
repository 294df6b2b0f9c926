#include "tests/editor/host/control_board.h"

#include "editor/engine/draw_context.h"
#include "editor/engine/view_container.h"

#include <cmath>
#include <memory>
#include <string>

namespace velmora::test {

namespace {

constexpr double kPixelsOfRange = 100.0;
constexpr float kNotch = 0.1F;

} // namespace

void DragBar::draw(QORDrawContext* context)
{
    const double level = rect.bottom - rect.height() * value;
    context->setFillColor({60, 60, 60, 255});
    context->drawRect(rect, DrawStyle::Filled);
    context->setFillColor({251, 168, 60, 255});
    context->drawRect({rect.left, level, rect.right, rect.bottom}, DrawStyle::Filled);
}

int DragBar::onMouseDown(Point point, std::uint32_t buttons)
{
    if ((buttons & kLeftButton) == 0) return kMouseNotHandled;
    if ((buttons & kDoubleClick) != 0)
        commitValue(getDefaultValue());
    else
        grabbedAt = value + point.y / kPixelsOfRange;
    return kMouseHandled;
}

int DragBar::onMouseMoved(Point point, std::uint32_t)
{
    if (!grabbedAt) return kMouseNotHandled;
    commitValue(*grabbedAt - point.y / kPixelsOfRange);
    return kMouseHandled;
}

int DragBar::onMouseUp(Point, std::uint32_t)
{
    grabbedAt.reset();
    return kMouseHandled;
}

void DragBar::onMouseWheel(Point, float distance, std::uint32_t)
{
    commitValue(value + static_cast<double>(distance * kNotch));
}

Qorvane::EditorFactory ControlBoard::factory()
{
    const auto create = [](QORMasterGraphicalEngine& graphicalEngine) -> std::unique_ptr<QORBaseEditor> {
        auto board = std::make_unique<ControlBoard>(graphicalEngine);
        last = board.get();
        return board;
    };
    return {create, kWidth, kHeight};
}

void ControlBoard::open()
{
    QORViewContainer* const ground = engine.createViewContainer(rectAt(0, 0, kWidth, kHeight));
    ground->setBackgroundColor({40, 45, 50, 255});
    engine.addView(ground);

    bar = new DragBar(kBarPlace, kBar);
    bar->setHint("What the bar does");
    onOff = new QOROnOffButton(kSwitchPlace, kSwitch, nullptr);
    kick = new QORKickButton(kKickPlace, kKick, nullptr);
    text = new QORTextEdit(kTextPlace, kText, "before");
    menu = new QOROptionMenu(kMenuPlace, kMenu);
    QORBaseControl* const controls[] = {
        bar,
        onOff,
        kick,
        new QORTextLabel(kLabelPlace, kLabel, "Größe 日本"),
        text,
        menu,
        new QORBaseControl(kPlainPlace, kPlain, nullptr, kControlKindHorizontalSwitch)};
    for (QORBaseControl* control : controls) {
        control->setValue(0.5);
        ground->addControl(control);
    }
    for (int i = 0; i < kMenuEntries; ++i)
        menu->addEntry("Entry " + std::to_string(i), QOROptionMenu::kAppend, QOROptionMenu::kPlain);
    menu->setCurrent(0);
}

void ControlBoard::idle()
{
    Point pointer;
    engine.getMousePosition(pointer);
    const bool still = std::abs(pointer.x - lastPointer.x) <= 1 && std::abs(pointer.y - lastPointer.y) <= 1;
    stillTicks = still ? stillTicks + 1 : 0;
    lastPointer = pointer;
}

} // namespace velmora::test
