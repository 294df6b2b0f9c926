#include "tests/editor/host/small_host.h"

#include <algorithm>
#include <cstdlib>
#include <span>

namespace velmora::test {

bool SmallHost::showsPicture() const
{
    xcb_connection_t* const screen = xcb_connect(nullptr, nullptr);
    xcb_query_tree_reply_t* const tree =
        xcb_query_tree_reply(screen, xcb_query_tree(screen, window), nullptr);
    bool shown = false;
    if (tree != nullptr && tree->children_len == 1) {
        const xcb_window_t editor = *xcb_query_tree_children(tree);
        const auto asked =
            xcb_get_image(screen, XCB_IMAGE_FORMAT_Z_PIXMAP, editor, 0, 0,
                          static_cast<std::uint16_t>(width()), static_cast<std::uint16_t>(height()), ~0U);
        if (xcb_get_image_reply_t* const image = xcb_get_image_reply(screen, asked, nullptr)) {
            const auto* pixels = reinterpret_cast<const std::uint32_t*>(xcb_get_image_data(image));
            const std::span all(pixels, static_cast<std::size_t>(xcb_get_image_data_length(image)) / 4);
            shown = std::ranges::adjacent_find(all, std::not_equal_to()) != all.end();
            std::free(image);
        }
    }
    std::free(tree);
    xcb_disconnect(screen);
    return shown;
}

} // namespace velmora::test
