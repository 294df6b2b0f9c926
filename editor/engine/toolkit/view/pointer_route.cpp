#include "editor/engine/toolkit/view/pointer_route.h"

#include "editor/engine/toolkit/view/view.h"

#include <utility>

namespace velmora::Qorvane {

namespace {

constexpr std::uint32_t kAnyButton = kLeftButton | kMiddleButton | kRightButton;
constexpr std::uint32_t kHeldMask = kAnyButton | 0xF0; // modifiers; a double click is an event, not a state

} // namespace

void PointerRoute::setPosition(Point point, std::uint32_t buttons)
{
    last = point;
    word = buttons & kHeldMask;
    inside = true;
}

void PointerRoute::moved(CView* hit, Point point, std::uint32_t buttons)
{
    const std::uint32_t before = word & kAnyButton;
    setPosition(point, buttons);
    if (captured != nullptr && (buttons & kAnyButton) == 0) endCapture(point, before); // the release got lost
    if (captured != nullptr && overlay == nullptr) {
        captured->onMouseMoved(captured->fromFrame(point), buttons);
        return;
    }
    if (overlay != nullptr) hit = overlay;
    hover(hit, point, buttons);
    if (hit != nullptr && hovered == hit) hit->onMouseMoved(hit->fromFrame(point), buttons);
}

// A control hears of the button that went down, not of those held already.
void PointerRoute::pressed(CView* hit, Point point, std::uint32_t buttons)
{
    const std::uint32_t heldBefore = word & kAnyButton;
    setPosition(point, buttons);
    if (captured != nullptr && overlay == nullptr) { // a second button in mid-drag
        captured->onMouseMoved(captured->fromFrame(point), buttons);
        return;
    }
    if (overlay != nullptr) hit = overlay;
    hover(hit, point, buttons);
    if (hit == nullptr || hovered != hit) return;
    if (hit == overlay) {
        hit->onMouseDown(hit->fromFrame(point), buttons);
        return;
    }
    std::uint32_t fresh = buttons & ~heldBefore;
    if ((fresh & kAnyButton) == 0) fresh = buttons; // an earlier release got lost
    captured = hit;                                 // before the call: the view may go in it
    if (hit->onMouseDown(hit->fromFrame(point), fresh) != kMouseHandled && captured == hit)
        captured = nullptr;
}

// `buttons` names the button that went up; what is held is told without it.
void PointerRoute::released(Point point, std::uint32_t buttons)
{
    const std::uint32_t held = word & kAnyButton & ~buttons;
    last = point;
    word = held | (buttons & kHeldMask & ~kAnyButton);
    if (held != 0) return;
    CView* const above = overlay;
    endCapture(point, buttons);
    if (above != nullptr && overlay == above) above->onMouseUp(above->fromFrame(point), buttons);
}

void PointerRoute::endCapture(Point point, std::uint32_t buttons)
{
    if (CView* const target = std::exchange(captured, nullptr))
        target->onMouseUp(target->fromFrame(point), buttons);
}

void PointerRoute::left(std::uint32_t buttons)
{
    inside = false;
    word = buttons & kHeldMask;
    if (captured == nullptr || overlay != nullptr) hover(nullptr, last, buttons);
}

void PointerRoute::hover(CView* view, Point point, std::uint32_t buttons)
{
    if (view == hovered) return;
    CView* const before = std::exchange(hovered, view); // before the calls: a view may go in them
    if (before != nullptr) before->onMouseExited(before->fromFrame(point), buttons);
    if (view != nullptr && hovered == view) view->onMouseEntered(view->fromFrame(point), buttons);
}

void PointerRoute::forget(CView* view)
{
    if (view->holds(hovered)) hover(nullptr, last, word);
    if (view->holds(captured)) cancel();
}

void PointerRoute::cancel()
{
    if (CView* const holder = std::exchange(captured, nullptr)) holder->onMouseCancelled();
}

} // namespace velmora::Qorvane
