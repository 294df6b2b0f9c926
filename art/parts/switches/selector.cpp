#include "art/parts/switches/selector.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/icon.h"
#include "art/parts/relief.h"

#include <array>

namespace velmora::art {
namespace {

constexpr std::array kShapes{Icon::LowShelf, Icon::Bell, Icon::Peak, Icon::Notch, Icon::HighShelf};
constexpr double kPitch = 25.2;
constexpr double kTop = 10;
constexpr double kKeyWidth = 23.6;
constexpr double kKeyHeight = 22;

void drawKey(cairo_t* cr, double x, Icon shape, bool chosen)
{
    if (chosen) {
        useLinear(cr, 0, kTop, 0, kTop + kKeyHeight, {{0, hex(0xdfe5e9)}, {1, hex(0x8e989f)}});
    } else {
        useLinear(cr, 0, kTop, 0, kTop + kKeyHeight,
                  {{0, hex(0x4d5257)}, {0.5, hex(0x393d41)}, {1, hex(0x26292c)}});
    }
    fillRoundRect(cr, x, kTop, kKeyWidth, kKeyHeight, 2.4);
    useLinear(cr, 0, kTop, 0, kTop + kKeyHeight,
              {{0, kWhite, chosen ? 0.75 : 0.32}, {1, kWhite, chosen ? 0.3 : 0.06}});
    strokeRoundRect(cr, 0.8, x + 0.4, kTop + 0.4, kKeyWidth - 0.8, kKeyHeight - 0.8, 2.2);
    drawIcon(cr, shape, x + kKeyWidth / 2, kTop + kKeyHeight / 2, 14, 9, hex(chosen ? 0x12161a : 0xb9c0c6),
             {.alpha = chosen ? 1.0 : 0.8, .lineWidth = 1.5});
}

} // namespace

void drawShapeKeys130x42(cairo_t* cr, int chosen)
{
    useColour(cr, hex(0x0b0c0d));
    fillRoundRect(cr, 1, 8, 128, 26, 4);
    drawLip(cr, 0.5, 7.5, 129, 27, 4.4, 0.8, 0.22);
    for (std::size_t key = 0; key < kShapes.size(); ++key) {
        const double centre = 2 + kPitch * (static_cast<double>(key) + 0.5);
        drawKey(cr, centre - kKeyWidth / 2, kShapes[key], static_cast<int>(key) == chosen);
    }
}

} // namespace velmora::art
