#include "art/parts/switches/button.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

constexpr Colour kWellBlack = hex(0x050606);

void drawPhaseSign(cairo_t* cr, double x, double y, double radius, double lineWidth, Colour ink)
{
    useColour(cr, ink, 0.95);
    strokeCircle(cr, lineWidth, x, y, radius);
    const double reach = radius * 1.2;
    drawLine(cr, x - reach, y + reach * 1.1, x + reach, y - reach * 1.1, lineWidth, ink, 0.95);
}

} // namespace

void drawButtonCap(cairo_t* cr, double x, double y, double width, double height, bool pressed, Colour base,
                   double radius)
{
    drawSoftRect(cr, x + 0.6, y + 1.4, width, height, radius, 2.2, 0.5);
    useColour(cr, kWellBlack);
    fillRoundRect(cr, x - 0.9, y - 0.9, width + 1.8, height + 1.8, radius + 0.8);
    if (pressed) {
        useLinear(cr, 0, y, 0, y + height,
                  {{0, darker(base, 0.45)}, {0.5, darker(base, 0.25)}, {1, darker(base, 0.05)}});
    } else {
        useLinear(cr, 0, y, 0, y + height, {{0, lighter(base, 0.28)}, {0.45, base}, {1, darker(base, 0.35)}});
    }
    fillRoundRect(cr, x, y, width, height, radius);
    useLinear(cr, x, y, x + width * 0.4, y + height,
              {{0, kWhite, pressed ? 0.12 : 0.45}, {0.6, kWhite, 0}, {1, kBlack, 0.3}});
    strokeRoundRect(cr, 0.8, x + 0.4, y + 0.4, width - 0.8, height - 0.8, radius);
}

void drawFootButton(cairo_t* cr, double x, double y, double width, double height, std::string_view text,
                    double textSize, Light lit)
{
    const double capX = x + 2;
    const double capY = y + 2;
    const double capWidth = width - 4;
    const double capHeight = height - 4;
    const double centreX = x + width / 2;
    const double centreY = y + height / 2 + 0.1;

    drawSoftRect(cr, capX + 0.3, capY + 0.5, capWidth, capHeight, 3, 1.3, 0.5);
    useColour(cr, hex(0x08090a));
    fillRoundRect(cr, capX - 1, capY - 1, capWidth + 2, capHeight + 2, 3.6);
    if (lit) {
        drawSoftRect(cr, capX, capY, capWidth, capHeight, 3, 2, 0.55, *lit);
        useLinear(cr, 0, capY, 0, capY + capHeight,
                  {{0, lighter(*lit, 0.45)}, {0.4, *lit}, {1, darker(*lit, 0.22)}});
        fillRoundRect(cr, capX, capY, capWidth, capHeight, 2.6);
        drawText(cr, text, centreX, centreY, {.size = textSize, .colour = hex(0x16130c), .bold = true});
        return;
    }
    useLinear(cr, 0, capY, 0, capY + capHeight,
              {{0, hex(0x63686d)}, {0.45, hex(0x44484c)}, {1, hex(0x2c2f32)}});
    fillRoundRect(cr, capX, capY, capWidth, capHeight, 2.6);
    useLinear(cr, 0, capY, 0, capY + capHeight, {{0, kWhite, 0.42}, {0.6, kWhite, 0}});
    strokeRoundRect(cr, 0.8, capX + 0.4, capY + 0.4, capWidth - 0.8, capHeight - 0.8, 2.4);
    drawText(cr, text, centreX, centreY,
             {.size = textSize, .colour = hex(0xe1e4e6), .bold = true, .relief = Relief::LightInk});
}

void drawInButton27x34(cairo_t* cr, bool on, Colour lamp)
{
    drawButtonCap(cr, 5, 13, 17, 16, on, hex(0x4a5056));
    // A shallow dish for the finger.
    useLinear(cr, 0, 17, 0, 25, {{0, kBlack, 0.22}, {1, kWhite, 0.12}});
    fillRoundRect(cr, 8.5, 17, 10, 8, 1.5);
    drawRoundLamp(cr, 13.5, 6, 2.7, on ? Light{lamp} : Light{}, darkLensOf(lamp), 2.2);
}

