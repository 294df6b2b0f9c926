#include "art/parts/switches/lever.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"

#include <numbers>

namespace velmora::art {
namespace {

constexpr double kNutRadius = 8.2;
constexpr double kWasherRadius = 5.6;
constexpr double kEyeRadius = 4.1;
constexpr double kLength = 10.5;
constexpr double kNeck = 2.0; // half widths of the bat
constexpr double kTip = 3.5;

void drawNut(cairo_t* cr, double x, double y, double size, const LeverFinish& finish)
{
    for (int side = 0; side < 6; ++side) {
        const double from = 60.0 * side + 30.0;
        const Spot a = onCircle(x, y, kNutRadius * size, from);
        const Spot b = onCircle(x, y, kNutRadius * size, from + 60.0);
        useColour(cr, mix(finish.nutDark, finish.nutLight, 0.5 + 0.5 * litAt(from + 30.0)));
        cairo_move_to(cr, x, y);
        cairo_line_to(cr, a.x, a.y);
        cairo_line_to(cr, b.x, b.y);
        cairo_close_path(cr);
        // The stroke closes the hair lines between the flanks.
        cairo_set_line_width(cr, 0.5);
        cairo_fill_preserve(cr);
        cairo_stroke(cr);
    }
    // The turned top of the nut, flat and evenly lit.
    useLinear(cr, x - 6 * size, y - 7 * size, x + 6 * size, y + 7 * size,
              {{0, finish.nutLight}, {0.5, mix(finish.nutLight, finish.nutDark, 0.5)}, {1, finish.nutDark}});
    fillCircle(cr, x, y, 6.9 * size);
    cairo_new_path(cr);
    for (int corner = 0; corner < 6; ++corner) {
        const Spot spot = onCircle(x, y, kNutRadius * size, 60.0 * corner + 30.0);
        cairo_line_to(cr, spot.x, spot.y);
    }
    cairo_close_path(cr);
    cairo_set_line_width(cr, 0.7);
    useColour(cr, kBlack, 0.4);
    cairo_stroke(cr);
}

// The outline of the bat from its neck at (x, y) to the round tip at tipY.
void addBat(cairo_t* cr, double x, double y, double tipX, double tipY, double size)
{
    constexpr double kPi = std::numbers::pi;
    const double neck = kNeck * size;
    const double tip = kTip * size;
    cairo_new_path(cr);
    cairo_move_to(cr, x - neck, y);
    cairo_line_to(cr, tipX - tip, tipY);
    if (tipY < y) {
        cairo_arc(cr, tipX, tipY, tip, kPi, 0);
    } else {
        cairo_arc_negative(cr, tipX, tipY, tip, kPi, 0);
    }
    cairo_line_to(cr, x + neck, y);
    cairo_close_path(cr);
}

void drawGlint(cairo_t* cr, double x, double y, double radius)
{
    useRadial(cr, x, y, 0, x, y, radius, {{0, kWhite, 0.95}, {1, kWhite, 0}});
    fillCircle(cr, x, y, radius);
}

void drawEndOn(cairo_t* cr, double x, double y, double size, const LeverFinish& finish)
{
    const double radius = 4.3 * size;
    drawSoftDisc(cr, x + 1.2 * size, y + 1.8 * size, radius * 1.25, 0.5, 0.6);
    fillShadedDisc(cr, x, y, radius, finish.batLight, mix(finish.batBody, finish.batDark, 0.65));
    drawGlint(cr, x - 1.2, y - 1.5, 2.4 * size);
    drawRim(cr, x, y, radius, {0.8, 0.5, 0.5});
}

} // namespace

void drawLever(cairo_t* cr, double x, double y, LeverPosition position, double size,
               const LeverFinish& finish)
{
    drawSoftDisc(cr, x + 1, y + 1.8, 10 * size, 0.5, 0.6);
    drawNut(cr, x, y, size, finish);
    fillShadedDisc(cr, x, y, kWasherRadius * size, mix(finish.nutDark, finish.nutLight, 0.25),
                   mix(finish.nutDark, finish.nutLight, 0.85));
    useColour(cr, hex(0x141414));
    fillCircle(cr, x, y, kEyeRadius * size);
    if (position == LeverPosition::Middle) {
        drawEndOn(cr, x, y, size, finish);
        return;
    }

    const double tipY = position == LeverPosition::Up ? y - kLength * size : y + kLength * size;
    const double tip = kTip * size;
    for (const double spread : {0.0, 0.6, 1.2}) { // a soft edge, wider towards the tip
        addBat(cr, x + 1.5, y + 1, x + 1.6 + spread, tipY + 1.4 + spread, size);
        useColour(cr, kBlack, 0.15);
        cairo_fill(cr);
    }
    addBat(cr, x, y, x, tipY, size);
    useLinear(cr, x - tip, 0, x + tip, 0,
              {{0, finish.batEdge},
               {0.22, finish.batLight},
               {0.5, finish.batBody},
               {0.8, mix(finish.batBody, finish.batDark, 0.62)},
               {1, finish.batDark}});
    cairo_fill_preserve(cr);
    cairo_set_line_width(cr, 0.6);
    useColour(cr, kBlack, 0.45);
    cairo_stroke(cr);
    drawGlint(cr, x - 1.0 * size, tipY - 1.1 * size, 2.4 * size);
}

} // namespace velmora::art
