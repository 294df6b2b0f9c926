#pragma once

#include "modules/input/noise_generator.h"
#include "modules/input/rails.h"
#include "modules/input/saturation_meter.h"

#include <array>
#include <cstdint>

namespace velmora::preamp {

/// Converter of the 90s: sampling with a jittering clock, a 16-bit successive approximation with imperfect
/// weights, and a requantiser of fewer bits with a gain range. Delays by about 1.5 samples.
class VintageConverter {
public:
    void reset() { history_ = {}; }

    /// Both rails in place. @param jitter gives the sampling instants, common to both rails.
    /// @param meterShare per-sample share of the overload reading.
    void process(RailBlocks& signal, int count, NoiseGenerator& jitter, SaturationMeter& meter,
                 double meterShare);

    /// Code 0..65535 of an input of 0..65535, by successive approximation.
    static std::int32_t approximate(double w);
    /// Coarser steps for larger values. @param c four times a code without its offset.
    static std::int32_t requantise(std::int32_t c);

private:
    /// The last three inputs of a rail, newest first.
    struct History {
        double x1 = 0.0, x2 = 0.0, x3 = 0.0;
    };

    static double interpolate(double x0, double t, History& h);

    std::array<History, kRails> history_{};
};

} // namespace velmora::preamp
