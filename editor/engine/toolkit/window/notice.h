#pragma once

#include "editor/engine/toolkit/window/native_window.h"

namespace velmora::Qorvane {

/// Something for the listener.
struct Notice {
    enum class Kind { Moved, Pressed, Released, Crossed, Wheel, Key, KeyboardLost, Exposed, Text };

    Kind kind = Kind::Moved;
    Point point{};
    std::uint32_t buttons = 0;
    bool inside = false;   ///< Crossed
    float distance = 0.0F; ///< Wheel
    KeyPress press{};      ///< Key
    Rect rect{};           ///< Exposed
    std::string text{};    ///< Text
};

inline void deliver(const Notice& notice, WindowListener& listener)
{
    switch (notice.kind) {
    case Notice::Kind::Moved:
        return listener.onPointerMoved(notice.point, notice.buttons);
    case Notice::Kind::Pressed:
        return listener.onPointerPressed(notice.point, notice.buttons);
    case Notice::Kind::Released:
        return listener.onPointerReleased(notice.point, notice.buttons);
    case Notice::Kind::Crossed:
        return listener.onPointerCrossed(notice.point, notice.inside, notice.buttons);
    case Notice::Kind::Wheel:
        return listener.onWheel(notice.point, notice.distance, notice.buttons);
    case Notice::Kind::Key:
        return listener.onKey(notice.press);
    case Notice::Kind::KeyboardLost:
        return listener.onKeyboardLost();
    case Notice::Kind::Exposed:
        return listener.onExposed(notice.rect);
    case Notice::Kind::Text:
        return listener.onTextArrived(notice.text);
    }
}

} // namespace velmora::Qorvane
