#include "modules/dehummer/hum_profile.h"

#include <cmath>

namespace velmora {

namespace {

// Against the fundamental, before Brightness scales them.
constexpr PerHarmonic kBaseWeights{1.0,   0.095, 0.085, 0.073, 0.062, 0.051, 0.04,  0.03,  0.023,
                                   0.019, 0.016, 0.014, 0.012, 0.01,  0.009, 0.007, 0.005, 0.003};

} // namespace

void HumProfile::setEvenOdd(double v)
{
    oddWeight = v > 0.5 ? 2.0 * (1.0 - v) : 1.0;
    evenWeight = v < 0.5 ? 2.0 * v : 1.0;
}

PerHarmonic HumProfile::shares() const
{
    const double scale = std::pow(10.0, 1.0 - brightnessCurve);
    PerHarmonic shares;
    for (int n = 1; n <= kHarmonics; ++n) {
        const double weight = n == 1 ? 1.0 : scale * harmonic(kBaseWeights, n);
        harmonic(shares, n) = (n % 2 != 0 ? oddWeight : evenWeight) * weight;
    }
    return shares;
}

} // namespace velmora
