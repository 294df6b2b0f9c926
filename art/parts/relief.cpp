#include "art/parts/relief.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"

#include <cmath>
#include <numbers>

namespace velmora::art {

void fillShadedDisc(cairo_t* cr, double x, double y, double radius, Colour lit, Colour far)
{
    const double reach = radius * 0.71;
    useLinear(cr, x - reach, y - reach, x + reach, y + reach, {{0.0, lit}, {1.0, far}});
    fillCircle(cr, x, y, radius);
}

void drawRim(cairo_t* cr, double x, double y, double radius, const RimLook& look)
{
    const double reach = radius * 0.7;
    useLinear(cr, x - reach, y - reach, x + reach, y + reach,
              {{0.0, kWhite, look.light}, {0.5, kWhite, 0.0}, {0.5, kBlack, 0.0}, {1.0, kBlack, look.dark}});
    strokeCircle(cr, look.width, x, y, radius - look.width / 2);
}

double litAt(double degrees)
{
    return std::cos((degrees + 45.0) * std::numbers::pi / 180.0);
}

void drawWell(cairo_t* cr, double x, double y, double width, double height, const WellLook& look)
{
    useColour(cr, kBlack, look.darkening);
    fillRoundRect(cr, x, y, width, height, look.radius);
    drawLip(cr, x + 0.5, y + 0.5, width - 1, height - 1, look.radius - 0.5, look.upperDark, look.lowerLight);
}

void drawLip(cairo_t* cr, double x, double y, double width, double height, double radius, double upperDark,
             double lowerLight)
{
    useLinear(cr, 0, y, 0, y + height, {{0.0, kBlack, upperDark}, {1.0, kWhite, lowerLight}});
    strokeRoundRect(cr, 1.0, x, y, width, height, radius);
}

} // namespace velmora::art
