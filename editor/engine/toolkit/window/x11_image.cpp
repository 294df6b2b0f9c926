#include "editor/engine/toolkit/window/x11_image.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include <xcb/shm.h>

namespace velmora::Qorvane {
namespace {

constexpr int kPixelBytes = 4;
constexpr std::uint32_t kServerPatience =
    100; ///< milliseconds to wait before drawing over what is still read

/// Bytes of pixels in a request: under what every server takes, its head included.
constexpr int kPieceBytes = 240 * 1024;

} // namespace

X11Image::X11Image(X11Connection& connection, xcb_window_t window, std::uint8_t depth)
    : connection_(connection),
      window_(window),
      depth_(depth),
      gc_(xcb_generate_id(connection.get())),
      shared_(connection)
{
    const std::uint32_t noExposures = 0;
    xcb_create_gc(connection.get(), gc_, window, XCB_GC_GRAPHICS_EXPOSURES, &noExposures);
}

X11Image::~X11Image()
{
    if (connection_.isAlive()) xcb_free_gc(connection_.get(), gc_);
}

void X11Image::resize(int width, int height)
{
    const std::size_t size = static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * kPixelBytes;
    own_.clear();
    if (!shared_.open(size)) own_.assign(size, 0);
    width_ = width;
    height_ = height;
    serverReads_ = false;
}

PixelBuffer X11Image::pixels()
{
    awaitServer();
    return {own_.empty() ? shared_.bytes() : own_.data(), width_, height_, width_ * kPixelBytes};
}

void X11Image::awaitServer()
{
    if (!serverReads_) return;
    connection_.awaitEvent([this](const xcb_generic_event_t& event) { return shared_.isAnswer(event); },
                           kServerPatience);
    serverReads_ = false;
}

bool X11Image::handle(const xcb_generic_event_t& event)
{
    if (!shared_.isAnswer(event)) return false;
    serverReads_ = false;
    return true;
}

/// The pixels that `rect` touches.
X11Image::Area X11Image::areaOf(const Rect& rect) const
{
    const Rect all{0, 0, static_cast<double>(width_), static_cast<double>(height_)};
    const Rect common = intersection(rect, all);
    const int left = static_cast<int>(std::floor(common.left)),
              top = static_cast<int>(std::floor(common.top));
    return {left, top, static_cast<int>(std::ceil(common.right)) - left,
            static_cast<int>(std::ceil(common.bottom)) - top};
}

void X11Image::show(std::span<const Rect> damage)
{
    std::vector<Area> areas;
    for (const Rect& rect : damage) {
        const Area area = areaOf(rect);
        if (area.width > 0 && area.height > 0) areas.push_back(area);
    }
    for (const Area& area : areas) {
        if (own_.empty())
            showShared(area, &area == &areas.back());
        else
            showSent(area);
    }
}

void X11Image::showShared(const Area& area, bool last)
{
    if (last) awaitServer(); // one answer at a time
    const auto u16 = [](int value) { return static_cast<std::uint16_t>(value); };
    const auto i16 = [](int value) { return static_cast<std::int16_t>(value); };
    xcb_shm_put_image(connection_.get(), window_, gc_, u16(width_), u16(height_), u16(area.x), u16(area.y),
                      u16(area.width), u16(area.height), i16(area.x), i16(area.y), depth_,
                      XCB_IMAGE_FORMAT_Z_PIXMAP, last ? 1 : 0, shared_.segment(), 0);
    serverReads_ = serverReads_ || last;
}

void X11Image::showSent(const Area& area)
{
    const std::size_t rowBytes = static_cast<std::size_t>(area.width) * kPixelBytes;
    const int rowsAtOnce = std::max(1, kPieceBytes / static_cast<int>(rowBytes));
    for (int row = 0; row < area.height; row += rowsAtOnce) {
        const int rows = std::min(rowsAtOnce, area.height - row);
        piece_.resize(rowBytes * static_cast<std::size_t>(rows));
        for (int i = 0; i < rows; ++i) {
            const std::size_t pixel = static_cast<std::size_t>(area.y + row + i) * width_ + area.x;
            std::memcpy(&piece_[rowBytes * static_cast<std::size_t>(i)], &own_[pixel * kPixelBytes],
                        rowBytes);
        }
        xcb_put_image(connection_.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, window_, gc_,
                      static_cast<std::uint16_t>(area.width), static_cast<std::uint16_t>(rows),
                      static_cast<std::int16_t>(area.x), static_cast<std::int16_t>(area.y + row), 0, depth_,
                      static_cast<std::uint32_t>(piece_.size()), piece_.data());
    }
}

} // namespace velmora::Qorvane
