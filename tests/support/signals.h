#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

/// Test signals, one channel each. Frequencies in Hz, amplitudes linear.
namespace velmora::test {

using Signal = std::vector<double>;

Signal silence(std::size_t frames);
/// A sine that starts at phase 0.
Signal sine(std::size_t frames, double frequency, double sampleRate, double amplitude = 1.0);
/// White noise, evenly spread over +-amplitude; the same for the same seed.
Signal noise(std::size_t frames, double amplitude = 1.0, std::uint64_t seed = 1);
Signal impulse(std::size_t frames, std::size_t at = 0, double amplitude = 1.0);
/// A sine whose frequency rises by a constant factor per second.
Signal sweep(std::size_t frames, double firstFrequency, double lastFrequency, double sampleRate,
             double amplitude = 1.0);
/// A sine that sounds from `begin` up to `end` only.
Signal burst(std::size_t frames, std::size_t begin, std::size_t end, double frequency, double sampleRate,
             double amplitude = 1.0);

} // namespace velmora::test