void drawSquareButton22x31(cairo_t* cr, bool on)
{
    constexpr Colour kIvory = hex(0xc9ccc8);
    drawButtonCap(cr, 2.5, 10, 17, 17, on, kIvory);
    if (on) {
        useRadial(cr, 11, 17, 0, 11, 19, 11, {{0, hex(0xf4ffe6), 0.5}, {1, hex(0xf4ffe6), 0}});
        fillRoundRect(cr, 2.5, 10, 17, 17, 2.5);
    }
    useLinear(cr, 5, 13, 17, 24, {{0, kBlack, 0.16}, {0.5, kBlack, 0}, {1, kWhite, 0.35}});
    strokeRoundRect(cr, 0.8, 5.4, 12.9, 11.2, 11.2, 1.6);
    drawRoundLamp(cr, 11, 4.8, 2.4, on ? Light{light::kGreen} : Light{}, darkLensOf(light::kGreen), 2);
}

void drawPhaseButton23x30(cairo_t* cr, bool on)
{
    drawButtonCap(cr, 3, 10, 17, 16, on, hex(0x43474c));
    drawRoundLamp(cr, 11.5, 4.8, 2.4, on ? Light{light::kAmber} : Light{}, darkLensOf(light::kAmber), 2);
    drawPhaseSign(cr, 11.5, 18, 3.7, 1.3, hex(0xf2f2f2));
}

void drawRoundPhaseButton26x31(cairo_t* cr, bool on)
{
    constexpr double kX = 13;
    constexpr double kY = 19.3;
    drawSoftDisc(cr, kX + 0.8, kY + 1.2, 10.4, 0.45, 0.7);
    fillShadedDisc(cr, kX, kY, 9, hex(0xf2efe6), hex(0x6d6a63));
    drawRim(cr, kX, kY, 9, {0.8, 0.6, 0.5});
    useColour(cr, kWellBlack, 0.6);
    fillCircle(cr, kX, kY, 7.3);
    if (on) {
        fillShadedDisc(cr, kX, kY, 6.8, hex(0x17100c), hex(0x4a372e));
        drawRim(cr, kX, kY, 6.8, {0.8, 0.1, 0.2});
    } else {
        fillShadedDisc(cr, kX, kY, 6.8, hex(0x5a463b), hex(0x1b120e));
        drawRim(cr, kX, kY, 6.8, {0.8, 0.45, 0.3});
    }
    drawPhaseSign(cr, kX, kY, 2.7, 1.1, hex(0xf6ead0));
    drawRoundLamp(cr, kX, 4.9, 2.4, on ? Light{light::kAmber} : Light{}, darkLensOf(light::kAmber), 2);
}

void drawTwoWayRocker55x30(cairo_t* cr, bool right)
{
    constexpr double kX = 3;
    constexpr double kY = 6;
    constexpr double kHalf = 24.5;
    constexpr double kHeight = 18;

    useColour(cr, hex(0x0a0b0c));
    fillRoundRect(cr, kX - 1.5, kY - 1.5, 2 * kHalf + 3, kHeight + 3, 4);
    useLinear(cr, 0, kY - 2, 0, kY + kHeight + 2, {{0, kBlack, 0.6}, {1, kWhite, 0.6}});
    strokeRoundRect(cr, 1, kX - 2, kY - 2, 2 * kHalf + 4, kHeight + 4, 4.4);
    for (const bool side : {false, true}) {
        const bool down = side == right;
        const double x = side ? kX + kHalf : kX;
        const double centreX = x + kHalf / 2;
        const double centreY = kY + kHeight / 2;
        if (down) {
            useLinear(cr, 0, kY, 0, kY + kHeight, {{0, hex(0x1c1e20)}, {1, hex(0x3b3e42)}});
        } else {
            useLinear(cr, 0, kY, 0, kY + kHeight,
                      {{0, hex(0x7b8085)}, {0.5, hex(0x55595e)}, {1, hex(0x3b3f43)}});
        }
        fillRoundRect(cr, x + 0.5, kY, kHalf - 1, kHeight, 2.6);
        if (down) {
            useRadial(cr, centreX, centreY, 0, centreX, centreY, 11,
                      {{0, light::kGreen, 0.55}, {1, light::kGreen, 0}});
            fillRoundRect(cr, x + 0.5, kY, kHalf - 1, kHeight, 2.6);
        } else {
            drawLine(cr, x + 2, kY + 0.9, x + kHalf - 2, kY + 0.9, 0.9, kWhite, 0.4);
        }
        useColour(cr, down ? hex(0xb8ffa6) : hex(0x20241f));
        fillRoundRect(cr, centreX - 5, centreY - 1.6, 10, 3.2, 1.4);
    }
}

