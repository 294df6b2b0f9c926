#include "editor/engine/toolkit/draw/picture.h"

#include "editor/engine/toolkit/lazy/open_toolkit.h"

#include <algorithm>
#include <array>
#include <cairo.h>
#include <cstring>
#include <map>
#include <mutex>

namespace velmora::Qorvane {
namespace {

constexpr std::array<std::uint8_t, 8> kPngSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
constexpr std::size_t kPngHead = 24; ///< signature, length and name of the first chunk, width, height
constexpr std::uint32_t kFullAlpha = 0xFF000000;

std::uint32_t bigEndian(const std::uint8_t* bytes)
{
    return std::uint32_t{bytes[0]} << 24 | std::uint32_t{bytes[1]} << 16 | std::uint32_t{bytes[2]} << 8 |
           bytes[3];
}

cairo_status_t readBytes(void* closure, unsigned char* into, unsigned int count)
{
    auto& rest = *static_cast<std::span<const std::uint8_t>*>(closure);
    if (count > rest.size()) return CAIRO_STATUS_READ_ERROR;
    std::memcpy(into, rest.data(), count);
    rest = rest.subspan(count);
    return CAIRO_STATUS_SUCCESS;
}

/// A surface whose pixels are of 32 bits with alpha; takes the image over.
cairo_surface_t* withAlpha(cairo_surface_t* image)
{
    if (cairo_image_surface_get_format(image) == CAIRO_FORMAT_ARGB32) return image;
    cairo_surface_t* const copy = cairo_image_surface_create(
        CAIRO_FORMAT_ARGB32, cairo_image_surface_get_width(image), cairo_image_surface_get_height(image));
    cairo_t* const cr = cairo_create(copy);
    cairo_set_source_surface(cr, image, 0, 0);
    cairo_paint(cr);
    cairo_destroy(cr);
    cairo_surface_destroy(image);
    return copy;
}

std::uint8_t straight(std::uint32_t premultiplied, std::uint32_t alpha)
{
    return static_cast<std::uint8_t>(std::min(255u, (premultiplied * 255 + alpha / 2) / alpha));
}

/// All four parts of a pixel times a share, rounded, two in a multiplication. @range share 0..255
std::uint32_t faded(std::uint32_t pixel, std::uint32_t share)
{
    constexpr std::uint32_t kPair = 0x00FF00FF, kHalf = 0x00800080;
    std::uint32_t low = (pixel & kPair) * share + kHalf;
    std::uint32_t high = (pixel >> 8 & kPair) * share + kHalf;
    low = (low + (low >> 8 & kPair)) >> 8 & kPair;
    high = (high + (high >> 8 & kPair)) & ~kPair;
    return low | high;
}

std::uint32_t premultiplied(std::uint32_t level, std::uint32_t alpha)
{
    return (level * alpha + 127) / 255;
}

} // namespace

std::unique_ptr<Picture> Picture::blank(PictureSize size)
{
    if (!openToolkit()) return nullptr;
    cairo_surface_t* const image = cairo_image_surface_create(CAIRO_FORMAT_ARGB32, size.width, size.height);
    if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(image);
        return nullptr;
    }
    return std::unique_ptr<Picture>(new Picture(image));
}

std::unique_ptr<Picture> Picture::decode(std::span<const std::uint8_t> png)
{
    if (!sizeOf(png) || !openToolkit()) return nullptr;
    cairo_surface_t* image = cairo_image_surface_create_from_png_stream(readBytes, &png);
    if (cairo_surface_status(image) == CAIRO_STATUS_SUCCESS) image = withAlpha(image);
    if (cairo_surface_status(image) != CAIRO_STATUS_SUCCESS) {
        cairo_surface_destroy(image);
        return nullptr;
    }
    return std::unique_ptr<Picture>(new Picture(image));
}

