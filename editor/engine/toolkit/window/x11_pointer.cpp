#include "editor/engine/toolkit/window/x11_pointer.h"

#include <cstdlib>

namespace velmora::Qorvane {
namespace {

constexpr xcb_timestamp_t kDoubleClickTime = 400; ///< milliseconds
constexpr int kDoubleClickReach = 4;              ///< pixels

constexpr xcb_button_t kWheelUp = 4;
constexpr xcb_button_t kWheelDown = 5;

struct Translation {
    unsigned state;
    std::uint32_t button;
};
constexpr Translation kTranslations[] = {
    {XCB_BUTTON_MASK_1, kLeftButton}, {XCB_BUTTON_MASK_2, kMiddleButton},  {XCB_BUTTON_MASK_3, kRightButton},
    {XCB_MOD_MASK_SHIFT, kShiftKey},  {XCB_MOD_MASK_CONTROL, kControlKey}, {XCB_MOD_MASK_1, kAltKey},
};

/// 0 for a button that we don't know.
std::uint32_t buttonOf(xcb_button_t detail)
{
    switch (detail) {
    case XCB_BUTTON_INDEX_1:
        return kLeftButton;
    case XCB_BUTTON_INDEX_2:
        return kMiddleButton;
    case XCB_BUTTON_INDEX_3:
        return kRightButton;
    default:
        return 0;
    }
}

template <class PointerEvent>
Notice noticeOf(Notice::Kind kind, const PointerEvent& event, std::uint32_t more = 0)
{
    return {.kind = kind,
            .point = {static_cast<double>(event.event_x), static_cast<double>(event.event_y)},
            .buttons = buttonsOf(event.state) | more};
}

} // namespace

std::uint32_t buttonsOf(unsigned state)
{
    std::uint32_t buttons = 0;
    for (const Translation& translation : kTranslations)
        if ((state & translation.state) != 0) buttons |= translation.button;
    return buttons;
}

/// A third click begins anew.
bool X11Pointer::isSecondClick(const xcb_button_press_event_t& event)
{
    const std::optional<Click> last = lastClick_;
    const bool second = last && last->button == event.detail && event.time - last->time <= kDoubleClickTime &&
                        std::abs(event.event_x - last->x) <= kDoubleClickReach &&
                        std::abs(event.event_y - last->y) <= kDoubleClickReach;
    if (second)
        lastClick_.reset();
    else
        lastClick_ = Click{event.detail, event.time, event.event_x, event.event_y};
    return second;
}

std::optional<Notice> X11Pointer::pressed(const xcb_button_press_event_t& event)
{
    if (event.detail == kWheelUp || event.detail == kWheelDown) {
        Notice wheel = noticeOf(Notice::Kind::Wheel, event);
        wheel.distance = event.detail == kWheelUp ? 1.0F : -1.0F;
        return wheel;
    }
    const std::uint32_t button = buttonOf(event.detail);
    if (button == 0) return std::nullopt;
    return noticeOf(Notice::Kind::Pressed, event, button | (isSecondClick(event) ? kDoubleClick : 0U));
}

std::optional<Notice> X11Pointer::released(const xcb_button_release_event_t& event) const
{
    const std::uint32_t button = buttonOf(event.detail);
    if (button == 0) return std::nullopt;
    Notice notice = noticeOf(Notice::Kind::Released, event);
    notice.buttons = (notice.buttons & (kShiftKey | kControlKey | kAltKey)) | button;
    return notice;
}

Notice X11Pointer::moved(const xcb_motion_notify_event_t& event) const
{
    return noticeOf(Notice::Kind::Moved, event);
}

/// Grabs of other programs say the same several times.
std::optional<Notice> X11Pointer::crossed(const xcb_enter_notify_event_t& event, bool inside)
{
    if (inside == inside_) return std::nullopt;
    inside_ = inside;
    Notice notice = noticeOf(Notice::Kind::Crossed, event);
    notice.inside = inside;
    return notice;
}

} // namespace velmora::Qorvane
