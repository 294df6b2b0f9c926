// Round knobs with fine ribs: the modern ones, the dynamics' and the trim knobs.

#include "art/parts/knobs/dress.h"
#include "art/parts/knobs/families.h"
#include "art/parts/knobs/ribs.h"
#include "art/parts/knobs/shadow.h"
#include "art/parts/relief.h"

#include <algorithm>

namespace velmora::art {
namespace {

void modernBody(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.0);
    fillShadedDisc(cr, 0, 0, knob.radius, hex(0x4a4d52), hex(0x070808));
}

void modernRibs(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawRibs(cr, {.inner = 0.83 * r, .outer = 0.99 * r, .count = 44, .dark = 0.50, .light = 0.35}, degrees);
}

void modernCap(cairo_t* cr, const Knob& knob, double)
{
    constexpr Colour kBright = hex(0x54585e);
    constexpr Colour kDark = hex(0x1b1d20);
    const double r = knob.radius;
    fillFlatDisc(cr, 0.84 * r, kBlack, 0.75);
    fillShadedDisc(cr, 0, 0, 0.81 * r, kBright, kDark);
    drawRim(cr, 0, 0, 0.81 * r, {1.0, 0.55, 0.35});
    fillShadedDisc(cr, 0, 0, 0.66 * r, darker(kDark, 0.05), mix(kBright, kDark, 0.45));
}

void modernPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.30 * r, .to = 0.95 * r, .lineWidth = std::max(1.6, 0.105 * r)}, degrees);
}

void dynamicsBody(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.0);
    fillShadedDisc(cr, 0, 0, knob.radius, hex(0x50555b), hex(0x060707));
}

void dynamicsRibs(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    const int count = r > 18 ? 48 : 40;
    drawRibs(cr, {.inner = 0.75 * r, .outer = 0.98 * r, .count = count, .dark = 0.45, .light = 0.30},
             degrees);
}

void dynamicsCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillFlatDisc(cr, 0.76 * r, hex(0x050606), 0.9);
    fillShadedDisc(cr, 0.71 * r, lighter(knob.accent, 0.38), knob.accent, darker(knob.accent, 0.45));
    fillFlatDisc(cr, 0.60 * r, hex(0x0c0d0e), 1.0);
    fillShadedDisc(cr, 0, 0, 0.575 * r, hex(0x24272a), hex(0x3f4449));
    drawRim(cr, 0, 0, 0.575 * r, {0.9, 0.12, 0.50});
}

void dynamicsPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.22 * r, .to = 0.95 * r, .lineWidth = std::max(1.6, 0.10 * r)}, degrees);
}

void trimBody(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.0);
    fillShadedDisc(cr, 0, 0, knob.radius, hex(0x8b8f94), hex(0x26282b));
}

void trimRibs(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawRibs(cr, {.inner = 0.78 * r, .outer = 1.0 * r, .count = 20, .dark = 0.65, .light = 0.50}, degrees);
}

void trimCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillShadedDisc(cr, 0, 0, 0.78 * r, hex(0x4a4d52), hex(0x131416));
    drawRim(cr, 0, 0, 0.78 * r, {0.8, 0.45, 0.30});
}

void trimPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.10 * r, .to = 0.88 * r, .lineWidth = 1.7}, degrees);
}

constexpr Layer kModernLayers[] = {
    {false, modernBody}, {true, modernRibs}, {false, modernCap}, {true, modernPointer}};
constexpr Layer kDynamicsLayers[] = {
    {false, dynamicsBody}, {true, dynamicsRibs}, {false, dynamicsCap}, {true, dynamicsPointer}};
constexpr Layer kTrimLayers[] = {{false, trimBody}, {true, trimRibs}, {false, trimCap}, {true, trimPointer}};

} // namespace

constinit const Family kModern{kModernLayers};
constinit const Family kDynamics{kDynamicsLayers};
constinit const Family kTrim{kTrimLayers};

} // namespace velmora::art
