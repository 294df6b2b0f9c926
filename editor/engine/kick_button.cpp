#include "editor/engine/kick_button.h"

namespace velmora {
namespace {

constexpr int kIdleFrame = 0;
constexpr int kHoveredFrame = 1;
constexpr int kPressedFrame = 2;

constexpr double kPressedValue = 1.0;
constexpr double kPressedWithControlValue = 0.5;

} // namespace

QORKickButton::QORKickButton(const Rect& place, std::uint32_t controlTag, QORBitmap* picture,
                             bool doubleClicks)
    : QORBaseControl(place, controlTag, picture, kControlKindKick), doubleClickAware(doubleClicks)
{
    value = 0.0;
}

void QORKickButton::draw(QORDrawContext* context)
{
    if (context == nullptr || !bitmap) return;
    const int frame = pressed ? kPressedFrame : hovering ? kHoveredFrame : kIdleFrame;
    context->drawBitmap(bitmap.get(), rect, {0.0, frame * rect.height()}, 1.0);
}

int QORKickButton::onMouseDown(Point, std::uint32_t buttons)
{
    if ((buttons & kLeftButton) == 0) return kMouseNotHandled;
    if (doubleClickAware && (buttons & kDoubleClick) == 0) return kMouseNotHandled;
    pressed = true;
    const bool half = doubleClickAware && (buttons & kControlKey) != 0;
    commitValue(half ? kPressedWithControlValue : kPressedValue);
    setDirty(true);
    return kMouseHandled;
}

int QORKickButton::onMouseUp(Point, std::uint32_t)
{
    if (!pressed) return kMouseNotHandled;
    pressed = false;
    setValue(0.0);
    setDirty(true);
    return kMouseHandled;
}

int QORKickButton::onMouseEntered(Point point, std::uint32_t buttons)
{
    hovering = true;
    setDirty(true);
    return QORBaseControl::onMouseEntered(point, buttons);
}

int QORKickButton::onMouseExited(Point point, std::uint32_t buttons)
{
    hovering = false;
    setDirty(true);
    return QORBaseControl::onMouseExited(point, buttons);
}

} // namespace velmora
