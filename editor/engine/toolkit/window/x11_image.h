#pragma once

#include "editor/engine/toolkit/window/native_window.h"
#include "editor/engine/toolkit/window/shared_pixels.h"

#include <vector>

namespace velmora::Qorvane {

/// Pixels of a window: in memory that the server reads, or sent through the connection where it can't.
class X11Image {
public:
    X11Image(X11Connection& connection, xcb_window_t window, std::uint8_t depth);
    X11Image(const X11Image&) = delete;
    X11Image& operator=(const X11Image&) = delete;
    ~X11Image();

    void resize(int width, int height);
    /// To be drawn into. Waits a little while the server still reads.
    PixelBuffer pixels();
    void show(std::span<const Rect> damage);
    /// @return true if the event was the server's answer to what was shown
    bool handle(const xcb_generic_event_t& event);

private:
    struct Area {
        int x, y, width, height;
    };

    void awaitServer();
    Area areaOf(const Rect& rect) const;
    void showShared(const Area& area, bool last);
    void showSent(const Area& area);

    X11Connection& connection_;
    xcb_window_t window_;
    std::uint8_t depth_;
    xcb_gcontext_t gc_;
    SharedPixels shared_;
    std::vector<std::uint8_t> own_;
    std::vector<std::uint8_t> piece_;
    int width_ = 0, height_ = 0;
    bool serverReads_ = false;
};

} // namespace velmora::Qorvane
