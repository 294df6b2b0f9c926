#include "tests/support/measure.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace velmora::test {

namespace {

/// Sum of the signal against a turning phasor. Direct, since the recursive form loses digits at low
/// frequencies.
std::complex<double> correlate(std::span<const double> signal, double frequency, double sampleRate)
{
    const double step = 2.0 * std::numbers::pi * frequency / sampleRate;
    std::complex<double> sum;
    for (std::size_t i = 0; i < signal.size(); ++i)
        sum += signal[i] * std::polar(1.0, -step * static_cast<double>(i));
    return sum;
}

} // namespace

double decibels(double level)
{
    return 20.0 * std::log10(level);
}

double peak(std::span<const double> signal)
{
    double highest = 0.0;
    for (const double x : signal) highest = std::max(highest, std::fabs(x));
    return highest;
}

double rms(std::span<const double> signal)
{
    if (signal.empty()) return 0.0;
    double squares = 0.0;
    for (const double x : signal) squares += x * x;
    return std::sqrt(squares / static_cast<double>(signal.size()));
}

double rmsDb(std::span<const double> signal)
{
    return decibels(rms(signal));
}

std::complex<double> componentAt(std::span<const double> signal, double frequency, double sampleRate)
{
    if (signal.empty()) return {};
    return correlate(signal, frequency, sampleRate) * (2.0 / static_cast<double>(signal.size()));
}

double magnitudeAt(std::span<const double> signal, double frequency, double sampleRate)
{
    return std::abs(componentAt(signal, frequency, sampleRate));
}

double magnitudeDbAt(std::span<const double> signal, double frequency, double sampleRate)
{
    return decibels(magnitudeAt(signal, frequency, sampleRate));
}

double responseDbAt(std::span<const double> impulseResponse, double frequency, double sampleRate)
{
    return decibels(std::abs(correlate(impulseResponse, frequency, sampleRate)));
}

double maxDifference(std::span<const double> a, std::span<const double> b)
{
    if (a.size() != b.size()) return std::numeric_limits<double>::infinity();
    double largest = 0.0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const double difference = std::fabs(a[i] - b[i]);
        if (std::isnan(difference)) return std::numeric_limits<double>::infinity();
        largest = std::max(largest, difference);
    }
    return largest;
}

bool allFinite(std::span<const double> signal)
{
    return std::ranges::all_of(signal, [](double x) { return std::isfinite(x); });
}

} // namespace velmora::test
