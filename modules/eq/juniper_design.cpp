#include "modules/eq/juniper_design.h"

#include <cmath>

namespace velmora {

namespace {

constexpr PerWidth<double> kSteepness{1.0, 1.41, 2.0};
constexpr PerWidth<double> kLowSteepness{1.0, 1.4, 2.0};

constexpr double kPerDecibel = 0.05; // exponent of 10 for a dB of amplitude
constexpr double kOuterShare = 0.88;
constexpr double kMidShare = 0.75;

// A Narrow cut approaches this depth.
constexpr double kNarrowCutDb = 13.5;
constexpr double kNarrowCutDrive = 0.82;
constexpr double kNarrowCutScaleDb = 9.0;

} // namespace

EqSectionSettings juniperShelfSplit(EqBand band, const EqBandSettings& s)
{
    if (band == EqBand::Low)
        return {StripBiquadKind::HighPass, 0.5 * s.frequency, 0.5 * kLowSteepness[index(s.width)], 0.0};
    return {StripBiquadKind::LowPass, s.frequency / 1.5, 0.5 * kSteepness[index(s.width)], 0.0};
}

JuniperBellSplit juniperBellSplit(const EqBandSettings& s)
{
    const double w = kSteepness[index(s.width)];
    const double steepness = s.gainDb < 0.0 ? w * 0.5 : w;
    const double q = 0.5 * steepness;
    return {{StripBiquadKind::LowPass, s.frequency * std::pow(0.5, 1.0 / steepness), q, 0.0},
            {StripBiquadKind::HighPass, s.frequency * std::pow(2.0, 1.0 / steepness), q, 0.0}};
}

double juniperBandGain(EqBand band, const EqBandSettings& s)
{
    const double g = s.gainDb;
    if (!isMidBand(band)) return std::pow(10.0, g * kPerDecibel * kOuterShare);
    if (s.width == EqWidth::Narrow && g < 0.0) {
        const double db = std::tanh(g * kNarrowCutDrive / kNarrowCutScaleDb) * kNarrowCutDb;
        return std::pow(10.0, db * kPerDecibel);
    }
    const double widthLoss = std::pow(0.9, std::sqrt(static_cast<double>(index(s.width))));
    return std::pow(10.0, g * kPerDecibel * kMidShare / widthLoss);
}

double juniperRestGain(const EqBandSettings& s)
{
    return std::pow(10.0, s.gainDb * kPerDecibel * kMidShare);
}

} // namespace velmora
