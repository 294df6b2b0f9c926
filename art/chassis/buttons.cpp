#include "art/chassis/chassis.h"
#include "art/chassis/metal.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"
#include "art/parts/switches/button.h"
#include "art/parts/switches/frames.h"

#include <array>
#include <numbers>

namespace velmora::art {
namespace {

enum Touch { Idle, Hover, Pressed };

// In the order of Touch.
constexpr std::array<Colour, 3> kSymbols{hex(0xe8ebee), kWhite, kAmberLight};

struct PlateLook {
    Colour upper;
    Colour lower;
    double edge; ///< alpha of the light along the upper edge
    Colour ink;
};
constexpr std::array<PlateLook, 3> kPlates{{
    {hex(0x34383c), hex(0x1c1e21), 0.25, hex(0xd7dbdf)},
    {hex(0x464b50), hex(0x26292c), 0.30, kWhite},
    {hex(0x17191b), hex(0x2a2d30), 0.05, kAmberLight},
}};

/// The key of a kick button, with room for its shadow at the right and below; its symbol sinks with it when
/// pressed.
void drawKey(cairo_t* cr, double width, double height, int touch)
{
    drawButtonCap(cr, 2, 2, width - 5, height - 6, touch == Pressed,
                  touch == Idle ? hex(0x43474c) : hex(0x565b61), 3);
    if (touch == Pressed) cairo_translate(cr, 0, 0.8);
}

void drawThreeModules(cairo_t* cr, double x, double y, Colour colour)
{
    for (int module = 0; module < 3; ++module) {
        const double centre = x + 9.2 * (module - 1);
        useColour(cr, colour, 0.95);
        fillRoundRect(cr, centre - 3.7, y - 7, 7.4, 14, 1.2);
        useColour(cr, kBlack, 0.6);
        fillCircle(cr, centre, y - 2.6, 1.8);
        fillRect(cr, centre - 2, y + 2.6, 4, 1.2);
    }
}

void drawPlus(cairo_t* cr, double x, double y, Colour colour)
{
    drawLine(cr, x - 4.5, y, x + 4.5, y, 2, colour);
    drawLine(cr, x, y - 4.5, x, y + 4.5, 2, colour);
}

/// The ring of light, the key in it and its sign.
void drawPowerKey(cairo_t* cr, bool on)
{
    constexpr double kX = 23;
    constexpr double kY = 22;
    drawSoftDisc(cr, kX + 0.8, kY + 2.5, 22, 0.5, 0.7);
    fillShadedDisc(cr, kX, kY, 19.5, hex(0x0a0b0c), hex(0x5b6066));
    useColour(cr, hex(0x060707));
    fillCircle(cr, kX, kY, 18);
    if (on) {
        useRadial(cr, kX, kY, 10, kX, kY, 22, {{0, hex(0x7dff46), 0.55}, {1, hex(0x7dff46), 0}});
        fillCircle(cr, kX, kY, 22);
    }
    useColour(cr, on ? hex(0x9dff74) : hex(0x2c3a29));
    strokeCircle(cr, 2.2, kX, kY, 16.6);
    if (on) {
        fillShadedDisc(cr, kX, kY, 14.8, hex(0x3e4247), hex(0x24272a));
    } else {
        fillShadedDisc(cr, kX, kY, 14.8, hex(0x5c6167), hex(0x1d1f22));
    }
    drawRim(cr, kX, kY, 14.8, {.width = 1, .light = 0.5, .dark = 0.5});

    const Colour sign = on ? hex(0xd8ffc8) : hex(0x90969b);
    constexpr double kDegree = std::numbers::pi / 180;
    useColour(cr, sign);
    cairo_set_line_width(cr, 2);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_new_sub_path(cr);
    cairo_arc(cr, kX, kY + 0.6, 5.6, -55 * kDegree, 235 * kDegree);
    cairo_stroke(cr);
    drawLine(cr, kX, kY - 6.6, kX, kY - 0.6, 2, sign, 1, CAIRO_LINE_CAP_ROUND);
}

/// Three words of different faces around x, on one line.
void drawName(cairo_t* cr, double x, double y, Colour ink)
{
    constexpr double kGap = 12;
    Lettering maker{.size = 11,
                    .colour = ink,
                    .bold = true,
                    .align = Align::Left,
                    .spacing = 2,
                    .relief = Relief::LightInk};
    Lettering name{.size = 14,
                   .colour = ink,
                   .face = Face::Gothic,
                   .align = Align::Left,
                   .spacing = 1.2,
                   .relief = Relief::LightInk};
    Lettering variant = maker;
    variant.size = 8;
    variant.alpha = 0.8;
    const double makerWidth = textWidth(cr, "QOR", maker);
    const double nameWidth = textWidth(cr, "Velmora", name);
    const double left = x - (makerWidth + kGap + nameWidth + kGap + textWidth(cr, "MONO", variant)) / 2;
    drawText(cr, "QOR", left, y, maker);
    drawText(cr, "Velmora", left + makerWidth + kGap, y, name);
    drawText(cr, "MONO", left + makerWidth + nameWidth + 2 * kGap, y + 0.4, variant);
}

void drawNameFrame(cairo_t* cr, const PlateLook& look)
{
    useColour(cr, hex(0x0b0c0d));
    fillRoundRect(cr, 1, 1, 252, 25, 4);
    useLinear(cr, 0, 0, 0, 27, {{0, kBlack, 0.8}, {1, kWhite, 0.28}});
    strokeRoundRect(cr, 1, 0.5, 0.5, 253, 26, 4.5);
    useLinear(cr, 0, 3, 0, 24, {{0, look.upper}, {1, look.lower}});
    fillRoundRect(cr, 3, 3, 248, 21, 3);
    paintGrain(cr, Grain::BrushedAcross, 4, 4, 246, 19, 0.06, 9);
    drawLine(cr, 5, 3.6, 249, 3.6, 0.8, kWhite, look.edge);
    drawName(cr, 127, 14, look.ink);
}

} // namespace

void drawPowerButton(cairo_t* cr)
{
    drawFrames(cr, 2, 46, 54, [](cairo_t* frame, int on) { drawPowerKey(frame, on != 0); });
}

void drawAddButton(cairo_t* cr)
{
    drawFrames(cr, 3, 52, 24, [](cairo_t* frame, int touch) {
        const Colour symbol = kSymbols[static_cast<std::size_t>(touch)];
        drawKey(frame, 52, 24, touch);
        drawPlus(frame, 14.5, 11, symbol);
        drawText(frame, "ADD", 32, 11.2, {.size = 9, .colour = symbol, .bold = true, .spacing = 0.8});
    });
}

void drawViewButton(cairo_t* cr)
{
    drawFrames(cr, 3, 52, 28, [](cairo_t* frame, int touch) {
        drawKey(frame, 52, 28, touch);
        drawThreeModules(frame, 25.5, 13, kSymbols[static_cast<std::size_t>(touch)]);
    });
}

void drawNamePlate(cairo_t* cr)
{
    drawFrames(cr, 3, 254, 28, [](cairo_t* frame, int touch) {
        drawNameFrame(frame, kPlates[static_cast<std::size_t>(touch)]);
    });
}

} // namespace velmora::art
