#include "modules/expander/release_shape.h"

namespace velmora {

namespace {

constexpr double kMilli = 0.001;
constexpr double kStraightPower = 0.0625;

// Stretch of the time constant that keeps the release time, fitted over the shape.
double timeCorrection(double s)
{
    return 1.0 - 0.5721 * s + 9.0385 * s * s - 3.5531 * s * s * s - 4.8688 * s * s * s * s +
           2.7155 * s * s * s * s * s;
}

} // namespace

double dynamicsAttackRate(double attackMs, double sampleRate)
{
    return 1.0 - std::pow(kDynamicsResidue, 1.0 / (sampleRate * attackMs * kMilli));
}

ReleaseShape makeReleaseShape(double shape, double releaseMs, double sampleRate)
{
    const double samples = timeCorrection(shape) * sampleRate * releaseMs * kMilli;
    return {std::pow(kStraightPower, shape * shape), 1.0 - std::pow(kDynamicsResidue, 1.0 / samples)};
}

} // namespace velmora
