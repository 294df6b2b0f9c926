#include "art/parts/switches/fader.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"

namespace velmora::art {
namespace {

// A dark groove with its lit lower lip.
void drawRidge(cairo_t* cr, double x0, double x1, double y)
{
    drawLine(cr, x0, y, x1, y, 1.1, kBlack, 0.55);
    drawLine(cr, x0, y + 1.1, x1, y + 1.1, 0.8, kWhite, 0.2);
}

} // namespace

void drawFaderCap38x92(cairo_t* cr)
{
    constexpr double kCentre = 46;
    constexpr double kTop = kCentre - 26;
    constexpr double kBottom = kCentre + 26;

    drawSoftRect(cr, 5, kCentre - 16, 29, 50, 4, 4, 0.4); // falls far below, as the cap stands high
    drawSoftRect(cr, 4, kCentre - 21, 31, 50, 4, 2.5, 0.45);
    useLinear(cr, 0, kTop, 0, kBottom,
              {{0, hex(0x9da1a5)},
               {0.05, hex(0x5a5e62)},
               {0.36, hex(0x2b2d30)},
               {0.46, hex(0x151618)},
               {0.5, hex(0x0b0c0d)},
               {0.54, hex(0x26282b)},
               {0.64, hex(0x3a3d41)},
               {0.94, hex(0x6a6e73)},
               {1, hex(0x1a1b1d)}});
    fillRoundRect(cr, 2, kTop, 34, 52, 3);
    for (int ridge = 0; ridge < 4; ++ridge) {
        drawRidge(cr, 5, 33, kCentre - 9 - 4 * ridge);
        drawRidge(cr, 5, 33, kCentre + 9 + 4 * ridge);
    }
    useColour(cr, kWhite);
    fillRect(cr, 2, kCentre - 1, 34, 2);
    // The flanks slope away from the lamp on the right.
    useLinear(cr, 2, 0, 36, 0, {{0, kWhite, 0.14}, {0.12, kWhite, 0}, {0.86, kBlack, 0}, {1, kBlack, 0.34}});
    fillRoundRect(cr, 2, kTop, 34, 52, 3);
    useLinear(cr, 0, kTop, 0, kBottom, {{0, kWhite, 0.65}, {0.3, kWhite, 0.12}, {1, kBlack, 0.6}});
    strokeRoundRect(cr, 0.9, 2.5, kTop + 0.5, 33, 51, 2.6);
}

void drawSliderCap34x34(cairo_t* cr)
{
    drawSoftRect(cr, 5.5, 11, 24, 14.5, 2, 3.5, 0.6);
    useLinear(cr, 0, 9, 0, 25,
              {{0, hex(0x7a746b)},
               {0.2, hex(0x4b4741)},
               {0.46, hex(0x2c2925)},
               {0.54, hex(0x191714)},
               {0.85, hex(0x37332e)},
               {1, hex(0x0e0d0b)}});
    fillRoundRect(cr, 5, 9, 24, 16, 2);
    for (const double y : {11.8, 13.6, 20.4, 22.2}) drawLine(cr, 7, y, 27, y, 0.8, kBlack, 0.55);
    useColour(cr, hex(0xff9f2e));
    fillRect(cr, 5.5, 16, 23, 2);
    useColour(cr, kBlack, 0.7);
    strokeRoundRect(cr, 0.8, 5, 9, 24, 16, 2);
    drawLine(cr, 6, 9.9, 28, 9.9, 0.8, kWhite, 0.4);
}

} // namespace velmora::art
