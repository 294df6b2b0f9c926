#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/switches/limiter_meter.h"

namespace velmora::art {
namespace {

constexpr int kSegments = 59;
constexpr double kPitch = 2;
constexpr double kSegmentWidth = 1.45;
constexpr double kRight = 122;
constexpr double kTop = 4;
constexpr double kHeight = 14;
constexpr Colour kDark = hex(0x0a0b0c);

// From pale amber at rest, on the right, to red.
Colour segmentColour(double share)
{
    constexpr double kKnee = 0.55;
    return share < kKnee ? mix(hex(0xffd27a), hex(0xff8a2a), share / kKnee)
                         : mix(hex(0xff8a2a), hex(0xff3a34), (share - kKnee) / (1 - kKnee));
}

} // namespace

void drawBrickMeter(cairo_t* cr, double x, double y, bool lit)
{
    useColour(cr, hex(0x070809));
    fillRoundRect(cr, x, y, 126, 22, 2.5);
    for (int segment = 0; segment < kSegments; ++segment) {
        const double left = x + kRight - kPitch * (segment + 1);
        const Colour colour = segmentColour(static_cast<double>(segment) / kSegments);
        useColour(cr, lit ? colour : mix(colour, kDark, 0.84));
        fillRect(cr, left, y + kTop, kSegmentWidth, kHeight);
        if (!lit) continue;
        useColour(cr, kWhite, 0.35);
        fillRect(cr, left, y + kTop, kSegmentWidth, 3);
    }
    useLinear(cr, 0, y, 0, y + 11, {{0, kWhite, 0.16}, {1, kWhite, 0.03}});
    fillRoundRect(cr, x + 0.5, y + 0.5, 125, 10, 2.5);
}

} // namespace velmora::art
