#pragma once

#include "editor/engine/geometry.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>

typedef struct _cairo_surface cairo_surface_t;

namespace velmora::Qorvane {

struct PictureSize {
    int width;
    int height;
};

/// Decoded pixels: 32 bits each, premultiplied, rows one below the other.
class Picture {
public:
    static constexpr int kMaxSide = 16384;

    /// Transparent. @param size 1..`kMaxSide` @return null without memory
    static std::unique_ptr<Picture> blank(PictureSize size);
    /// @return null if it is no PNG file or the toolkit isn't there
    static std::unique_ptr<Picture> decode(std::span<const std::uint8_t> png);
    /// What the head of a PNG file tells.
    static std::optional<PictureSize> sizeOf(std::span<const std::uint8_t> png);

    ~Picture();
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;

    std::unique_ptr<Picture> copy() const;

    int width() const { return size.width; }
    int height() const { return size.height; }
    bool isOpaque() const { return opaque; }
    /// Straight alpha. The place must lie inside.
    Rgba colorAt(int x, int y) const;
    void setColorAt(int x, int y, Rgba colour);

    /// For drawing into it; the picture's.
    cairo_surface_t* target() const { return surface; }
    /// A surface of its own over a part of the pixels, which must lie inside; the caller's.
    cairo_surface_t* part(int left, int top, int partWidth, int partHeight) const;
    /// Puts pixels, which must lie inside, over others of the same form.
    void layPart(int left, int top, int partWidth, int partHeight, std::uint8_t* to, int toStride) const;

private:
    explicit Picture(cairo_surface_t* image);
    bool hasOnlyFullAlpha() const;
    std::uint32_t* pixelAt(int x, int y) const;

    cairo_surface_t* surface;
    PictureSize size;
    int stride;
    std::uint8_t* bytes;
    bool opaque;
};

/// The decoded pictures of the process, by their files' bytes.
/// @return null for a broken file; else it lives to the end of the program's code. Any thread.
Picture* sharedPicture(std::span<const std::uint8_t> png);

} // namespace velmora::Qorvane
