#include "modules/dehummer/hum_listener.h"

#include "dsp/section_chains.h"

#include <cmath>

namespace velmora {

namespace {

constexpr double kStartHz = 60.0;
constexpr double kGain = 2.0;

double listenQ(int n)
{
    return 40.0 * std::pow(n, 0.35);
}

} // namespace

HumListener::HumListener()
{
    for (std::size_t k = 0; k < listen.size(); ++k) {
        listen[k] = StripBiquad(StripBiquadKind::BandPass, kHeard[k] * kStartHz, listenQ(kHeard[k]));
        listen[k].setEnabled(true);
    }
}

void HumListener::setSampleRate(double hz)
{
    for (StripBiquad& section : listen) section.setSampleRate(hz);
}

void HumListener::setFundamental(double hz)
{
    for (std::size_t k = 0; k < listen.size(); ++k) listen[k].setFrequency(kHeard[k] * hz);
}

void HumListener::reset()
{
    for (StripBiquad& section : listen) section.resetState();
}

void HumListener::process(const double* input, double* output, std::int32_t frames, const PerHarmonic& shares)
{
    std::array<std::array<double, kLongest>, kHeard.size()> heard;
    std::array<BiquadLink, kHeard.size()> links;
    std::array<BiquadChain, kHeard.size()> chains;
    for (std::size_t k = 0; k < kHeard.size(); ++k) {
        links[k] = {&listen[k], heard[k].data()};
        chains[k] = {input, {&links[k], 1}};
    }
    runChains(chains, frames);

    const auto count = static_cast<std::size_t>(frames);
    std::array<double, kLongest> sum{};
    for (std::size_t k = 0; k < kHeard.size(); ++k) {
        const double share = harmonic(shares, kHeard[k]);
        for (std::size_t i = 0; i < count; ++i) sum[i] += heard[k][i] * share;
    }
    for (std::size_t i = 0; i < count; ++i) output[i] = kGain * sum[i];
}

} // namespace velmora
