#include "art/panels/compressor_plates.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

constexpr double kBadgeX = 72;
constexpr double kBadgeY = 496;
constexpr double kBadgeWidth = 68;
constexpr double kBadgeHeight = 28;
constexpr double kBadgeMiddle = kBadgeX + kBadgeWidth / 2;

constexpr double kFrameY = 146;
constexpr double kFrameHeight = 342;

void writeFamily(cairo_t* cr, double y, Colour ink)
{
    drawText(cr, "LEVELOR", kBadgeMiddle, y, {.size = 6.5, .colour = ink, .bold = true, .spacing = 1.2});
}

} // namespace

void drawOptoFrame(cairo_t* cr, const UnitFace& face)
{
    useColour(cr, face.accent, 0.8);
    strokeRoundRect(cr, 1, 3.5, kFrameY + 0.5, 145, kFrameHeight - 1, 6);
}

void drawFetFrame(cairo_t* cr, const UnitFace& face)
{
    useColour(cr, face.accent, 0.9);
    fillRect(cr, 6, 487, 140, 1.5);
}

void drawVcaFrame(cairo_t* cr, const UnitFace&)
{
    drawWell(cr, 3, kFrameY + 1, 146, kFrameHeight - 2,
             {.radius = 5, .darkening = 0.18, .upperDark = 0.5, .lowerLight = 0.16});
}

void drawOptoBadge(cairo_t* cr, const UnitFace&, bool printed)
{
    constexpr Colour kEngraving = hex(0x3b2713);
    useLinear(cr, kBadgeX, kBadgeY, kBadgeX + kBadgeWidth, kBadgeY + kBadgeHeight,
              {{0.0, hex(0xefdba6)}, {0.5, hex(0xc7a762)}, {1.0, hex(0x8f7238)}});
    fillRoundRect(cr, kBadgeX, kBadgeY, kBadgeWidth, kBadgeHeight, 3);
    useColour(cr, hex(0x3b2c1f), 0.6);
    strokeRoundRect(cr, 0.8, kBadgeX + 2, kBadgeY + 2, kBadgeWidth - 4, kBadgeHeight - 4, 2);
    if (!printed) return;
    drawText(cr, "Opto", kBadgeMiddle, kBadgeY + 10.5,
             {.size = 12, .colour = kEngraving, .face = Face::Bookman, .bold = true, .italic = true});
    writeFamily(cr, kBadgeY + 20.5, kEngraving);
}

void drawFetBadge(cairo_t* cr, const UnitFace& face, bool printed)
{
    useColour(cr, face.accent);
    strokeRoundRect(cr, 1.2, kBadgeX + 0.5, kBadgeY + 0.5, kBadgeWidth - 1, kBadgeHeight - 1, 3);
    if (!printed) return;
    drawText(cr, "FET", kBadgeMiddle, kBadgeY + 10,
             {.size = 13, .colour = face.ink, .face = Face::Gothic, .bold = true, .spacing = 3});
    writeFamily(cr, kBadgeY + 21, face.accent);
}

void drawVcaBadge(cairo_t* cr, const UnitFace&, bool printed)
{
    constexpr Colour kEngraving = hex(0x0f171e);
    useLinear(cr, 0, kBadgeY, 0, kBadgeY + kBadgeHeight, {{0.0, hex(0x8fa9bf)}, {1.0, hex(0x4d667b)}});
    fillRoundRect(cr, kBadgeX, kBadgeY, kBadgeWidth, kBadgeHeight, 2);
    if (printed) {
        drawText(cr, "VCA", kBadgeMiddle, kBadgeY + 10,
                 {.size = 13, .colour = kEngraving, .bold = true, .italic = true, .spacing = 2});
        writeFamily(cr, kBadgeY + 21, kEngraving);
    }
    useLinear(cr, 0, kBadgeY, 0, kBadgeY + kBadgeHeight, {{0.0, kWhite, 0.6}, {1.0, kBlack, 0.6}});
    strokeRoundRect(cr, 0.8, kBadgeX + 0.4, kBadgeY + 0.4, kBadgeWidth - 0.8, kBadgeHeight - 0.8, 2);
}

void drawMeterRecess(cairo_t* cr, const UnitFace& face)
{
    useColour(cr, kBlack, 0.35);
    fillRoundRect(cr, 7.5, 30.5, 137, 111, 8);
    drawLip(cr, 7.5, 30.5, 137, 111, 8.4, face.isLight() ? 0.35 : 0.55, face.isLight() ? 0.7 : 0.2);
}

} // namespace velmora::art
