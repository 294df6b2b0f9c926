#include "art/chassis/chassis.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/face.h"
#include "art/parts/icon.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

constexpr double kWidth = 152;
constexpr double kHeight = 66;

enum class ReductionMeter { None, Yes };

void drawGround(cairo_t* cr, const UnitFace& face)
{
    useLinear(cr, 0, 0, kWidth, kHeight, {{0, lighter(face.base, 0.1)}, {1, darker(face.base, 0.15)}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, face.grain, 0, 0, kWidth, kHeight, face.grainAmount, 77);
    useRadial(cr, 0, 0, 4, 0, 0, 120, {{0, kWhite, 0.14}, {1, kWhite, 0}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    useColour(cr, face.accent);
    fillRect(cr, 0, 1, 3, kHeight - 2);
    drawLine(cr, 3.5, 1, 3.5, kHeight - 1, 1, kBlack, 0.25);
}

void drawBevel(cairo_t* cr, bool light)
{
    const double right = kWidth - 0.5;
    drawLine(cr, 0, 0.5, kWidth, 0.5, 1, kWhite, light ? 0.65 : 0.30);
    drawLine(cr, 0.5, 1, 0.5, kHeight, 1, kWhite, light ? 0.40 : 0.16);
    drawLine(cr, right, 0, right, kHeight, 1, kBlack, light ? 0.45 : 0.55);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kBlack, light ? 0.50 : 0.65);
}

/// For the role's label and the module's name below it.
void drawNameWell(cairo_t* cr, double lip)
{
    useLinear(cr, 0, 8, 0, 58, {{0, hex(0x0b0c0d)}, {1, hex(0x1b1d1f)}});
    fillRoundRect(cr, 52, 9, 95, 48, 3);
    useLinear(cr, 0, 9, 0, 15, {{0, kBlack, 0.7}, {1, kBlack, 0}});
    fillRoundRect(cr, 52, 9, 95, 7, 3);
    drawLip(cr, 51.5, 8.5, 96, 49, 3.4, 0.7, lip);
}

/// For a column of four lamps of 12 x 14 from (32, 3) on.
void drawMeterWell(cairo_t* cr, double lip)
{
    useLinear(cr, 0, 2, 0, 64, {{0, hex(0x060707)}, {1, hex(0x151618)}});
    fillRoundRect(cr, 30, 2, 16, 61, 2.5);
    drawLip(cr, 29.5, 1.5, 17, 62, 3, 0.7, lip);
}

template <Unit unit, ReductionMeter meter>
void drawStrip(cairo_t* cr)
{
    const UnitFace& face = faceOf(unit);
    drawGround(cr, face);
    const double lip = face.isLight() ? 0.5 : 0.2;
    if (meter == ReductionMeter::Yes) drawMeterWell(cr, lip);
    drawNameWell(cr, lip);
    drawBevel(cr, face.isLight());
}

} // namespace

void drawPreampStrip(cairo_t* cr)
{
    drawStrip<Unit::Pre60s, ReductionMeter::None>(cr);
}

void drawFilterStrip(cairo_t* cr)
{
    drawStrip<Unit::Filters, ReductionMeter::None>(cr);
}

void drawExpanderStrip(cairo_t* cr)
{
    drawStrip<Unit::Dynamics, ReductionMeter::Yes>(cr);
}

void drawCompressorStrip(cairo_t* cr)
{
    drawStrip<Unit::Fet, ReductionMeter::Yes>(cr);
}

void drawEqStrip(cairo_t* cr)
{
    drawStrip<Unit::Sorrel, ReductionMeter::None>(cr);
}

void drawLimiterStrip(cairo_t* cr)
{
    drawStrip<Unit::OptoLimiter, ReductionMeter::Yes>(cr);
}

void drawOutputStrip(cairo_t* cr)
{
    drawStrip<Unit::Master, ReductionMeter::None>(cr);
}

void drawInsertStrip(cairo_t* cr)
{
    drawStrip<Unit::Special, ReductionMeter::Yes>(cr);
}

/// A place without a module.
void drawSpareStrip(cairo_t* cr)
{
    useLinear(cr, 0, 0, 0, kHeight, {{0, hex(0x191b1d)}, {1, hex(0x111214)}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, Grain::BrushedDown, 0, 0, kWidth, kHeight, 0.03, 21);
    useLinear(cr, 0, 0, 0, 14, {{0, kBlack, 0.6}, {1, kBlack, 0}});
    fillRect(cr, 0, 0, kWidth, 14);
    drawNameWell(cr, 0.16);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kWhite, 0.10);
    drawLine(cr, kWidth - 0.5, 0, kWidth - 0.5, kHeight, 1, kWhite, 0.08);
}

void drawMiniArrow(cairo_t* cr)
{
    drawIcon(cr, Icon::Right, 3, 6, 4.4, 9, hex(0xd2d2d2), {.alpha = 0.9, .lineWidth = 1.0});
}

} // namespace velmora::art
