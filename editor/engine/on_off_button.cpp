#include "editor/engine/on_off_button.h"

namespace velmora {
namespace {

constexpr float kWheelThreshold = 0.1f;

} // namespace

QOROnOffButton::QOROnOffButton(const Rect& place, std::uint32_t controlTag, QORBitmap* picture)
    : QORBaseControl(place, controlTag, picture, kControlKindOnOff)
{
}

void QOROnOffButton::draw(QORDrawContext* context)
{
    if (context == nullptr || !bitmap) return;
    const double frameHeight = bitmap->getHeight() / 2;
    context->drawBitmap(bitmap.get(), rect, {0.0, isOn() ? frameHeight : 0.0}, 1.0);
}

int QOROnOffButton::onMouseDown(Point, std::uint32_t buttons)
{
    if ((buttons & kLeftButton) == 0) return kMouseNotHandled;
    switchTo(!isOn());
    return kMouseHandled;
}

void QOROnOffButton::onMouseWheel(Point, float distance, std::uint32_t)
{
    if (distance > kWheelThreshold && isOn()) switchTo(false);
    if (distance < -kWheelThreshold && !isOn()) switchTo(true);
}

void QOROnOffButton::switchTo(bool on)
{
    commitValue(on ? 1.0 : 0.0);
    setDirty(true);
}

} // namespace velmora
