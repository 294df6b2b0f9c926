#include "tests/support/signals.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace velmora::test {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

} // namespace

Signal silence(std::size_t frames)
{
    return Signal(frames, 0.0);
}

Signal sine(std::size_t frames, double frequency, double sampleRate, double amplitude)
{
    return burst(frames, 0, frames, frequency, sampleRate, amplitude);
}

Signal noise(std::size_t frames, double amplitude, std::uint64_t seed)
{
    Signal signal(frames);
    std::mt19937_64 generator(seed);
    // The library's distributions differ between implementations; this doesn't.
    for (double& x : signal) x = amplitude * (std::ldexp(static_cast<double>(generator() >> 11), -52) - 1.0);
    return signal;
}

Signal impulse(std::size_t frames, std::size_t at, double amplitude)
{
    Signal signal(frames, 0.0);
    if (at < frames) signal[at] = amplitude;
    return signal;
}

Signal sweep(std::size_t frames, double firstFrequency, double lastFrequency, double sampleRate,
             double amplitude)
{
    const double rise = std::log(lastFrequency / firstFrequency);
    const double length = static_cast<double>(frames);
    Signal signal(frames);
    for (std::size_t i = 0; i < frames; ++i) {
        // Integral of the frequency over time.
        const double cycles = firstFrequency * length / (sampleRate * rise) *
                              std::expm1(rise * static_cast<double>(i) / length);
        signal[i] = amplitude * std::sin(kTwoPi * cycles);
    }
    return signal;
}

Signal burst(std::size_t frames, std::size_t begin, std::size_t end, double frequency, double sampleRate,
             double amplitude)
{
    Signal signal(frames, 0.0);
    const double step = kTwoPi * frequency / sampleRate;
    for (std::size_t i = begin; i < std::min(end, frames); ++i)
        signal[i] = amplitude * std::sin(step * static_cast<double>(i - begin));
    return signal;
}

} // namespace velmora::test