void drawBarRocker32x42(cairo_t* cr, std::string_view text, bool on)
{
    constexpr Colour kGlow = hex(0xffa12b);
    const Colour upper = hex(on ? 0x1d1b19 : 0x57524c);
    const Colour lower = hex(on ? 0x4c4843 : 0x26231f);

    drawSoftRect(cr, 5, 7, 22, 30, 3, 2.5, 0.5);
    useColour(cr, hex(0x050505));
    fillRoundRect(cr, 4, 5, 24, 32, 3);
    useLinear(cr, 0, 6.5, 0, 35.5,
              {{0, upper}, {0.48, darker(upper, 0.2)}, {0.52, lower}, {1, darker(lower, 0.15)}});
    fillRoundRect(cr, 5.5, 6.5, 21, 29, 2);
    drawLine(cr, 6, 21, 26, 21, 0.8, kBlack, 0.6);
    const double litEdge = on ? 34.6 : 7.2; // the half that stands out catches the light
    drawLine(cr, 7, litEdge, 25, litEdge, 0.9, kWhite, 0.25);
    if (on) {
        useRadial(cr, 16, 13, 0, 16, 13, 13, {{0, kGlow, 0.5}, {1, kGlow, 0}});
        fillRect(cr, 3, 0, 26, 26);
        useLinear(cr, 0, 11, 0, 15, {{0, hex(0xffe3b4)}, {1, kGlow}});
    } else {
        useColour(cr, hex(0x4b3013));
    }
    fillRoundRect(cr, 9.5, 11, 13, 4, 1.6);
    drawText(cr, text, 16, 28,
             {.size = 7.5, .colour = hex(0xefe8dc), .alpha = 0.9, .bold = true, .spacing = 0.8});
}

void drawBlindPlate41x22(cairo_t* cr)
{
    constexpr int kVents = 5;
    useColour(cr, hex(0x17191b));
    fillRoundRect(cr, 2, 2, 37, 18, 3);
    drawLip(cr, 1.5, 1.5, 38, 19, 3, 0.7, 0.16);
    for (int vent = 0; vent < kVents; ++vent) {
        const double x = 6.6 + 6.2 * vent;
        drawLine(cr, x, 11, x + 3, 11, 1.2, kBlack, 0.55);
        drawLine(cr, x, 12.1, x + 3, 12.1, 0.8, kWhite, 0.07);
    }
}

void drawMeasureKeys47x18(cairo_t* cr, bool post)
{
    useColour(cr, hex(0x08090a));
    fillRoundRect(cr, 0, 0, 47, 18, 3);
    for (const bool key : {false, true}) {
        const bool on = key == post;
        const double x = key ? 23.5 : 1.5;
        if (on) {
            useLinear(cr, 0, 1.5, 0, 16.5, {{0, hex(0xf4f6f8)}, {1, hex(0xa8aeb4)}});
        } else {
            useLinear(cr, 0, 1.5, 0, 16.5, {{0, hex(0x4b4f54)}, {1, hex(0x2a2d30)}});
        }
        fillRoundRect(cr, x, 1.5, 22, 15, 2);
        useLinear(cr, 0, 1.5, 0, 16.5, {{0, kWhite, on ? 0.9 : 0.28}, {0.5, kWhite, 0}});
        strokeRoundRect(cr, 0.8, x + 0.4, 1.9, 21.2, 14.2, 1.8);
        drawText(cr, key ? "POST" : "PRE", x + 11, 9.2,
                 {.size = 7, .colour = hex(on ? 0x14171a : 0xaab0b5), .bold = true});
    }
}

} // namespace velmora::art
