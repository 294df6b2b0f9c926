#include "tools/demo/noise_source.h"
#include "tools/demo/resonator.h"
#include "tools/demo/sources.h"

#include <algorithm>
#include <array>

namespace velmora::demo {

namespace {

/// Vocal tract of a vowel: centre frequencies and levels of the formants.
struct Vowel {
    std::array<double, 4> frequencies; ///< Hz
    std::array<double, 4> levels;      ///< linear
};

// Averages of a man's voice as phonetics books give them.
constexpr Vowel kAh{{730, 1090, 2440, 3400}, {1.0, 0.55, 0.12, 0.06}};
constexpr Vowel kEe{{270, 2290, 3010, 3500}, {1.0, 0.22, 0.16, 0.08}};
constexpr Vowel kOh{{570, 840, 2410, 3300}, {1.0, 0.5, 0.05, 0.03}};
constexpr Vowel kEh{{530, 1840, 2480, 3500}, {1.0, 0.3, 0.15, 0.07}};
constexpr std::array<double, 4> kBandwidths{80, 100, 140, 200}; ///< Hz

enum class Sound { Pause, Breath, Voiced, Sibilant };

struct Segment {
    Sound sound;
    double seconds;
    double level;            ///< linear
    double firstPitch = 0.0; ///< Hz
    double lastPitch = 0.0;
    Vowel first = kAh;
    Vowel last = kAh;
};

const std::array<Segment, 15> kPhrase{{
    {Sound::Breath, 0.40, 0.05},
    {Sound::Sibilant, 0.16, 0.16},
    {Sound::Voiced, 0.42, 0.55, 118, 132, kAh, kEe},
    {Sound::Sibilant, 0.14, 0.20},
    {Sound::Voiced, 0.34, 0.75, 140, 126, kEh, kAh},
    {Sound::Voiced, 0.30, 0.40, 126, 104, kAh, kOh},
    {Sound::Pause, 0.18, 0.0},
    {Sound::Breath, 0.32, 0.06},
    {Sound::Voiced, 0.40, 0.30, 104, 112, kOh, kEh},
    {Sound::Sibilant, 0.20, 0.24},
    {Sound::Voiced, 0.36, 0.95, 150, 168, kEe, kAh},
    {Sound::Voiced, 0.44, 0.60, 168, 110, kAh, kOh},
    {Sound::Sibilant, 0.12, 0.12},
    {Sound::Voiced, 0.38, 0.25, 108, 92, kEh, kOh},
    {Sound::Pause, 0.24, 0.0},
}};

double mix(double a, double b, double share)
{
    return a + (b - a) * share;
}

/// Rises and falls over 25 ms at the ends of a segment.
double envelope(double seconds, double length)
{
    constexpr double kEdge = 0.025;
    const double nearest = std::clamp(std::min(seconds, length - seconds) / kEdge, 0.0, 1.0);
    return nearest * nearest * (3.0 - 2.0 * nearest);
}

/// Flow through the vocal folds over one period: opens slowly, closes fast (Rosenberg's pulse), as its slope,
/// which is what leaves the mouth.
double glottalSlope(double phase)
{
    constexpr double kOpening = 0.4;
    constexpr double kClosing = 0.16;
    if (phase < kOpening) return 0.4 * std::sin(std::numbers::pi * phase / kOpening);
    if (phase < kOpening + kClosing) return -std::sin(0.5 * std::numbers::pi * (phase - kOpening) / kClosing);
    return 0.0;
}

class Voice {
public:
    explicit Voice(double sampleRate) : sampleRate_(sampleRate)
    {
        hiss_.tune(6800.0, 3200.0, sampleRate);
        hissTop_.tune(9500.0, 3000.0, sampleRate);
    }

    void speak(const Segment& segment, Samples& out)
    {
        const auto frames = static_cast<std::size_t>(segment.seconds * sampleRate_);
        for (std::size_t i = 0; i < frames; ++i) {
            const double seconds = static_cast<double>(i) / sampleRate_;
            const double share = seconds / segment.seconds;
            if (i % kTuneInterval == 0) tuneTract(segment, share);
            out.push_back(segment.level * envelope(seconds, segment.seconds) * next(segment, share));
        }
    }

private:
    static constexpr std::size_t kTuneInterval = 64;

    void tuneTract(const Segment& segment, double share)
    {
        for (std::size_t f = 0; f < tract_.size(); ++f) {
            tract_[f].tune(mix(segment.first.frequencies[f], segment.last.frequencies[f], share),
                           kBandwidths[f], sampleRate_);
            levels_[f] = mix(segment.first.levels[f], segment.last.levels[f], share);
        }
    }

    double next(const Segment& segment, double share)
    {
        const double white = noise_.next();
        switch (segment.sound) {
        case Sound::Voiced:
            return kVoicedGain *
                   throughTract(pulse(mix(segment.firstPitch, segment.lastPitch, share)) + 0.02 * white);
        case Sound::Breath:
            return kBreathGain * throughTract(white) + 0.3 * hiss_.process(white);
        case Sound::Sibilant:
            return kHissGain * (hiss_.process(white) + 0.6 * hissTop_.process(white));
        case Sound::Pause:
            break;
        }
        return 0.0;
    }

    double pulse(double pitch)
    {
        constexpr double kVibratoHz = 5.2;
        constexpr double kVibratoDepth = 0.012;
        vibrato_ += kVibratoHz / sampleRate_;
        const double wave = std::sin(2.0 * std::numbers::pi * vibrato_);
        phase_ += pitch * (1.0 + kVibratoDepth * wave) / sampleRate_;
        phase_ -= std::floor(phase_);
        return glottalSlope(phase_);
    }

    double throughTract(double source)
    {
        double sum = 0.0;
        // Neighbouring formants meet with opposite signs, or the parallel form has holes between them.
        for (std::size_t f = 0; f < tract_.size(); ++f)
            sum += (f % 2 ? -1.0 : 1.0) * levels_[f] * tract_[f].process(source);
        return sum;
    }

    static constexpr double kVoicedGain = 2.2;
    static constexpr double kBreathGain = 3.0;
    static constexpr double kHissGain = 2.0;

    double sampleRate_;
    NoiseSource noise_{1960};
    std::array<Resonator, 4> tract_;
    std::array<double, 4> levels_{};
    Resonator hiss_;
    Resonator hissTop_;
    double phase_ = 0.0;
    double vibrato_ = 0.0;
};

} // namespace

Samples makeVoice(double sampleRate)
{
    Samples out;
    Voice voice(sampleRate);
    for (const Segment& segment : kPhrase) voice.speak(segment, out);
    return out;
}

} // namespace velmora::demo
