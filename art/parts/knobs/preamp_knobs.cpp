// The preamps' own knobs: Bakelite dome, toothed skirt with a coloured cap, aluminium fin.

#include "art/paint/gradient.h"
#include "art/parts/knobs/dress.h"
#include "art/parts/knobs/families.h"
#include "art/parts/knobs/flutes.h"
#include "art/parts/knobs/ribs.h"
#include "art/parts/knobs/shadow.h"
#include "art/parts/relief.h"

#include <numbers>

namespace velmora::art {
namespace {

constexpr double kDegree = std::numbers::pi / 180.0;

void fullShadow(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.0);
}

void domeBody(cairo_t* cr, const Knob& knob, double degrees)
{
    constexpr int kScallops = 14;
    const Flutes flutes{.radius = knob.radius,
                        .inner = 0.66 * knob.radius,
                        .count = kScallops,
                        .depth = 0.045,
                        .shoulder = 0.66,
                        .steep = 66,
                        .relief = 2.2,
                        .shine = 0.9,
                        .shade = 0.28,
                        .groove = 0.42,
                        .crest = 0.20};
    const Slope slope{hex(0x5e4a3e), hex(0x33261f), hex(0x120c09)};
    drawFluted(cr, flutes, slope, degrees + 180.0 / kScallops, hex(0xd9b99d));
}

void domeTop(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    castOnBody(cr, knob, 0.86 * r, 0.55, 0.70);
    useRadial(cr, -0.26 * r, -0.30 * r, 0.04 * r, 0, 0, 0.72 * r,
              {{0.0, hex(0x8a6e5d)}, {0.28, hex(0x573f33)}, {0.65, hex(0x2a1d17)}, {1.0, hex(0x0e0907)}});
    fillCircle(cr, 0, 0, 0.70 * r);

    constexpr Colour kGlint = hex(0xfff4e4);
    useRadial(cr, -0.25 * r, -0.30 * r, 0, -0.25 * r, -0.30 * r, 0.26 * r,
              {{0.0, kGlint, 0.80}, {0.35, kGlint, 0.32}, {1.0, kGlint, 0.0}});
    fillCircle(cr, -0.25 * r, -0.30 * r, 0.26 * r);

    // What the panel throws back on the far side.
    constexpr Colour kBack = hex(0xcaa283);
    useRadial(cr, 0, 0, 0, 0.5 * r, 0.5 * r, 0.6 * r, {{0.0, kBack, 0.45}, {1.0, kBack, 0.0}});
    cairo_set_line_width(cr, 0.07 * r);
    cairo_new_path(cr);
    cairo_arc(cr, 0, 0, 0.62 * r, 10 * kDegree, 80 * kDegree);
    cairo_stroke(cr);
}

void domePointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.34 * r, .to = 0.93 * r, .lineWidth = 0.10 * r, .colour = hex(0xfbf2dc)},
                degrees);
}

constexpr int kTeeth = 30;

// A tooth takes half of its pitch, its flanks a quarter each.
void addToothedOutline(cairo_t* cr, double radius, double degrees)
{
    cairo_new_sub_path(cr);
    for (int corner = 0; corner < 4 * kTeeth; ++corner) {
        const double reach = corner % 4 < 2 ? radius : 0.935 * radius;
        const Spot spot = onCircle(0, 0, reach, degrees + 360.0 * (corner - 0.5) / (4 * kTeeth));
        cairo_line_to(cr, spot.x, spot.y);
    }
    cairo_close_path(cr);
}

void toothedBody(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    const double end = 0.7 * r;
    addToothedOutline(cr, r, degrees);
    useLinear(cr, -end, -end, end, end, {{0.0, hex(0x6a7076)}, {0.5, hex(0x33373b)}, {1.0, hex(0x0d0e10)}});
    cairo_fill(cr);
    // Crests stand on the teeth, grooves between them.
    drawRibs(cr, {.inner = 0.68 * r, .outer = 0.985 * r, .count = kTeeth, .dark = 0.50, .light = 0.36},
             degrees + 180.0 / kTeeth);
}

void toothedCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    const Colour cap = knob.accent;
    fillFlatDisc(cr, 0.70 * r, hex(0x0b0c0d), 0.9);
    fillShadedDisc(cr, 0, 0, 0.655 * r, lighter(cap, 0.30), darker(cap, 0.42));
    drawRim(cr, 0, 0, 0.655 * r, {1.1, 0.6, 0.4});
    useRadial(cr, -0.12 * r, -0.14 * r, 0, 0, 0, 0.56 * r,
              {{0.0, lighter(cap, 0.12)}, {1.0, darker(cap, 0.12)}});
    fillCircle(cr, 0, 0, 0.53 * r);
}

void toothedPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.12 * r, .to = 0.94 * r, .lineWidth = 0.105 * r}, degrees);
}

void finBody(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    castShadow(cr, knob, 0.96);
    fillShadedDisc(cr, 0, 0, 0.98 * r, hex(0x43464a), hex(0x0b0c0d));
    drawRim(cr, 0, 0, 0.98 * r, {0.9, 0.4, 0.6});
    useColour(cr, kBlack, 0.55);
    fillCircle(cr, 0.5, 0.9, 0.74 * r);
    fillShadedDisc(cr, 0, 0, 0.70 * r, hex(0x9a9ea3), hex(0x4c5055));
    drawRim(cr, 0, 0, 0.70 * r, {1.0, 0.6, 0.4});
}

// A flank of the fin, which looks aside, between its two colours by the lamp.
Colour flank(double degrees)
{
    return mix(hex(0x74787d), hex(0xe2e5e8), 0.5 + 0.5 * litAt(degrees));
}

void fin(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    const double width = 0.42 * r;
    const double top = -0.92 * r;
    const double length = 1.78 * 0.92 * r;

    cairo_save(cr);
    cairo_translate(cr, 1.0, 1.8);
    cairo_rotate(cr, degrees * kDegree);
    useColour(cr, kBlack, 0.24);
    fillRoundRect(cr, -width / 2 - 0.8, top - 0.4, width + 1.6, length + 0.8, 0.45 * width);
    fillRoundRect(cr, -width / 2, top, width, length, 0.45 * width);
    cairo_restore(cr);

    cairo_save(cr);
    cairo_rotate(cr, degrees * kDegree);
    useLinear(cr, -width / 2, 0, width / 2, 0,
              {{0.0, flank(degrees - 90)},
               {0.28, hex(0xb0b4b8)},
               {0.72, hex(0xa2a6aa)},
               {1.0, flank(degrees + 90)}});
    fillRoundRect(cr, -width / 2, top, width, length, 0.42 * width);
    useLinear(cr, 0, top, 0, top + length,
              {{0.0, kWhite, 0.30 + 0.25 * litAt(degrees)}, {1.0, kWhite, 0.30 - 0.25 * litAt(degrees)}});
    strokeRoundRect(cr, 0.7, -width / 2 + 0.35, top + 0.35, width - 0.7, length - 0.7, 0.40 * width);
    useColour(cr, hex(0x101113));
    fillRoundRect(cr, -0.055 * r, top + 0.8, 0.11 * r, 0.80 * 0.92 * r, 0.05 * r);
    cairo_restore(cr);
}

constexpr Layer kDomeLayers[] = {
    {false, fullShadow}, {true, domeBody}, {false, domeTop}, {true, domePointer}};
constexpr Layer kToothedLayers[] = {
    {false, fullShadow}, {true, toothedBody}, {false, toothedCap}, {true, toothedPointer}};
constexpr Layer kFinLayers[] = {{false, finBody}, {true, fin}};

} // namespace

constinit const Family kDome{kDomeLayers};
constinit const Family kToothed{kToothedLayers};
constinit const Family kFin{kFinLayers};

} // namespace velmora::art
