#include "modules/deesser/sibilance_filters.h"

#include "dsp/section_chains.h"

namespace velmora {

namespace {

constexpr double kStartFrequency = 1000.0;
constexpr double kCrossoverQ = 0.7;
constexpr double kBellDb = -6.0;

// Well below the band, and closer to it the narrower it is.
double crossoverHz(double frequency, double q)
{
    return (0.05 * q + 1.0) * frequency * 0.25;
}

StripBiquad crossover(StripBiquadKind kind)
{
    return StripBiquad(kind, kStartFrequency, kCrossoverQ);
}

} // namespace

SibilanceFilters::SibilanceFilters()
    : splitHighA(crossover(StripBiquadKind::HighPass)),
      splitHighB(crossover(StripBiquadKind::HighPass)),
      splitLowA(crossover(StripBiquadKind::LowPass)),
      splitLowB(crossover(StripBiquadKind::LowPass)),
      detectBand(StripBiquadKind::BandPass),
      detectBell(StripBiquadKind::Peaking, kStartFrequency, 1.0, kBellDb)
{
    forEachSection([](StripBiquad& section) { section.setEnabled(true); });
}

template <typename Action>
void SibilanceFilters::forEachSection(Action action)
{
    for (StripBiquad* section : {&splitHighA, &splitHighB, &splitLowA, &splitLowB, &detectBand, &detectBell})
        action(*section);
}

void SibilanceFilters::setSampleRate(double hz)
{
    forEachSection([hz](StripBiquad& section) { section.setSampleRate(hz); });
}

void SibilanceFilters::setBand(double frequency, double q)
{
    detectBand.setDesign(StripBiquadKind::BandPass, frequency, q, 0.0);
    detectBell.setDesign(StripBiquadKind::Peaking, frequency, q, kBellDb);
    const double split = crossoverHz(frequency, q);
    for (StripBiquad* section : {&splitHighA, &splitHighB, &splitLowA, &splitLowB})
        section->setFrequency(split);
}

void SibilanceFilters::process(const double* x, Bands& bands, std::int32_t frames)
{
    const std::array<BiquadLink, 4> high{{{&splitHighA},
                                          {&splitHighB, bands.high.data()},
                                          {&detectBand},
                                          {&detectBell, bands.detected.data()}}};
    const std::array<BiquadLink, 2> low{{{&splitLowA}, {&splitLowB, bands.low.data()}}};
    const std::array<BiquadChain, 2> chains{{{x, high}, {x, low}}};
    runChains(chains, frames);
}

void SibilanceFilters::reset()
{
    forEachSection([](StripBiquad& section) { section.resetState(); });
}

} // namespace velmora
