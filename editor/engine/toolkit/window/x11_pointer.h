#pragma once

#include "editor/engine/toolkit/window/notice.h"
#include "editor/engine/toolkit/window/x11_connection.h"

#include <optional>

namespace velmora::Qorvane {

/// The button word for the modifiers and buttons of an X event.
std::uint32_t buttonsOf(unsigned state);

/// Turns pointer events into notices.
class X11Pointer {
public:
    std::optional<Notice> pressed(const xcb_button_press_event_t& event);
    std::optional<Notice> released(const xcb_button_release_event_t& event) const;
    Notice moved(const xcb_motion_notify_event_t& event) const;
    std::optional<Notice> crossed(const xcb_enter_notify_event_t& event, bool inside);

private:
    bool isSecondClick(const xcb_button_press_event_t& event);

    struct Click {
        xcb_button_t button;
        xcb_timestamp_t time;
        std::int16_t x, y;
    };
    std::optional<Click> lastClick_;
    bool inside_ = false;
};

} // namespace velmora::Qorvane
