#include "art/parts/plate.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/icon.h"
#include "art/parts/relief.h"

#include <array>
#include <numbers>

namespace velmora::art {
namespace {

constexpr double kWidth = kPanelWidth;
constexpr double kHeight = kPanelHeight;

struct WindowGround {
    Colour upper;
    Colour lower;
    bool dark;
};

// In the order of WindowStyle.
constexpr std::array<WindowGround, 8> kGrounds{{
    {hex(0x0b0d0f), hex(0x1b1e21), true},
    {hex(0x231a12), hex(0x3a2d20), true},
    {hex(0xf7efd9), hex(0xfffaf0), false},
    {hex(0xaab694), hex(0xbcc7a6), false},
    {hex(0xdde5da), hex(0xedf2ea), false},
    {hex(0xcfd6bd), hex(0xe0e6d1), false},
    {hex(0xe9edf0), hex(0xfafbfc), false},
    {hex(0xcdd2e0), hex(0xe0e4ee), false},
}};

/// Different panels shouldn't show the same scratches.
std::uint32_t grainSeed(const UnitFace& face)
{
    return 7 + static_cast<std::uint32_t>(face.base.red * 255) * 5 +
           static_cast<std::uint32_t>(face.base.blue * 255) * 3;
}

} // namespace

void drawFace(cairo_t* cr, const UnitFace& face)
{
    const bool light = face.isLight();
    useLinear(cr, 0, 0, kWidth, kHeight,
              {{0.0, lighter(face.base, light ? 0.10 : 0.09)},
               {0.45, face.base},
               {1.0, darker(face.base, light ? 0.12 : 0.20)}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, face.grain, 0, 0, kWidth, kHeight, face.grainAmount, grainSeed(face));
    useRadial(cr, 8, 0, 10, 8, 0, 330, {{0.0, kWhite, light ? 0.16 : 0.10}, {1.0, kWhite, 0.0}});
    fillRect(cr, 0, 0, kWidth, kHeight);
}

void drawEdge(cairo_t* cr, const UnitFace& face)
{
    const bool light = face.isLight();
    const double right = kWidth - 0.5;
    const double bottom = kHeight - 0.5;
    drawLine(cr, 0, 0.5, kWidth, 0.5, 1, kWhite, light ? 0.65 : 0.30);
    drawLine(cr, 0.5, 1, 0.5, kHeight, 1, kWhite, light ? 0.40 : 0.16);
    drawLine(cr, 1, 1.5, kWidth - 1, 1.5, 1, kWhite, light ? 0.18 : 0.07);
    drawLine(cr, right, 0, right, kHeight, 1, kBlack, light ? 0.45 : 0.55);
    drawLine(cr, 0, bottom, kWidth, bottom, 1, kBlack, light ? 0.50 : 0.65);
    drawLine(cr, right - 1, 1, right - 1, kHeight - 1, 1, kBlack, light ? 0.12 : 0.20);
}

void drawTitlePlate(cairo_t* cr, const UnitFace& face)
{
    drawTitlePlate(cr, face.isLight() ? 0.75 : 0.24, face.tint, 0.85);
}

void drawTitlePlate(cairo_t* cr, double lip, Colour arrows, double arrowAlpha)
{
    constexpr double x = 3;
    constexpr double y = 5;
    constexpr double width = 146;
    constexpr double height = 20;
    useLinear(cr, 0, y, 0, y + height, {{0.0, hex(0x0a0b0c)}, {1.0, hex(0x1d1f22)}});
    fillRoundRect(cr, x, y, width, height, 3);
    useLinear(cr, 0, y, 0, y + 5, {{0.0, kBlack, 0.8}, {1.0, kBlack, 0.0}});
    fillRoundRect(cr, x, y, width, 6, 3);
    drawLip(cr, x - 0.5, y - 0.5, width + 1, height + 1, 3.4, 0.65, lip);
    drawIcon(cr, Icon::Left, 12.5, 15, 4, 6, arrows, {.alpha = arrowAlpha, .lineWidth = 1.0});
    drawIcon(cr, Icon::Right, 139.5, 15, 4, 6, arrows, {.alpha = arrowAlpha, .lineWidth = 1.0});
}

void drawLabel(cairo_t* cr, const UnitFace& face, std::string_view text, double x, double y,
               const Label& label)
{
    drawText(cr, text, x, y,
             {.size = label.size,
              .colour = label.colour.value_or(face.ink),
              .alpha = label.alpha,
              .face = label.font,
              .bold = label.bold,
              .align = label.align,
              .spacing = label.spacing,
              .relief = face.relief});
}

void drawGroove(cairo_t* cr, const UnitFace& face, double x0, double y, double x1)
{
    drawLine(cr, x0, y + 0.5, x1, y + 0.5, 1, kBlack, face.isLight() ? 0.30 : 0.50);
    drawLine(cr, x0, y + 1.5, x1, y + 1.5, 1, kWhite, face.isLight() ? 0.50 : 0.13);
}

void drawGrooveDown(cairo_t* cr, const UnitFace& face, double x, double y0, double y1)
{
    drawLine(cr, x + 0.5, y0, x + 0.5, y1, 1, kBlack, face.isLight() ? 0.30 : 0.50);
    drawLine(cr, x + 1.5, y0, x + 1.5, y1, 1, kWhite, face.isLight() ? 0.50 : 0.13);
}

void drawWindow(cairo_t* cr, const UnitFace& face, double x, double y, double width, double height)
{
    drawWindow(cr, face, x, y, width, height, face.window);
}

void drawWindow(cairo_t* cr, const UnitFace& face, double x, double y, double width, double height,
                WindowStyle style)
{
    const WindowGround& ground = kGrounds[static_cast<std::size_t>(style)];
    // Tall windows keep half a pixel to what stands above and below them.
    if (height > 13) {
        y += 0.5;
        height -= 1;
    }
    useLinear(cr, 0, y, 0, y + height, {{0.0, ground.upper}, {1.0, ground.lower}});
    fillRoundRect(cr, x, y, width, height, 2.2);
    useLinear(cr, 0, y, 0, y + 4, {{0.0, kBlack, ground.dark ? 0.70 : 0.28}, {1.0, kBlack, 0.0}});
    fillRoundRect(cr, x, y, width, 5, 2.2);
    useLinear(cr, 0, y, 0, y + height,
              {{0.0, kBlack, ground.dark ? 0.60 : 0.45}, {1.0, kWhite, face.isLight() ? 0.70 : 0.22}});
    strokeRoundRect(cr, 0.9, x - 0.4, y - 0.4, width + 0.8, height + 0.8, 2.6);
}

void drawScrew(cairo_t* cr, double x, double y, double radius, double degrees)
{
    drawSoftDisc(cr, x + 0.6, y + 1, radius * 1.35, 0.5, 0.65);
    fillShadedDisc(cr, x, y, radius, hex(0xd6d8da), hex(0x45484b));
    drawRim(cr, x, y, radius, {.width = 0.7, .light = 0.7, .dark = 0.6});
    fillShadedDisc(cr, x, y, radius * 0.72, hex(0x8d9093), hex(0xb9bbbd));

    cairo_save(cr);
    cairo_translate(cr, x, y);
    cairo_rotate(cr, degrees * std::numbers::pi / 180.0);
    useColour(cr, hex(0x17181a), 0.9);
    fillRoundRect(cr, -radius * 0.55, -radius * 0.13, radius * 1.1, radius * 0.26, 0.4);
    fillRoundRect(cr, -radius * 0.13, -radius * 0.55, radius * 0.26, radius * 1.1, 0.4);
    cairo_restore(cr);
}

} // namespace velmora::art
