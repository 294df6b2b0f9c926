#pragma once

#include "editor/engine/toolkit/window/x11_connection.h"

#include <optional>

namespace velmora::Qorvane {

struct X11Visual {
    xcb_visualid_t visual;
    std::uint8_t depth;
};

/// A visual whose pixels are stored as ours: the one wanted if it is, else another of the screen,
/// without alpha if there is one.
/// @param root of the screen @return nothing if the screen has none
std::optional<X11Visual> chooseVisual(xcb_connection_t* connection, xcb_window_t root, X11Visual wanted);

} // namespace velmora::Qorvane
