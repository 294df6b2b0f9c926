#pragma once

#include "tools/soak/dice.h"

#include <array>
#include <cstdint>
#include <span>

namespace velmora::soak {

/// What may stand at an input of the strip.
enum class SignalKind {
    Silence,
    Music,     ///< plucked notes with noisy attacks, and pauses
    QuietTone, ///< a steady sine, -100 to -20 dB
    HummingMusic,
    Noise, ///< white, full scale
    Denormals,
    HugeSquare, ///< a square wave of 1e6, far above anything that a host sends
    Broken,     ///< music with NaN, infinities, denormals and giants among the samples
};

/// A stream of test samples. The same for the same seed and calls.
class SignalSource {
public:
    explicit SignalSource(std::uint64_t seed) : dice_(seed) {}

    /// Goes on with another kind of signal.
    void choose(SignalKind kind);
    /// Samples smaller than the least normal double become zero from now on.
    void leaveOutDenormals() { denormals_ = false; }
    /// @param sampleRate Hz
    void fill(std::span<double> samples, double sampleRate);

private:
    static constexpr std::size_t kVoices = 3;

    /// A decaying note of two partials, its attack a burst of noise.
    struct Note {
        double phase = 0.0;
        double cyclesPerSecond = 110.0;
        double level = 0.0;
        double burst = 0.0;
        double decay = 0.0; ///< per second
        double pause = 0.0; ///< seconds until the next
    };

    double next(double sampleRate);
    double nextOfKind(double sampleRate);
    double nextOfMusic(double sampleRate);
    double nextOfTone(double sampleRate);
    double nextOfSquare(double sampleRate);
    double breakSample(double sample);
    void pluck(Note& note);

    Dice dice_;
    bool denormals_ = true;
    SignalKind kind_ = SignalKind::Silence;
    std::array<Note, kVoices> notes_;
    double level_ = 0.5;
    double frequency_ = 50.0;
    double phase_ = 0.0;
};

} // namespace velmora::soak
