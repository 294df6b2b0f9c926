#include "modules/eq/tamarin_design.h"

#include <cmath>

namespace velmora {

namespace {

constexpr auto kBell = StripBiquadKind::Peaking;

constexpr PerWidth<double> kGainStretch{1.0, 1.125, 1.25};
constexpr PerWidth<double> kQFactor{1.0, 1.5, 2.2};
constexpr double kLowMidWideQFactor = 1.05;
constexpr double kCounterShare = -0.17; // of the main bell's gain

constexpr double kOuterBoost = 1.2;
constexpr double kMidBoost = 1.25;
constexpr double kShelfCut = 1.15;
constexpr double kMidCutTop = 1.033;
constexpr double kMidCutBase = 1.25;
constexpr double kMidCut = kMidCutTop * kMidCutBase;
constexpr double kLowMidWideCut = 1.035 * kMidCutBase; // main section only

bool isLowMidWide(EqBand band, EqWidth width)
{
    return band == EqBand::LowMid && width == EqWidth::Wide;
}

double qFactor(EqBand band, EqWidth width)
{
    return isLowMidWide(band, width) ? kLowMidWideQFactor : kQFactor[index(width)];
}

TamarinSections boost(EqBand band, const EqBandSettings& s)
{
    const double m = qFactor(band, s.width);
    const double stretch = kGainStretch[index(s.width)];
    const double push = isMidBand(band) ? kMidBoost : kOuterBoost;
    const double drive = std::fabs(push * s.gainDb);
    const double q = std::pow(10.0, drive * 0.01) * 2.0 * 0.37 * m / (2.0 * std::sqrt(2.0));
    const double counterQ = std::pow(2.2, drive * 0.05) * std::pow(m, 0.25) * 1.2 * q * 1.25;
    return {{kBell, s.frequency, q, push * s.gainDb * stretch},
            {kBell, s.frequency, counterQ, kCounterShare * push * s.gainDb * stretch}};
}

TamarinSections cutHigh(const EqBandSettings& s)
{
    const double m = qFactor(EqBand::High, s.width);
    const double q = std::pow(0.65, s.gainDb / -15.0) * 0.55 * m * 0.85;
    const double gain = kShelfCut * s.gainDb * kGainStretch[index(s.width)];
    return {{StripBiquadKind::HighShelf, 0.5 * s.frequency, q, gain},
            {kBell, s.frequency, std::pow(m, 0.5) * q * 1.6, 0.0}};
}

TamarinSections cutLow(const EqBandSettings& s)
{
    const double m = qFactor(EqBand::Low, s.width);
    const double q = 0.4 * m;
    const double gain = kShelfCut * s.gainDb * kGainStretch[index(s.width)];
    return {{StripBiquadKind::LowShelf, 2.0 * s.frequency, q, gain},
            {kBell, 2.0 * s.frequency, std::pow(m, 0.25) * q * 2.8, 0.0}};
}

TamarinSections cutMid(EqBand band, const EqBandSettings& s)
{
    const double m = qFactor(band, s.width);
    const double stretch = kGainStretch[index(s.width)];
    const double q = std::pow(10.0, std::fabs(s.gainDb) * 0.02) * 2.0 * 0.71 * 1.1 * m / 4.0;
    const double deepen = isLowMidWide(band, s.width) ? kLowMidWideCut : kMidCut;
    const double counterGain = kCounterShare * kMidCutTop * kMidCutBase * s.gainDb * stretch;
    return {{kBell, s.frequency, q, deepen * s.gainDb * stretch},
            {kBell, s.frequency, std::pow(m, 0.25) * q * 0.35, counterGain}};
}

} // namespace

TamarinSections tamarinSections(EqBand band, const EqBandSettings& s)
{
    if (s.gainDb >= 0.0) return boost(band, s);
    if (band == EqBand::High) return cutHigh(s);
    if (band == EqBand::Low) return cutLow(s);
    return cutMid(band, s);
}

} // namespace velmora
