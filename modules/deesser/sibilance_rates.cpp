#include "modules/deesser/sibilance_rates.h"

#include <cmath>
#include <numbers>

namespace velmora {

SibilanceRates sibilanceRates(double frequency, double sampleRate)
{
    // One-pole step of a cutoff that lies a share of the detection frequency above a floor in Hz.
    const auto rate = [=](double share, double floor) {
        const double cutoff = share * frequency + floor;
        return 1.0 - std::exp(-2.0 * std::numbers::pi * cutoff / sampleRate);
    };
    return {
        .riseFast = rate(0.125, 2000.0),
        .fallFast = rate(0.001, 25.0),
        .riseSlow = rate(0.0625, 500.0),
        .fallSlow = rate(0.0002, 3.5),
        .recover = rate(0.002, 10.0),
    };
}

} // namespace velmora
