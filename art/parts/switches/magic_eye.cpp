#include "art/parts/switches/magic_eye.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"

#include <array>
#include <numbers>

namespace velmora::art {
namespace {

constexpr double kCentre = 33;
constexpr double kBezelRadius = 31.5;
constexpr double kGlassRadius = 27.5;
constexpr double kTargetRadius = 26.5;

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

/// Layers of light, from the soft fringe to the full glow: how much narrower than the dark sector's
/// edge they keep, in degrees, and how strong they are.
struct Fringe {
    double degrees;
    double alpha;
};
constexpr std::array<Fringe, 3> kFringes{{{7.5, 0.12}, {3.75, 0.12}, {0, 1}}};

void drawGlow(cairo_t* cr, double halfSector, const Fringe& fringe)
{
    const double gap = halfSector - fringe.degrees;
    useRadial(cr, kCentre, kCentre, 6, kCentre, kCentre, 27,
              {{0, hex(0x1d8a4c), fringe.alpha},
               {0.35, hex(0x37d67a), fringe.alpha},
               {0.75, hex(0x8dffb0), fringe.alpha},
               {1, hex(0x2fb868), fringe.alpha}});
    cairo_move_to(cr, kCentre, kCentre);
    cairo_arc(cr, kCentre, kCentre, 27, radians(90 + gap), radians(450 - gap));
    cairo_close_path(cr);
    cairo_fill(cr);
}

void drawChromeRing(cairo_t* cr)
{
    cairo_save(cr);
    addCircle(cr, kCentre, kCentre, kBezelRadius + 2);
    addCircle(cr, kCentre, kCentre, kGlassRadius);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(cr);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
    drawSoftDisc(cr, kCentre + 0.3, kCentre + 0.5, 32.5, 0.6, 0.9);
    fillConic(cr, kCentre, kCentre, kBezelRadius,
              {{0, hex(0x8f9296)},
               {0.125, hex(0x4a4d50)},
               {0.3, hex(0xb2b5b8)},
               {0.375, hex(0x54575a)},
               {0.625, hex(0x3c3f42)},
               {0.8, hex(0x8d9093)},
               {0.875, hex(0xf0f1f2)},
               {0.95, hex(0xb0b3b6)},
               {1, hex(0x8f9296)}});
    drawRim(cr, kCentre, kCentre, kBezelRadius, {1, 0.7, 0.6});
    cairo_restore(cr);
    // The inner slope of the ring, turned against the light.
    useLinear(cr, 12, 12, 54, 54, {{0, kBlack, 0.85}, {0.55, kBlack, 0.35}, {1, kWhite, 0.3}});
    strokeCircle(cr, 1.1, kCentre, kCentre, kGlassRadius + 0.5);
    useColour(cr, kBlack, 0.8);
    strokeCircle(cr, 1.2, kCentre, kCentre, kGlassRadius - 0.4);
}

// A soft highlight, flattened, in the upper half.
void drawGlass(cairo_t* cr)
{
    cairo_save(cr);
    addCircle(cr, kCentre, kCentre, kGlassRadius - 0.8);
    cairo_clip(cr);
    cairo_save(cr);
    cairo_translate(cr, kCentre, kCentre - 15);
    cairo_scale(cr, 1, 0.62);
    addCircle(cr, 0, 0, 21);
    cairo_restore(cr);
    useRadial(cr, kCentre - 8, kCentre - 26, 2, kCentre - 4, kCentre - 22, 30,
              {{0, kWhite, 0.5}, {0.7, kWhite, 0.06}, {1, kWhite, 0}});
    cairo_fill(cr);
    cairo_restore(cr);
}

} // namespace

void drawEyeTarget66x66(cairo_t* cr, double value)
{
    const double halfSector = 62 * (1 - value) + 3;

    useColour(cr, hex(0x020403));
    fillCircle(cr, kCentre, kCentre, kGlassRadius + 0.5);
    cairo_save(cr);
    addCircle(cr, kCentre, kCentre, kTargetRadius);
    cairo_clip(cr);
    useColour(cr, hex(0x0a2a19));
    cairo_paint(cr);
    for (const Fringe& fringe : kFringes) drawGlow(cr, halfSector, fringe);
    for (int spoke = 0; spoke < 60; ++spoke) {
        const Spot from = onCircle(kCentre, kCentre, 10, spoke * 6);
        const Spot to = onCircle(kCentre, kCentre, 26, spoke * 6);
        drawLine(cr, from.x, from.y, to.x, to.y, 0.5, hex(0x003018), 0.22);
    }
    useRadial(cr, kCentre, kCentre, 18, kCentre, kCentre, 27, {{0, kBlack, 0}, {1, kBlack, 0.55}});
    cairo_paint(cr);
    cairo_restore(cr);
}

void drawEyeFront66x66(cairo_t* cr)
{
    drawSoftDisc(cr, kCentre + 1, kCentre + 1.6, 11.5, 0.5, 0.7);
    fillShadedDisc(cr, kCentre, kCentre, 9.2, hex(0x3a3d3c), hex(0x050606));
    drawRim(cr, kCentre, kCentre, 9.2, {1, 0.35, 0.4});
    useColour(cr, hex(0x0c0e0d));
    fillCircle(cr, kCentre, kCentre, 6.5);
    drawGlass(cr);
    drawChromeRing(cr);
}

} // namespace velmora::art
