#pragma once

#include "dsp/flush.h"
#include "modules/eq/eq_band.h"

#include <cmath>

namespace velmora {

/// Gain of a flavour's output stage at drive t, without the guards around 0; 1 for small t.
template <EqFlavour flavour>
double eqSaturate(double y, double t)
{
    constexpr double kSmall = 1e-6; // below it the gain is 1, and 0/0 is near
    constexpr double kHard = 8.0;
    constexpr double kSoft = 16.0;
    constexpr double kJuniperSag = 0.02;

    if constexpr (flavour == EqFlavour::Sorrel) {
        if (std::fabs(t) > kSmall) y = y * std::atan(t / kSoft) * kSoft / t;
    } else if constexpr (flavour == EqFlavour::Tamarin) {
        if (t > kSmall) y = y * std::tanh(t / kSoft) * kSoft / t;
        if (t < -kSmall) y = y * std::atan(t / kHard) * kHard / t;
    } else {
        if (t > kSmall) y = y * std::tanh(t / kHard) * kHard / t;
        if (t < -kSmall) {
            const double u = t / (std::fabs(t) * kJuniperSag + 1.0);
            y = y * std::atan(u / kSoft) * kSoft / t;
        }
    }
    return std::isnan(y) ? 0.0 : y;
}

/// Output stage: a two-pole low-pass of the signal drives the saturation, the signal itself isn't filtered.
class EqSaturation {
public:
    void setSampleRate(double hz);
    void reset() { satLow_ = satBand_ = 0.0; }

    /// One sample. The drive follows the signal with the saturation off too.
    template <EqFlavour flavour>
    double process(double y, bool on)
    {
        const double rate = driveRates_[static_cast<std::size_t>(flavour) - 1];
        satLow_ = flush(satLow_ + (y - satLow_) * rate, kFlush);
        satBand_ = flush(satBand_ + (satLow_ - satBand_) * rate, kFlush);
        return on ? eqSaturate<flavour>(y, satBand_) : y;
    }

private:
    static constexpr double kFlush = 1e-15;

    std::array<double, 3> driveRates_{}; // by flavour
    double satLow_ = 0.0;
    double satBand_ = 0.0;
};

} // namespace velmora
