#include "editor/engine/toolkit/window/x11_visual.h"

namespace velmora::Qorvane {
namespace {

constexpr std::uint8_t kPlainDepth = 24;

bool hasOurPixels(const xcb_visualtype_t& visual)
{
    return visual._class == XCB_VISUAL_CLASS_TRUE_COLOR && visual.red_mask == 0xFF0000 &&
           visual.green_mask == 0xFF00 && visual.blue_mask == 0xFF;
}

/// True if images of `depth` have 32 bits a pixel.
bool isStoredInWords(const xcb_setup_t* setup, std::uint8_t depth)
{
    for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem > 0; xcb_format_next(&format))
        if (format.data->depth == depth) return format.data->bits_per_pixel == 32;
    return false;
}

const xcb_screen_t* screenOf(const xcb_setup_t* setup, xcb_window_t root)
{
    for (auto screen = xcb_setup_roots_iterator(setup); screen.rem > 0; xcb_screen_next(&screen))
        if (screen.data->root == root) return screen.data;
    return nullptr;
}

} // namespace

std::optional<X11Visual> chooseVisual(xcb_connection_t* connection, xcb_window_t root, X11Visual wanted)
{
    const xcb_setup_t* setup = xcb_get_setup(connection);
    const xcb_screen_t* screen = screenOf(setup, root);
    if (screen == nullptr) return std::nullopt;
    std::optional<X11Visual> chosen;
    for (auto depth = xcb_screen_allowed_depths_iterator(screen); depth.rem > 0; xcb_depth_next(&depth)) {
        if (!isStoredInWords(setup, depth.data->depth)) continue;
        auto visual = xcb_depth_visuals_iterator(depth.data);
        for (; visual.rem > 0; xcb_visualtype_next(&visual)) {
            if (!hasOurPixels(*visual.data)) continue;
            const X11Visual found{visual.data->visual_id, depth.data->depth};
            if (found.visual == wanted.visual && found.depth == wanted.depth) return found;
            if (!chosen || (chosen->depth != kPlainDepth && found.depth == kPlainDepth)) chosen = found;
        }
    }
    return chosen;
}

} // namespace velmora::Qorvane
