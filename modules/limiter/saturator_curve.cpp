#include "modules/limiter/saturator_curve.h"

#include <cmath>

namespace velmora::limiter {

namespace {

constexpr double kValveDrive = 0.33;
constexpr double kTiny = 1e-8; // at or below it, the curves that divide by the level are 1

double valve1(double t)
{
    return 1.0 / (kValveDrive * std::sqrt(t) + 1.0);
}
double valve2(double t)
{
    return 1.0 / (kValveDrive * t + 1.0);
}
double tape1(double t)
{
    return t > kTiny ? std::atan(t) / t : 1.0;
}
double tape2(double t)
{
    return t > kTiny ? std::tanh(t) / t : 1.0;
}
double softClip(double t)
{
    return t > kTiny ? std::sqrt(std::tanh(t * t)) / t : 1.0;
}
// Two square roots would be cheaper, but differ in the last bit: at a high rate the post-emphasis, whose
// poles lie next to 1, raises that to almost 1e-9 of the peak.
double hardClip(double t)
{
    return t > kTiny ? std::pow(std::tanh(t * t * t * t), 0.25) / t : 1.0;
}

template <typename Use>
void withCurve(SaturatorShape shape, Use use)
{
    switch (shape) {
    case SaturatorShape::Valve1:
        use([](double t) { return valve1(t); });
        break;
    case SaturatorShape::Valve2:
        use([](double t) { return valve2(t); });
        break;
    case SaturatorShape::Tape1:
        use([](double t) { return tape1(t); });
        break;
    case SaturatorShape::Tape2:
        use([](double t) { return tape2(t); });
        break;
    case SaturatorShape::SoftClip:
        use([](double t) { return softClip(t); });
        break;
    case SaturatorShape::HardClip:
        use([](double t) { return hardClip(t); });
        break;
    }
}

} // namespace

void saturatorGains(SaturatorShape shape, double* levels, int count)
{
    withCurve(shape, [levels, count](auto curve) {
        for (int i = 0; i < count; ++i) levels[i] = curve(levels[i]);
    });
}

} // namespace velmora::limiter
