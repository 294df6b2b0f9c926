// The optical limiter's knob: a flat skirt, a fluted grip on it, a spun cap.

#include "art/parts/knobs/dress.h"
#include "art/parts/knobs/families.h"
#include "art/parts/knobs/flutes.h"
#include "art/parts/knobs/shadow.h"
#include "art/parts/relief.h"

#include <algorithm>

namespace velmora::art {
namespace {

constexpr Ray kNickel[] = {{0.0, hex(0xc3c4be)},   {0.125, hex(0x92948e)}, {0.30, hex(0xdfe0da)},
                           {0.375, hex(0x989a94)}, {0.55, hex(0xb0b2ac)},  {0.625, hex(0x83857f)},
                           {0.80, hex(0xbdbeb8)},  {0.875, hex(0xffffff)}, {0.95, hex(0xd2d3cd)},
                           {1.0, hex(0xc3c4be)}};

void skirt(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    castShadow(cr, knob, 0.95);
    fillShadedDisc(cr, r, hex(0x4c4f4c), hex(0x1e201e), hex(0x0a0b0a));
    drawRim(cr, 0, 0, r, {1.1, 0.45, 0.50});
    castOnBody(cr, knob, 0.92 * r, 0.60, 0.75);
}

void grip(cairo_t* cr, const Knob& knob, double degrees)
{
    constexpr int kCount = 20;
    const Flutes flutes{.radius = 0.80 * knob.radius,
                        .inner = 0.52 * knob.radius,
                        .count = kCount,
                        .depth = 0.06,
                        .shoulder = 0.70,
                        .steep = 58,
                        .relief = 1.3,
                        .shine = 1.2,
                        .shade = 0.28,
                        .groove = 0.42,
                        .crest = 0.14,
                        .edge = 0.4};
    const Slope slope{hex(0x5a5d59), hex(0x2b2d2a), hex(0x0e0f0e), 0.69};
    drawFluted(cr, flutes, slope, degrees + 180.0 / kCount);
}

void cap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillFlatDisc(cr, 0.565 * r, hex(0x060706), 0.9);
    drawSpunDisc(cr, 0.535 * r, kNickel, 2.9, 0.09);
    drawRim(cr, 0, 0, 0.535 * r, {1.1, 0.8, 0.5});
}

void pointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr,
                {.from = 0.10 * r,
                 .to = 0.48 * r,
                 .lineWidth = std::max(1.7, 0.06 * r),
                 .colour = hex(0x20221f),
                 .shadow = 0},
                degrees);
    drawPointer(cr,
                {.from = 0.84 * r,
                 .to = 0.95 * r,
                 .lineWidth = std::max(2.0, 0.075 * r),
                 .colour = hex(0xfffdf2),
                 .shadow = 0.4},
                degrees);
}

constexpr Layer kLayers[] = {{false, skirt}, {true, grip}, {false, cap}, {true, pointer}};

} // namespace

constinit const Family kOptoLimiter{kLayers};

} // namespace velmora::art
