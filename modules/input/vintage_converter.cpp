#include "modules/input/vintage_converter.h"

#include <cmath>

namespace velmora::preamp {

namespace {

constexpr double kJitterSpan = 0.1; // of a sample
constexpr double kJitterStart = 0.5;
constexpr double kOverload = 128.0;
constexpr double kOverloadReading = 0.3;
constexpr double kCeiling = 32767.0;
constexpr double kFloor = -32768.0;
constexpr std::int32_t kHalfScale = 32768;
constexpr std::int32_t kRange = 4;

// Bits 15 down to 0. Not the powers of two: the differences make the converter's non-linearity.
constexpr std::array<double, 16> kWeights{
    32767.24464,       16384.69152,        8191.81808, 4096.42288, 2047.4976,          1023.7795199999999,
    512.40512,         255.68975999999998, 128.40384,  64.1032,    32.300639999999994, 15.59968,
    8.300320000000001, 3.7999199999999997, 1.79994,    1.30001,
};

// Values from the base on have this step; below the last row the step is 1.
struct Segment {
    std::int32_t base;
    std::int32_t step;
};
constexpr std::array<Segment, 6> kSegments{
    {{16384, 64}, {8192, 32}, {4096, 16}, {2048, 8}, {1024, 4}, {512, 2}}};

double scaleIn(double x)
{
    return x * 32768.0 * 0.025 * 0.25;
}

double scaleOut(std::int32_t q)
{
    return q * 3.0517578125e-5 * 40.0;
}

double convert(double y)
{
    const std::int32_t code = VintageConverter::approximate(y + kHalfScale);
    return scaleOut(VintageConverter::requantise((code - kHalfScale) * kRange));
}

} // namespace

void VintageConverter::process(RailBlocks& signal, int count, NoiseGenerator& jitter, SaturationMeter& meter,
                               double meterShare)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const double t = jitter.next() * kJitterSpan + kJitterStart;
        std::array<double, kRails> y;
        bool overload = false;
        for (std::size_t rail = 0; rail < kRails; ++rail) {
            y[rail] = interpolate(scaleIn(signal[rail][i]), t, history_[rail]);
            overload = overload || std::fabs(y[rail]) > kOverload;
        }
        meter.glide(overload ? kOverloadReading : 0.0, meterShare);
        for (std::size_t rail = 0; rail < kRails; ++rail) {
            double clipped = y[rail];
            if (clipped > kCeiling) clipped = kCeiling;
            if (clipped < kFloor) clipped = kFloor;
            if (clipped != y[rail]) meter.full();
            signal[rail][i] = convert(clipped);
        }
    }
}

// Catmull-Rom spline between x1 and x2.
double VintageConverter::interpolate(double x0, double t, History& h)
{
    const double y = ((2.0 * x0 - 5.0 * h.x1 + 4.0 * h.x2 - h.x3) * (t * t) +
                      (h.x3 - x0 + 3.0 * h.x1 - 3.0 * h.x2) * (t * t * t) + (h.x2 - x0) * t + 2.0 * h.x1) *
                     0.5;
    h.x3 = h.x2;
    h.x2 = h.x1;
    h.x1 = x0;
    return y;
}

std::int32_t VintageConverter::approximate(double w)
{
    std::int32_t code = 0;
    for (const double weight : kWeights) {
        code <<= 1;
        if (w >= weight) {
            w -= weight;
            code |= 1;
        }
    }
    return code;
}

std::int32_t VintageConverter::requantise(std::int32_t c)
{
    const bool negative = c < 0;
    const std::int32_t offset =
        negative ? 1 : 0; // negative values lie one below, their segments begin one later
    const std::int32_t n = negative ? -c - 1 : c;
    Segment segment{0, 1};
    for (const Segment& candidate : kSegments) {
        if (n < candidate.base + offset) continue;
        segment = candidate;
        break;
    }
    const std::int32_t q = segment.base + (n - segment.base) - (n - segment.base) % segment.step;
    return negative ? -q : q;
}

} // namespace velmora::preamp
