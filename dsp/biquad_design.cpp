#include "dsp/biquad_design.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace velmora {

namespace {

constexpr double kHighestShare = 0.499; // of the sample rate
constexpr double kSmootherResidue = 0.005;

// Q x (1 - (f / (scale x rate)) ^ exponent)
struct QWarp {
    double exponent;
    double scale;
};

constexpr std::array<QWarp, 11> kQWarps{{
    {0.0, 0.0},     // None
    {6.0, 0.5001},  // HighPass
    {0.0, 0.0},     // Smoother
    {3.5, 0.5001},  // LowShelf
    {2.8, 0.5001},  // Peaking
    {2.8, 0.5001},  // BandPass
    {2.8, 0.5001},  // Notch
    {4.0, 0.5001},  // HighShelf
    {8.0, 0.50001}, // LowPass
    {0.0, 0.0},     // OnePoleLowPass
    {0.0, 0.0},     // AllPass
}};

double clampedFrequency(const BiquadSettings& set)
{
    return std::min(kHighestShare * set.sampleRate, set.frequency);
}

double warpedQ(const BiquadSettings& set, double frequency)
{
    const QWarp warp = kQWarps[static_cast<std::size_t>(set.kind)];
    if (warp.exponent == 0.0) return set.q;
    return set.q * (1.0 - std::pow(frequency / (warp.scale * set.sampleRate), warp.exponent));
}

BiquadCoefficients highPass(double c, double alpha)
{
    const double d = 1.0 + alpha;
    const double b0 = (1.0 + c) / 2.0 / d;
    return {d, -2.0 * c / d, (1.0 - alpha) / d, b0, -(1.0 + c) / d, b0};
}

BiquadCoefficients lowPass(double c, double alpha)
{
    const double d = 1.0 + alpha;
    const double b0 = (1.0 - c) / 2.0 / d;
    return {d, -2.0 * c / d, (1.0 - alpha) / d, b0, (1.0 - c) / d, b0};
}

BiquadCoefficients peaking(double c, double alpha, double a)
{
    const double d = 1.0 + alpha / a;
    const double b1 = -2.0 * c / d;
    return {d, b1, (1.0 - alpha / a) / d, (1.0 + alpha * a) / d, b1, (1.0 - alpha * a) / d};
}

BiquadCoefficients bandPass(double c, double alpha)
{
    const double d = 1.0 + alpha;
    const double b0 = alpha / d;
    return {d, -2.0 * c / d, (1.0 - alpha) / d, b0, 0.0, -b0};
}

BiquadCoefficients notch(double c, double alpha)
{
    const double d = 1.0 + alpha;
    const double b1 = -2.0 * c / d;
    return {d, b1, (1.0 - alpha) / d, 1.0 / d, b1, 1.0 / d};
}

BiquadCoefficients allPass(double c, double alpha)
{
    const double d = 1.0 + alpha;
    const double b0 = (1.0 - alpha) / d;
    const double b1 = -2.0 * c / d;
    return {d, b1, b0, b0, b1, 1.0};
}

BiquadCoefficients lowShelf(double c, double a, double b)
{
    const double d = (a + 1.0) + (a - 1.0) * c + b;
    return {d,
            -2.0 * ((a - 1.0) + (a + 1.0) * c) / d,
            ((a + 1.0) + (a - 1.0) * c - b) / d,
            a * ((a + 1.0) - (a - 1.0) * c + b) / d,
            2.0 * a * ((a - 1.0) - (a + 1.0) * c) / d,
            a * ((a + 1.0) - (a - 1.0) * c - b) / d};
}

BiquadCoefficients highShelf(double c, double a, double b)
{
    const double d = (a + 1.0) - (a - 1.0) * c + b;
    return {d,
            2.0 * ((a - 1.0) - (a + 1.0) * c) / d,
            ((a + 1.0) - (a - 1.0) * c - b) / d,
            a * ((a + 1.0) + (a - 1.0) * c + b) / d,
            -2.0 * a * ((a - 1.0) + (a + 1.0) * c) / d,
            a * ((a + 1.0) + (a - 1.0) * c - b) / d};
}

BiquadCoefficients onePoleLowPass(double frequency, double sampleRate)
{
    const double t = 2.0 - std::cos(2.0 * std::numbers::pi * frequency / sampleRate);
    const double a1 = std::sqrt(t * t - 1.0) - t;
    return {1.0, a1, 0.0, 1.0 + a1, 0.0, 0.0};
}

} // namespace

BiquadPrewarp prewarpBiquad(const BiquadSettings& set)
{
    const double f = clampedFrequency(set);
    const double w = 2.0 * std::numbers::pi * f / set.sampleRate;
    const bool unclamped = set.kind == StripBiquadKind::BandPass;
    return {std::cos(w), std::sin(w), warpedQ(set, unclamped ? set.frequency : f)};
}

BiquadCoefficients designBiquad(const BiquadSettings& set)
{
    return designBiquad(set, prewarpBiquad(set));
}

BiquadCoefficients designBiquad(const BiquadSettings& set, const BiquadPrewarp& prewarp)
{
    const double c = prewarp.c;
    const auto alpha = [&] { return prewarp.s / (2.0 * prewarp.q); };
    const auto amplitude = [&] { return std::pow(10.0, set.gainDb / 40.0); };
    const auto slope = [&](double a) { return std::sqrt(a) * prewarp.s / prewarp.q; };

    switch (set.kind) {
    case StripBiquadKind::HighPass:
        return highPass(c, alpha());
    case StripBiquadKind::LowPass:
        return lowPass(c, alpha());
    case StripBiquadKind::Peaking:
        return peaking(c, alpha(), amplitude());
    case StripBiquadKind::BandPass:
        return bandPass(c, alpha());
    case StripBiquadKind::Notch:
        return notch(c, alpha());
    case StripBiquadKind::AllPass:
        return allPass(c, alpha());
    case StripBiquadKind::LowShelf: {
        const double a = amplitude();
        return lowShelf(c, a, slope(a));
    }
    case StripBiquadKind::HighShelf: {
        const double a = amplitude();
        return highShelf(c, a, slope(a));
    }
    case StripBiquadKind::OnePoleLowPass:
        return onePoleLowPass(set.frequency, set.sampleRate);
    case StripBiquadKind::Smoother: {
        BiquadCoefficients unity;
        unity.a0 = std::pow(kSmootherResidue, clampedFrequency(set) / set.sampleRate);
        return unity;
    }
    case StripBiquadKind::None:
        break;
    }
    return {};
}

} // namespace velmora
