#include "art/parts/switches/lamp.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

void drawDarkLens(cairo_t* cr, double x, double y, double radius, Colour dark)
{
    useRadial(cr, x - radius * 0.3, y - radius * 0.35, 0, x, y, radius,
              {{0, lighter(dark, 0.22)}, {0.6, dark}, {1, darker(dark, 0.5)}});
    fillCircle(cr, x, y, radius);
    useRadial(cr, x - radius * 0.32, y - radius * 0.4, 0, x - radius * 0.32, y - radius * 0.4, radius * 0.5,
              {{0, kWhite, 0.35}, {1, kWhite, 0}});
    fillCircle(cr, x - radius * 0.3, y - radius * 0.4, radius * 0.5);
}

void drawLitLens(cairo_t* cr, double x, double y, double radius, Colour lit, double halo)
{
    useRadial(cr, x, y, radius * 0.6, x, y, radius * halo, {{0, lit, 0.42}, {1, lit, 0}});
    fillCircle(cr, x, y, radius * halo);
    useRadial(cr, x - radius * 0.15, y - radius * 0.2, 0, x, y, radius,
              {{0, lighter(lit, 0.85)}, {0.45, lighter(lit, 0.18)}, {1, darker(lit, 0.3)}});
    fillCircle(cr, x, y, radius);
}

} // namespace

void drawRoundLamp(cairo_t* cr, double x, double y, double radius, Light lit, Colour dark, double halo)
{
    fillShadedDisc(cr, x, y, radius + 2.2, hex(0x0b0c0d), hex(0x5a5e63));
    useColour(cr, hex(0x050606));
    fillCircle(cr, x, y, radius + 1.1);
    if (lit) {
        drawLitLens(cr, x, y, radius, *lit, halo);
    } else {
        drawDarkLens(cr, x, y, radius, dark);
    }
}

void drawLampCell(cairo_t* cr, double x, double y, double width, double height, Light lit, Colour dark)
{
    const double lensX = x + 1.5;
    const double lensY = y + 1.5;
    const double lensWidth = width - 3;
    const double lensHeight = height - 3.5;
    const double centreX = lensX + lensWidth / 2;
    const double centreY = lensY + lensHeight / 2;

    useColour(cr, hex(0x060707));
    fillRoundRect(cr, x, y, width, height, 2);
    if (!lit) {
        useLinear(cr, 0, lensY, 0, lensY + lensHeight, {{0, lighter(dark, 0.12)}, {1, darker(dark, 0.25)}});
        fillRoundRect(cr, lensX, lensY, lensWidth, lensHeight, 1.6);
        useColour(cr, kWhite, 0.1);
        fillRoundRect(cr, lensX + 0.8, lensY + 0.8, lensWidth - 1.6, 1.6, 0.8);
        return;
    }
    useColour(cr, *lit, 0.22);
    fillRoundRect(cr, x, y, width, height, 2);
    useRadial(cr, centreX, centreY, 0, centreX, centreY, lensWidth * 0.95,
              {{0, lighter(*lit, 0.62)}, {0.55, *lit}, {1, darker(*lit, 0.22)}});
    fillRoundRect(cr, lensX, lensY, lensWidth, lensHeight, 1.6);
    useColour(cr, kWhite, 0.35);
    fillRoundRect(cr, lensX + 1, lensY + 1, lensWidth - 2, 1.4, 0.7);
}

void drawLampBarWell(cairo_t* cr, double x, double y, double width, double height)
{
    useColour(cr, kBlack, 0.55);
    fillRoundRect(cr, x - 2, y - 2, width + 4, height + 3, 2.5);
    useLinear(cr, x - 2, 0, x + width + 2, 0, {{0, kBlack, 0.6}, {1, kWhite, 0.1}});
    strokeRoundRect(cr, 1, x - 1.5, y - 1.5, width + 3, height + 2, 2.5);
}

void drawLampRing(cairo_t* cr, double x, double y, bool lightFace)
{
    useLinear(cr, 0, y - 1, 0, y + 15, {{0, kBlack, 0.5}, {1, kWhite, lightFace ? 0.75 : 0.25}});
    strokeRoundRect(cr, 1, x - 0.5, y - 0.5, 13, 15, 2.4);
}

} // namespace velmora::art
