#include "dsp/biquad_design.h"

#include "dsp/biquad_formulae.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmora {

namespace {

constexpr double kSmootherResidue = 0.005;

double clampedFrequency(const BiquadSettings& set)
{
    return std::min(formulae::kHighestShare * set.sampleRate, set.frequency);
}

double warpedQ(const BiquadSettings& set, double frequency)
{
    const formulae::QWarp warp = formulae::kQWarps[static_cast<std::size_t>(set.kind)];
    if (warp.exponent == 0.0) return set.q;
    return set.q * (1.0 - std::pow(frequency / (warp.scale * set.sampleRate), warp.exponent));
}

BiquadCoefficients coefficients(const formulae::BiquadTerms<double>& t)
{
    return {t.a0, t.a1, t.a2, t.b0, t.b1, t.b2};
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
        return coefficients(formulae::highPass(c, alpha()));
    case StripBiquadKind::LowPass:
        return coefficients(formulae::lowPass(c, alpha()));
    case StripBiquadKind::Peaking:
        return coefficients(formulae::peaking(c, alpha(), amplitude()));
    case StripBiquadKind::BandPass:
        return coefficients(formulae::bandPass(c, alpha()));
    case StripBiquadKind::Notch:
        return coefficients(formulae::notch(c, alpha()));
    case StripBiquadKind::AllPass:
        return coefficients(formulae::allPass(c, alpha()));
    case StripBiquadKind::LowShelf: {
        const double a = amplitude();
        return coefficients(formulae::lowShelf(c, a, slope(a)));
    }
    case StripBiquadKind::HighShelf: {
        const double a = amplitude();
        return coefficients(formulae::highShelf(c, a, slope(a)));
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
