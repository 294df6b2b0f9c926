#include "editor/engine/toolkit/window/keyboard_focus.h"

namespace velmora::Qorvane {

void KeyboardFocus::askForKeys(bool wanted)
{
    constexpr std::uint32_t kKeys = XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE;
    const std::uint32_t events = wanted ? events_ | kKeys : events_;
    xcb_change_window_attributes(connection_.get(), window_, XCB_CW_EVENT_MASK, &events);
}

Reply<xcb_get_input_focus_reply_t> KeyboardFocus::owner()
{
    return connection_.reply<xcb_get_input_focus_reply_t>(xcb_get_input_focus(connection_.get()).sequence);
}

/// Without a time: a host may just have moved the focus itself, later than the click that brought us here.
xcb_void_cookie_t KeyboardFocus::setOwner(xcb_window_t window)
{
    return xcb_set_input_focus_checked(connection_.get(), XCB_INPUT_FOCUS_PARENT, window, XCB_CURRENT_TIME);
}

void KeyboardFocus::take()
{
    if (held_) return;
    const auto before = owner();
    if (!before) return;
    if (before->focus != window_) formerOwner_ = before->focus;
    askForKeys(true);
    const xcb_void_cookie_t request = setOwner(window_);
    takenBy_ = request.sequence;
    held_ = connection_.succeeded(request);
    if (!held_) askForKeys(false);
}

void KeyboardFocus::giveBack()
{
    if (!held_) return;
    lose();
    const auto now = owner();
    if (!now || now->focus != window_) return;
    if (!connection_.succeeded(setOwner(formerOwner_))) connection_.succeeded(setOwner(parent_));
}

bool KeyboardFocus::isLoss(const xcb_generic_event_t& event) const
{
    if (!held_ || typeOf(event) != XCB_FOCUS_OUT || isBefore(event, takenBy_)) return false;
    const auto& focus = reinterpret_cast<const xcb_focus_out_event_t&>(event);
    // A grab, as of a window manager's keys, is over soon.
    return focus.mode != XCB_NOTIFY_MODE_GRAB && focus.detail != XCB_NOTIFY_DETAIL_POINTER;
}

void KeyboardFocus::lose()
{
    held_ = false;
    askForKeys(false);
}

} // namespace velmora::Qorvane
