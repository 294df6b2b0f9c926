// The equalizers' knobs: Sorrel's steel ring and the grip in it, Tamarin's scalloped one, Juniper's green
// one.

#include "art/parts/knobs/dress.h"
#include "art/parts/knobs/families.h"
#include "art/parts/knobs/flutes.h"
#include "art/parts/knobs/ribs.h"
#include "art/parts/knobs/shadow.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

constexpr Ray kSteel[] = {{0.0, hex(0x9fa1a4)},   {0.125, hex(0x75787b)}, {0.30, hex(0xc3c5c7)},
                          {0.375, hex(0x7b7e81)}, {0.55, hex(0x8f9194)},  {0.625, hex(0x66696c)},
                          {0.80, hex(0xa1a3a6)},  {0.875, hex(0xf2f3f4)}, {0.95, hex(0xb5b7b9)},
                          {1.0, hex(0x9fa1a4)}};

constexpr Colour kAmber = hex(0xff9f2e);

void ringBody(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 1.0);
    fillShadedDisc(cr, 0, 0, knob.radius, hex(0xc9cacc), hex(0x3c3e41));
}

void ringRibs(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawRibs(cr, {.inner = 0.885 * r, .outer = 0.995 * r, .count = 72, .dark = 0.55, .light = 0.55}, degrees);
}

void ringTop(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillFlatDisc(cr, 0.90 * r, kBlack, 0.35);
    drawSpunDisc(cr, 0.885 * r, kSteel, 2.9, 0.07);
    drawRim(cr, 0, 0, 0.885 * r, {1.0, 0.8, 0.4});
}

void ringNotch(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr,
                {.from = 0.70 * r, .to = 0.95 * r, .lineWidth = 2.4, .colour = hex(0x16110f), .shadow = 0},
                degrees);
}

void gripShadow(cairo_t* cr, const Knob& knob, double)
{
    castNearShadow(cr, knob);
}

void gripBody(cairo_t* cr, const Knob& knob, double degrees)
{
    constexpr int kCount = 16;
    const Flutes flutes{.radius = knob.radius,
                        .inner = 0.66 * knob.radius,
                        .count = kCount,
                        .depth = 0.05,
                        .shoulder = 0.68,
                        .steep = 60,
                        .relief = 1.3,
                        .shine = 1.0,
                        .shade = 0.28,
                        .groove = 0.36,
                        .crest = 0.20};
    const Slope slope{hex(0x6a4a42), hex(0x35201b), hex(0x120a08)};
    drawFluted(cr, flutes, slope, degrees + 180.0 / kCount, hex(0xffd9c8));
}

void gripCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillShadedDisc(cr, 0, 0, 0.70 * r, hex(0x6d463b), hex(0x2a1712));
    drawRim(cr, 0, 0, 0.70 * r, {1.0, 0.45, 0.40});
    fillShadedDisc(cr, 0, 0, 0.56 * r, hex(0x43271f), hex(0x5c3a30));
}

void gripPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.12 * r, .to = 0.91 * r, .lineWidth = 2.2}, degrees);
}

void tamarinSkirt(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    castShadow(cr, knob, 1.15);
    fillShadedDisc(cr, 0, 0, r, hex(0x55524e), hex(0x0a0a09));
    drawRim(cr, 0, 0, r, {1.0, 0.5, 0.5});
    castOnBody(cr, knob, 0.93 * r, 0.60, 0.78);
}

void tamarinGrip(cairo_t* cr, const Knob& knob, double degrees)
{
    const Flutes flutes{.radius = 0.83 * knob.radius,
                        .inner = 0.57 * knob.radius,
                        .count = 12,
                        .depth = 0.07,
                        .round = 0.7,
                        .shoulder = 0.74,
                        .steep = 62,
                        .relief = 1.1,
                        .shine = 1.0,
                        .shade = 0.28,
                        .groove = 0.24,
                        .crest = 0.10,
                        .edge = 0.7};
    const Slope slope{hex(0x65605a), hex(0x2c2a27), hex(0x0d0c0b), 0.72};
    drawFluted(cr, flutes, slope, degrees + 15.0);
}

void tamarinCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    fillShadedDisc(cr, 0, 0, 0.60 * r, hex(0x4b4742), hex(0x1c1a18));
    drawRim(cr, 0, 0, 0.60 * r, {1.0, 0.4, 0.4});
    fillShadedDisc(cr, 0, 0, 0.50 * r, hex(0x211f1c), hex(0x3c3833));
}

void tamarinPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.18 * r, .to = 0.76 * r, .lineWidth = 2.4, .colour = kAmber}, degrees);
    drawPointer(cr, {.from = 0.88 * r, .to = 0.94 * r, .lineWidth = 2.2, .colour = kAmber, .shadow = 0},
                degrees);
}

void juniperBody(cairo_t* cr, const Knob& knob, double)
{
    castShadow(cr, knob, 0.9);
    fillShadedDisc(cr, 0, 0, knob.radius, hex(0xeef0ee), hex(0x6a706c));
}

void juniperKnurl(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawRibs(cr, {.inner = 0.85 * r, .outer = 0.99 * r, .count = 54, .dark = 0.50, .light = 0.70}, degrees);
}

void juniperCap(cairo_t* cr, const Knob& knob, double)
{
    const double r = knob.radius;
    drawRim(cr, 0, 0, r, {0.8, 0.8, 0.5});
    fillFlatDisc(cr, 0.86 * r, kBlack, 0.6);
    fillShadedDisc(cr, 0, 0, 0.82 * r, hex(0x4f8273), hex(0x12332b));
    drawRim(cr, 0, 0, 0.82 * r, {1.1, 0.55, 0.40});
    fillShadedDisc(cr, 0, 0, 0.64 * r, hex(0x1c4439), hex(0x3a6b5d));
}

void juniperPointer(cairo_t* cr, const Knob& knob, double degrees)
{
    const double r = knob.radius;
    drawPointer(cr, {.from = 0.15 * r, .to = 0.78 * r, .lineWidth = 2.2}, degrees);
    drawPointer(cr,
                {.from = 0.90 * r, .to = 0.97 * r, .lineWidth = 2.0, .colour = hex(0x17201d), .shadow = 0},
                degrees);
}

constexpr Layer kRingLayers[] = {{false, ringBody}, {true, ringRibs}, {false, ringTop}, {true, ringNotch}};
constexpr Layer kGripLayers[] = {
    {false, gripShadow}, {true, gripBody}, {false, gripCap}, {true, gripPointer}};
constexpr Layer kTamarinLayers[] = {
    {false, tamarinSkirt}, {true, tamarinGrip}, {false, tamarinCap}, {true, tamarinPointer}};
constexpr Layer kJuniperLayers[] = {
    {false, juniperBody}, {true, juniperKnurl}, {false, juniperCap}, {true, juniperPointer}};

} // namespace

constinit const Family kSorrelRing{kRingLayers};
constinit const Family kSorrelGrip{kGripLayers};
constinit const Family kTamarin{kTamarinLayers};
constinit const Family kJuniper{kJuniperLayers};

} // namespace velmora::art