std::optional<PictureSize> Picture::sizeOf(std::span<const std::uint8_t> png)
{
    if (png.size() < kPngHead || !std::ranges::equal(png.first(kPngSignature.size()), kPngSignature))
        return {};
    const std::uint32_t width = bigEndian(&png[16]);
    const std::uint32_t height = bigEndian(&png[20]);
    if (width < 1 || height < 1 || width > kMaxSide || height > kMaxSide) return {};
    return PictureSize{static_cast<int>(width), static_cast<int>(height)};
}

Picture::Picture(cairo_surface_t* image)
    : surface(image),
      size{cairo_image_surface_get_width(image), cairo_image_surface_get_height(image)},
      stride(cairo_image_surface_get_stride(image)),
      bytes(cairo_image_surface_get_data(image)),
      opaque(hasOnlyFullAlpha())
{
}

Picture::~Picture()
{
    cairo_surface_destroy(surface);
}

std::unique_ptr<Picture> Picture::copy() const
{
    auto twin = blank(size);
    if (!twin) return nullptr;
    std::memcpy(twin->bytes, bytes, static_cast<std::size_t>(stride) * size.height);
    twin->opaque = opaque;
    return twin;
}

Rgba Picture::colorAt(int x, int y) const
{
    const std::uint32_t pixel = *pixelAt(x, y);
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 0) return {0, 0, 0, 0};
    return {straight(pixel >> 16 & 0xFF, alpha), straight(pixel >> 8 & 0xFF, alpha),
            straight(pixel & 0xFF, alpha), static_cast<std::uint8_t>(alpha)};
}

void Picture::setColorAt(int x, int y, Rgba colour)
{
    *pixelAt(x, y) = std::uint32_t{colour.alpha} << 24 | premultiplied(colour.red, colour.alpha) << 16 |
                     premultiplied(colour.green, colour.alpha) << 8 |
                     premultiplied(colour.blue, colour.alpha);
    if (colour.alpha != 255) opaque = false;
}

cairo_surface_t* Picture::part(int left, int top, int partWidth, int partHeight) const
{
    return cairo_image_surface_create_for_data(reinterpret_cast<unsigned char*>(pixelAt(left, top)),
                                               opaque ? CAIRO_FORMAT_RGB24 : CAIRO_FORMAT_ARGB32, partWidth,
                                               partHeight, stride);
}

void Picture::layPart(int left, int top, int partWidth, int partHeight, std::uint8_t* to, int toStride) const
{
    const auto pixels = static_cast<std::size_t>(partWidth);
    for (int row = 0; row < partHeight; ++row) {
        const std::uint32_t* const from = pixelAt(left, top + row);
        auto* const over = reinterpret_cast<std::uint32_t*>(to + static_cast<std::ptrdiff_t>(row) * toStride);
        if (opaque)
            std::memcpy(over, from, pixels * sizeof *from);
        else
            for (std::size_t i = 0; i < pixels; ++i)
                over[i] = from[i] + faded(over[i], 255 - (from[i] >> 24));
    }
}

bool Picture::hasOnlyFullAlpha() const
{
    for (int y = 0; y < size.height; ++y) {
        std::uint32_t common = kFullAlpha;
        for (const std::uint32_t pixel : std::span(pixelAt(0, y), static_cast<std::size_t>(size.width)))
            common &= pixel;
        if (common != kFullAlpha) return false;
    }
    return true;
}

std::uint32_t* Picture::pixelAt(int x, int y) const
{
    return reinterpret_cast<std::uint32_t*>(bytes + static_cast<std::ptrdiff_t>(y) * stride) + x;
}

Picture* sharedPicture(std::span<const std::uint8_t> png)
{
    static std::mutex mutex;
    static std::map<const std::uint8_t*, std::unique_ptr<Picture>> pictures;
    const std::scoped_lock lock(mutex);
    auto place = pictures.find(png.data());
    if (place == pictures.end()) place = pictures.emplace(png.data(), Picture::decode(png)).first;
    return place->second.get();
}

} // namespace velmora::Qorvane
