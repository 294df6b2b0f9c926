#pragma once

#include "art/pack/surface.h"
#include "art/resource_list.h"
#include "tests/art/raster.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>

namespace velmora::art {

struct Pixel {
    int red, green, blue, alpha; // premultiplied

    int brightness() const { return red + green + blue; }
};

/// A picture drawn for looking at its pixels.
class PictureProbe {
public:
    /// @param scale pixels of the surface to one of the picture
    explicit PictureProbe(std::uint32_t id, int scale = 1)
        : scale_(scale), surface_(drawResource(find(id), scale)), raster_(surface_.get())
    {
    }

    int width() const { return raster_.width; }
    int height() const { return raster_.height; }

    Pixel at(int x, int y) const
    {
        const std::uint32_t value = raster_.at(x, y);
        const auto channel = [value](int shift) { return static_cast<int>((value >> shift) & 0xff); };
        return {channel(16), channel(8), channel(0), channel(24)};
    }
    /// As the eye weighs the colours. @return 0..1
    double brightness(int x, int y) const
    {
        const Pixel pixel = at(x, y);
        return (pixel.blue * 0.07 + pixel.green * 0.72 + pixel.red * 0.21) / 255.0;
    }
    /// The same at a place of the picture, whatever its scale.
    double brightnessAt(double x, double y) const
    {
        return brightness(static_cast<int>(x * scale_), static_cast<int>(y * scale_));
    }

    /// Mean difference of two fields of the picture, 0..255.
    double difference(int x0, int y0, int x1, int y1, int columns, int rows) const
    {
        double sum = 0.0;
        for (int y = 0; y < rows; ++y) {
            for (int x = 0; x < columns; ++x) {
                const Pixel a = at(x0 + x, y0 + y);
                const Pixel b = at(x1 + x, y1 + y);
                sum += std::abs(a.red - b.red) + std::abs(a.green - b.green) + std::abs(a.blue - b.blue) +
                       std::abs(a.alpha - b.alpha);
            }
        }
        return sum / (4.0 * columns * rows);
    }

private:
    static Resource find(std::uint32_t id)
    {
        const std::vector<Resource> resources = allResources();
        const auto row = std::ranges::find(resources, id, &Resource::id);
        if (row == resources.end()) throw std::invalid_argument("no such picture");
        return *row;
    }

    int scale_;
    SurfacePtr surface_;
    Raster raster_;
};

} // namespace velmora::art
