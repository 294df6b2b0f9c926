#include "editor/engine/toolkit/wrapper/hover_hint.h"

#include "editor/engine/toolkit/view/frame.h"

#include <cmath>

namespace velmora::Qorvane {

namespace {

constexpr double kStillPixels = 1.0;
constexpr double kAnchorWidth = 25.0;
constexpr double kAnchorHeight = 15.0;
constexpr std::uint32_t kHintButtons = 0x30E;

bool still(Point a, Point b)
{
    return std::abs(a.x - b.x) <= kStillPixels && std::abs(a.y - b.y) <= kStillPixels;
}

} // namespace

void HoverHint::tick(QORFrame& frame, std::uint32_t buttonWord)
{
    const Point position = frame.getMousePosition();
    const CView* const view = frame.viewUnderMouse();
    const std::uint32_t buttons = buttonWord & kHintButtons;
    const bool pressed = buttons == kLeftButton || buttons == kRightButton;
    if (!pressed && view != nullptr && view == lastView && still(position, lastPosition)) {
        const bool waits = !frame.isHintShown() && stillTicks < kStillTicks;
        if (waits && ++stillTicks == kStillTicks && !view->tooltip().empty())
            frame.showHint(view->tooltip(), rectAt(position.x, position.y, kAnchorWidth, kAnchorHeight));
    } else {
        reset(frame);
    }
    lastPosition = position;
    lastView = view;
}

void HoverHint::reset(QORFrame& frame)
{
    frame.hideHint();
    stillTicks = 0;
}

} // namespace velmora::Qorvane
