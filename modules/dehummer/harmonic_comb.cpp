#include "modules/dehummer/harmonic_comb.h"

#include "dsp/section_chains.h"

#include <cmath>

namespace velmora {

namespace {

constexpr double kStartHz = 60.0;

// Narrower with rising harmonics, but wider in Hz.
double cutQ(int n)
{
    return 30.0 * std::pow(n, 0.4);
}

} // namespace

HarmonicComb::HarmonicComb()
{
    for (int n = 1; n <= kHarmonics; ++n) {
        StripBiquad& section = notch[static_cast<std::size_t>(n - 1)];
        section = StripBiquad(StripBiquadKind::Peaking, n * kStartHz, cutQ(n));
        section.setEnabled(true);
    }
}

void HarmonicComb::setSampleRate(double hz)
{
    for (StripBiquad& section : notch) section.setSampleRate(hz);
}

void HarmonicComb::setFundamental(double hz)
{
    for (int n = 1; n <= kHarmonics; ++n) notch[static_cast<std::size_t>(n - 1)].setFrequency(n * hz);
}

void HarmonicComb::setGains(const PerHarmonic& db)
{
    for (std::size_t k = 0; k < notch.size(); ++k) notch[k].setGainDb(db[k]);
}

void HarmonicComb::reset()
{
    for (StripBiquad& section : notch) section.resetState();
}

void HarmonicComb::process(double* audio, std::int32_t frames)
{
    runInSeries(notch, audio, frames);
}

} // namespace velmora
