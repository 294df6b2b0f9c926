// The three compressors' knobs, each in two sizes: fluted Bakelite with brass, ribbed steel with aluminium,
// lobed rubber with an anodised cap.

#include "art/parts/knobs/dress.h"
#include "art/parts/knobs/families.h"
#include "art/parts/knobs/flutes.h"
#include "art/parts/knobs/ribs.h"
#include "art/parts/knobs/shadow.h"
#include "art/parts/relief.h"

#include <algorithm>

namespace velmora::art {
namespace {

void fullShadow(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.0);
}

constexpr Ray kBrass[] = {{0.0, hex(0xb79a5e)},   {0.125, hex(0x8d713c)}, {0.30, hex(0xd8c08a)},
                          {0.375, hex(0x8f7440)}, {0.55, hex(0xa98b4f)},  {0.625, hex(0x7f6433)},
                          {0.80, hex(0xb99a5c)},  {0.875, hex(0xfff0c8)}, {0.95, hex(0xcdb377)},
                          {1.0, hex(0xb79a5e)}};

constexpr Ray kAluminium[] = {{0.0, hex(0xb9bcbf)},   {0.125, hex(0x8b8f93)}, {0.30, hex(0xdfe1e3)},
                              {0.375, hex(0x94989c)}, {0.55, hex(0xaaadb1)},  {0.625, hex(0x7d8185)},
                              {0.80, hex(0xb3b6b9)},  {0.875, hex(0xffffff)}, {0.95, hex(0xcccfd2)},
                              {1.0, hex(0xb9bcbf)}};

void optoBody(cairo_t* cr, const Knob& knob, double degrees)
{
    constexpr int kCount = 24;
    const Flutes flutes{.radius = knob.radius,
                        .inner = 0.66 * knob.radius,
                        .count = kCount,
                        .depth = 0.03,
                        .shoulder = 0.66,
                        .steep = 58,
                        .relief = 2.4,
                        .shine = 1.1,
                        .shade = 0.28,
                        .groove = 0.50,
                        .crest = 0.20};
    const Slope slope{hex(0x5b4c40), hex(0x29211b), hex(0x0c0907)};
    drawFluted(cr, flutes, slope, degrees + 180.0 / kCount, hex(0xe8cfae));
}

void optoCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillFlatDisc(cr, 0.70 * r, hex(0x0a0705), 0.85);
    drawSpunDisc(cr, 0.66 * r, kBrass, 2.9, 0.11);
    drawRim(cr, 0, 0, 0.66 * r, {1.0, 0.75, 0.55});
}

void optoPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(
        cr, {.from = 0.10 * r, .to = 0.58 * r, .lineWidth = 0.085 * r, .colour = hex(0x2a1c0d), .shadow = 0},
        degrees);
    drawPointer(
        cr, {.from = 0.76 * r, .to = 0.93 * r, .lineWidth = std::max(1.7, 0.10 * r), .colour = hex(0xfff6e2)},
        degrees);
}

void fetBody(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.15);
    fillShadedDisc(cr, 0, 0, knob.radius, hex(0x6d7074), hex(0x17181a));
}

void fetRibs(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    const int count = r > 20 ? 56 : 44;
    drawRibs(cr, {.inner = 0.85 * r, .outer = 0.99 * r, .count = count, .dark = 0.60, .light = 0.60},
             degrees);
}

void fetCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillFlatDisc(cr, 0.875 * r, kBlack, 0.55);
    drawSpunDisc(cr, 0.85 * r, kAluminium, 2.9, 0.08);
    drawRim(cr, 0, 0, 0.85 * r, {1.1, 0.9, 0.6});
}

void fetPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr,
                {.from = 0.30 * r,
                 .to = 0.81 * r,
                 .lineWidth = std::max(1.9, 0.10 * r),
                 .colour = hex(0x0d0e10),
                 .shadow = 0},
                degrees);
    drawPointer(cr, {.from = 0.90 * r, .to = 0.97 * r, .lineWidth = std::max(1.5, 0.07 * r), .shadow = 0},
                degrees);
}

void vcaBody(cairo_t* cr, const Knob& knob, double degrees)
{
    const Flutes flutes{.radius = knob.radius,
                        .inner = 0.68 * knob.radius,
                        .count = 9,
                        .depth = 0.075,
                        .round = 0.8,
                        .shoulder = 0.72,
                        .steep = 62,
                        .relief = 1.25,
                        .shine = 1.3,
                        .shade = 0.28,
                        .groove = 0.22,
                        .crest = 0.08,
                        .edge = 0.9};
    const Slope slope{hex(0x5b5f64), hex(0x26282b), hex(0x0b0c0d)};
    drawFluted(cr, flutes, slope, degrees + 20.0);
}

void vcaCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    const Colour cap = knob.accent;
    const Ray rays[] = {{0.0, cap},
                        {0.125, darker(cap, 0.20)},
                        {0.30, lighter(cap, 0.25)},
                        {0.375, darker(cap, 0.18)},
                        {0.625, darker(cap, 0.30)},
                        {0.80, cap},
                        {0.875, lighter(cap, 0.62)},
                        {0.95, lighter(cap, 0.15)},
                        {1.0, cap}};
    fillShadedDisc(cr, 0, 0, 0.72 * r, hex(0x3c3f43), hex(0x141517));
    drawRim(cr, 0, 0, 0.72 * r, {0.9, 0.3, 0.5});
    drawSpunDisc(cr, 0.56 * r, rays, 2.9, 0.07);
    drawRim(cr, 0, 0, 0.56 * r, {1.0, 0.6, 0.5});
}

void vcaPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.34 * r, .to = 0.93 * r, .lineWidth = std::max(1.8, 0.095 * r)}, degrees);
}

constexpr Layer kOptoLayers[] = {
    {false, fullShadow}, {true, optoBody}, {false, optoCap}, {true, optoPointer}};
constexpr Layer kFetLayers[] = {{false, fetBody}, {true, fetRibs}, {false, fetCap}, {true, fetPointer}};
constexpr Layer kVcaLayers[] = {{false, fullShadow}, {true, vcaBody}, {false, vcaCap}, {true, vcaPointer}};

} // namespace

constinit const Family kOpto{kOptoLayers};
constinit const Family kFet{kFetLayers};
constinit const Family kVca{kVcaLayers};

} // namespace velmora::art
