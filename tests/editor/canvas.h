#pragma once

#include "editor/engine/toolkit/draw/draw_context.h"

#include <cstring>
#include <vector>

namespace velmora::test {

/// Pixels to draw into and to look at.
class Canvas {
public:
    Canvas(int sizeX, int sizeY, double zoom = 1.0)
        : width(sizeX),
          height(sizeY),
          bytes(static_cast<std::size_t>(sizeX) * sizeY * 4),
          context({bytes.data(), sizeX, sizeY, sizeX * 4}, zoom)
    {
    }

    /// Alpha in the topmost byte, premultiplied.
    std::uint32_t at(int x, int y)
    {
        context.endDraw();
        std::uint32_t pixel = 0;
        std::memcpy(&pixel, bytes.data() + (static_cast<std::size_t>(y) * width + x) * 4, 4);
        return pixel;
    }

    /// Around all pixels that aren't blank.
    Rect inked()
    {
        Rect bounds;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
                if (at(x, y) != 0) bounds = boundsOf(bounds, rectAt(x, y, 1, 1));
        return bounds;
    }

    /// How many pixels' worth is covered.
    double coverage()
    {
        double sum = 0.0;
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x) sum += (at(x, y) >> 24) / 255.0;
        return sum;
    }

private:
    int width;
    int height;
    std::vector<std::uint8_t> bytes;

public:
    Qorvane::CQORDrawContext context;
};

inline constexpr std::uint32_t kBlankPixel = 0x00000000;
inline constexpr std::uint32_t kRedPixel = 0xFFFF0000;
inline constexpr std::uint32_t kBluePixel = 0xFF0000FF;
inline constexpr Rgba kRed{255, 0, 0, 255};
inline constexpr Rgba kBlue{0, 0, 255, 255};

} // namespace velmora::test
