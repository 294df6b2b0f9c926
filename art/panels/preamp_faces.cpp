#include "art/panels/preamp_faces.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/plate.h"

namespace velmora::art {
namespace {

constexpr double kMiddle = kPanelWidth / 2.0;
constexpr double kDividerY = 305;

void drawLouvre(cairo_t* cr, double y)
{
    useColour(cr, kBlack, 0.55);
    fillRoundRect(cr, 26, y, 100, 5, 2.5);
    drawLine(cr, 28, y + 5.4, 124, y + 5.4, 0.9, kWhite, 0.14);
}

void drawWhiteFrame(cairo_t* cr, double y, double height)
{
    constexpr double x = 3;
    constexpr double width = 146;
    useColour(cr, kWhite, 0.07);
    fillRoundRect(cr, x, y, width, height, 8);
    useColour(cr, hex(0xdfeaf1), 0.55);
    strokeRoundRect(cr, 1, x + 0.5, y + 0.5, width - 1, height - 1, 7.5);
}

constexpr Colour kSegments = hex(0x1c2a18);

/// Five bars that grow to the right, three of them lit.
void drawStrengthBars(cairo_t* cr, double x, double y)
{
    for (int bar = 0; bar < 5; ++bar) {
        useColour(cr, kSegments, bar < 3 ? 0.85 : 0.18);
        fillRect(cr, x + bar * 3.4, y - bar * 1.9, 2.4, 2 + bar * 1.9);
    }
}

/// The display of the converter, which tells its word length for good.
void drawConverterDisplay(cairo_t* cr, bool printed)
{
    constexpr double x = 12;
    constexpr double y = 282;
    constexpr double width = 98;
    constexpr double height = 18;
    useColour(cr, hex(0x2c2f2e));
    fillRoundRect(cr, x - 2, y - 2, width + 4, height + 4, 3);
    useLinear(cr, 0, y, 0, y + height, {{0.0, hex(0x94a37c)}, {1.0, hex(0xb4c198)}});
    fillRect(cr, x, y, width, height);
    useLinear(cr, 0, y, 0, y + 5, {{0.0, kBlack, 0.4}, {1.0, kBlack, 0.0}});
    fillRect(cr, x, y, width, 5);
    drawLine(cr, x - 1, y + height + 2.5, x + width + 1, y + height + 2.5, 1, kWhite, 0.55);
    if (!printed) return;
    drawText(cr, "12 BIT  A/D", x + 5, y + 9.3,
             {.size = 10,
              .colour = kSegments,
              .alpha = 0.92,
              .face = Face::Mono,
              .bold = true,
              .align = Align::Left});
    drawStrengthBars(cr, x + 78, y + 13);
}

} // namespace

void adornGain(cairo_t* cr, const UnitFace& face, bool printed)
{
    drawGroove(cr, face, 8, kDividerY, 144);
    if (printed) drawLabel(cr, face, "INPUT", kMiddle, 360, {.size = 11, .alpha = 0.20, .spacing = 5});
    for (int louvre = 0; louvre < 9; ++louvre) drawLouvre(cr, 388 + louvre * 14);
}

void adornPre60s(cairo_t* cr, const UnitFace& face, bool)
{
    useColour(cr, face.accent, 0.92);
    fillRect(cr, 2, 291, 148, 5);
    fillRect(cr, 2, 299, 148, 1.5);
}

void adornPre70s(cairo_t* cr, const UnitFace& face, bool printed)
{
    drawWhiteFrame(cr, 29, 276);
    drawWhiteFrame(cr, 308, 226);
    // Its square buttons have no sign of their own.
    if (printed) drawLabel(cr, face, "\u00d8", 110, 292.5, {.size = 11, .spacing = 0});
}

void adornPre80s(cairo_t* cr, const UnitFace& face, bool)
{
    useColour(cr, face.accent, 0.95);
    fillRect(cr, 8, 29, 136, 2);
    fillRect(cr, 8, kDividerY, 136, 2);
}

void adornAdc90s(cairo_t* cr, const UnitFace& face, bool printed)
{
    drawGroove(cr, face, 8, kDividerY, 144);
    drawConverterDisplay(cr, printed);
}

} // namespace velmora::art
