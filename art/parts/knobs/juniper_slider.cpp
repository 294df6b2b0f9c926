#include "art/parts/knobs/juniper_slider.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"

#include <cmath>

namespace velmora::art {
namespace {

// Middle of the slot, and of the cap at its highest and lowest, in a frame.
constexpr double kSlot = 12;
constexpr double kTop = 18;
constexpr double kBottom = 100;

constexpr double kWidth = 22;
constexpr double kHeight = 14;
constexpr Colour kLine = hex(0x1f5546);

void drawCap(cairo_t* cr, double y)
{
    const double left = kSlot - kWidth / 2;
    const double top = y - kHeight / 2;
    drawSoftRect(cr, left + 2, top + 3, kWidth, kHeight - 1, 2, 3, 0.5);
    useLinear(cr, 0, top, 0, top + kHeight,
              {{0.0, hex(0xffffff)},
               {0.2, hex(0xd5dbd7)},
               {0.47, hex(0x9aa49f)},
               {0.53, hex(0x6d7772)},
               {0.85, hex(0xaab3ae)},
               {1.0, hex(0x5c6661)}});
    fillRoundRect(cr, left, top, kWidth, kHeight, 2);
    useColour(cr, kWhite, 0.35);
    fillRect(cr, left + 1, top + 2, 1, kHeight - 4);
    useColour(cr, kBlack, 0.22);
    fillRect(cr, left + kWidth - 2, top + 2, 1, kHeight - 4);
    useColour(cr, kLine);
    fillRect(cr, left, y - 1, kWidth, 2);
    useColour(cr, kBlack, 0.55);
    strokeRoundRect(cr, 0.7, left, top, kWidth, kHeight, 2);
}

} // namespace

void drawJuniperSlider(cairo_t* cr)
{
    drawFilm(cr, kJuniperSliderFilm, [](cairo_t* frame, double position) {
        drawCap(frame, std::round(kBottom + (kTop - kBottom) * position));
    });
}

} // namespace velmora::art
