#include "art/chassis/chassis.h"
#include "art/chassis/metal.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"

#include <numbers>

// Both repeat without a seam: the strip below the modules to the side, the one of the mini view downwards.
namespace velmora::art {
namespace {

constexpr double kWidth = 152;
constexpr Colour kUpper = hex(0x5a1512);
constexpr Colour kMiddle = hex(0x3d0d0b);
constexpr Colour kLower = hex(0x240706);
constexpr double kEdging = 6; ///< width of the diagonal edging

/// Diagonal stripes across a band that lies along x. @param period along the band
void drawEdging(cairo_t* cr, double length, double y, double period)
{
    cairo_save(cr);
    cairo_rectangle(cr, 0, y, length, kEdging);
    cairo_clip(cr);
    useColour(cr, hex(0x160605));
    cairo_paint(cr);
    useColour(cr, kWarningRed, 0.75);
    const double stripe = period / 2;
    for (double x = -2 * period; x < length + period; x += period) {
        cairo_move_to(cr, x, y + kEdging);
        cairo_line_to(cr, x + kEdging, y);
        cairo_line_to(cr, x + kEdging + stripe, y);
        cairo_line_to(cr, x + stripe, y + kEdging);
        cairo_close_path(cr);
    }
    cairo_fill(cr);
    cairo_restore(cr);
    drawLine(cr, 0, y - 0.5, length, y - 0.5, 1, kBlack, 0.45);
    drawLine(cr, 0, y + kEdging + 0.5, length, y + kEdging + 0.5, 1, kWhite, 0.09);
}

} // namespace

void drawFootWarning(cairo_t* cr)
{
    constexpr double kHeight = 68;
    useLinear(cr, 0, 0, 0, kHeight, {{0, kUpper}, {0.5, kMiddle}, {1, kLower}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, Grain::BrushedAcross, 0, 0, kWidth, kHeight, 0.04, 71);
    drawEdging(cr, kWidth, 4, kWidth / 12);
    drawEdging(cr, kWidth, 58, kWidth / 12);
    drawLine(cr, 0, 0.5, kWidth, 0.5, 1, kWhite, 0.25);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kBlack, 0.7);
}

void drawMiniWarning(cairo_t* cr)
{
    constexpr double kHeight = 67;
    useLinear(cr, 0, 0, kWidth, 0, {{0, kUpper}, {0.5, kMiddle}, {1, kLower}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, Grain::BrushedAcross, 0, 0, kWidth, kHeight, 0.04, 71);
    // The same edging, turned to run down both sides.
    cairo_save(cr);
    cairo_translate(cr, kWidth, 0);
    cairo_rotate(cr, std::numbers::pi / 2);
    drawEdging(cr, kHeight, 4, kHeight / 5);
    drawEdging(cr, kHeight, kWidth - 4 - kEdging, kHeight / 5);
    cairo_restore(cr);
    drawLine(cr, 0.5, 0, 0.5, kHeight, 1, kWhite, 0.25);
    drawLine(cr, kWidth - 0.5, 0, kWidth - 0.5, kHeight, 1, kBlack, 0.7);
}

} // namespace velmora::art
