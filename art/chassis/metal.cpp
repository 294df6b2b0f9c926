#include "art/chassis/metal.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/plate.h"

#include <numbers>

namespace velmora::art {

void drawMetal(cairo_t* cr, double width, double height, Colour base, const MetalLook& look)
{
    useLinear(cr, 0, 0, 0, height, {{0, lighter(base, 0.07)}, {0.5, base}, {1, darker(base, 0.18)}});
    fillRect(cr, 0, 0, width, height);
    paintGrain(cr, look.grain, 0, 0, width, height, look.amount, look.seed);
}

void drawRackHole(cairo_t* cr, double x, double y, double degrees)
{
    drawSoftRect(cr, x - 10, y - 5.5, 20, 12, 6, 2, 0.3);
    useLinear(cr, 0, y - 6, 0, y + 6, {{0, kBlack}, {1, hex(0x0d0e0f)}});
    fillRoundRect(cr, x - 10, y - 5.5, 20, 11, 5.5);
    useLinear(cr, 0, y - 6, 0, y + 6, {{0, kBlack, 0.8}, {1, kWhite, 0.28}});
    strokeRoundRect(cr, 1, x - 10.5, y - 6, 21, 12, 6);
    drawScrew(cr, x, y, 4.6, degrees);
}

void drawCut(cairo_t* cr, double x0, double y, double x1, double dark, double light)
{
    drawLine(cr, x0, y + 0.5, x1, y + 0.5, 1, kBlack, dark);
    drawLine(cr, x0, y + 1.5, x1, y + 1.5, 1, kWhite, light);
}

void drawUpward(cairo_t* cr, std::string_view text, double x, double y, Lettering lettering)
{
    lettering.snap = false;
    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_rotate(cr, -std::numbers::pi / 2);
    drawText(cr, text, 0, 0, lettering);
    cairo_restore(cr);
}

} // namespace velmora::art
