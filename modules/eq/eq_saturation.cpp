#include "modules/eq/eq_saturation.h"

#include <numbers>

namespace velmora {

namespace {

constexpr std::array<double, 3> kDriveHz{3500.0, 2500.0, 1500.0}; // by flavour

} // namespace

void EqSaturation::setSampleRate(double hz)
{
    for (std::size_t i = 0; i < kDriveHz.size(); ++i)
        driveRates_[i] = 1.0 - std::exp(-2.0 * std::numbers::pi * kDriveHz[i] / hz);
}

} // namespace velmora
