#include "art/parts/switches/bar_meter.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/law.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

constexpr double kPitch = 3;
constexpr double kLit = 2;
constexpr Colour kGreen = hex(0x7dff46);
constexpr Colour kAmber = hex(0xfba83c);
constexpr Colour kRed = hex(0xff4646);
constexpr Colour kDark = hex(0x0a0b0c);
constexpr double kDarkness = 0.84;

constexpr int kOutputSegments = 105;
constexpr double kOutputWidth = 6;

// @param segment 0 at the top
Colour outputColour(int segment)
{
    const double decibels = faderDb((kOutputSegments - segment - 0.5) / kOutputSegments);
    return decibels < -9 ? kGreen : decibels < 0 ? kAmber : kRed;
}

constexpr int kGainSegments = 43;
constexpr int kMiddle = kGainSegments / 2;
constexpr double kGainLeft = 4;
constexpr double kGainWidth = 15;

Colour gainColour(int segment)
{
    return segment == kMiddle ? kWhite : segment < kMiddle ? kGreen : kAmber;
}

} // namespace

void drawOutputBarDark6x315(cairo_t* cr)
{
    for (int segment = 0; segment < kOutputSegments; ++segment) {
        useColour(cr, mix(outputColour(segment), kDark, kDarkness));
        fillRect(cr, 0, segment * kPitch, kOutputWidth, kLit);
    }
}

void drawOutputBarLit8x316(cairo_t* cr)
{
    constexpr double kGlow = 1;
    for (int segment = 0; segment < kOutputSegments; ++segment) {
        const Colour colour = outputColour(segment);
        const double y = segment * kPitch;
        useColour(cr, colour, 0.16);
        fillRect(cr, 0, y, kOutputWidth + 2 * kGlow, kPitch);
        useColour(cr, colour, 0.95);
        fillRect(cr, kGlow, y, kOutputWidth, kLit);
        useColour(cr, kWhite, 0.22); // the filament shines through the middle
        fillRect(cr, kGlow + 1, y, kOutputWidth - 2, kLit);
    }
    useColour(cr, kGreen, 0.06);
    fillRect(cr, 0, kOutputSegments * kPitch, kOutputWidth + 2 * kGlow, 1);
}

void drawPeakMark6x9(cairo_t* cr)
{
    useLinear(cr, 0, 0, 0, 8, {{0, kWhite, 0}, {0.45, kWhite, 0.4}, {0.55, kWhite, 0.4}, {1, kWhite, 0}});
    fillRect(cr, 0, 1, kOutputWidth, 6);
    useColour(cr, kWhite);
    fillRect(cr, 0, kPitch, kOutputWidth, kLit);
}

void drawGainBarLit23x129(cairo_t* cr)
{
    for (int segment = 0; segment < kGainSegments; ++segment) {
        const double y = segment * kPitch;
        useColour(cr, gainColour(segment));
        fillRect(cr, kGainLeft, y, kGainWidth, kLit);
        useColour(cr, kWhite, 0.2);
        fillRect(cr, kGainLeft + 2, y, kGainWidth - 4, kLit);
    }
}

void drawGainBarWell(cairo_t* cr, double x, double y)
{
    useColour(cr, hex(0x08090c));
    fillRoundRect(cr, x - 1, y - 1, 25, 131, 3);
    drawLip(cr, x - 1.5, y - 1.5, 26, 132, 3.4, 0.7, 0.75);
    for (int segment = 0; segment < kGainSegments; ++segment) {
        useColour(cr, mix(gainColour(segment), kDark, kDarkness));
        fillRect(cr, x + kGainLeft, y + segment * kPitch, kGainWidth, kLit);
    }
}

} // namespace velmora::art
