#include "tools/demo/noise_source.h"
#include "tools/demo/resonator.h"
#include "tools/demo/sources.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace velmora::demo {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kBeatsPerMinute = 110.0;

// One letter for each sixteenth: a hit, a soft hit, or none.
constexpr std::string_view kKick = "x.....x.x.......x..x..x.x.......";
constexpr std::string_view kSnare = "....x..o....x.......x..o....x.oo";
constexpr std::string_view kHat = "x.o.x.o.x.o.x.ooxoo.x.o.x.o.x.o.";

/// Adds a sound at every hit of a pattern. `sound(i)` gives sample i of one hit.
template <typename MakeHit>
void play(Samples& out, double sampleRate, std::string_view pattern, double seconds, double level,
          MakeHit makeHit)
{
    const double step = 60.0 / kBeatsPerMinute / 4.0;
    for (std::size_t s = 0; s < pattern.size(); ++s) {
        if (pattern[s] == '.') continue;
        const double hitLevel = pattern[s] == 'x' ? level : 0.35 * level;
        const auto begin = static_cast<std::size_t>(static_cast<double>(s) * step * sampleRate);
        auto hit = makeHit();
        for (std::size_t i = 0; i < static_cast<std::size_t>(seconds * sampleRate); ++i)
            if (begin + i < out.size()) out[begin + i] += hitLevel * hit(static_cast<double>(i) / sampleRate);
    }
}

/// A skin whose pitch falls from the stroke to its own tone.
double kickAt(double t)
{
    constexpr double kTone = 48.0;
    constexpr double kStroke = 130.0;
    constexpr double kFall = 38.0; ///< per second
    const double cycles = kTone * t + kStroke / kFall * (1.0 - std::exp(-kFall * t));
    return std::exp(-9.0 * t) * std::sin(kTwoPi * cycles);
}

} // namespace

Samples makeDrums(double sampleRate)
{
    const double bars = static_cast<double>(kKick.size()) / 16.0;
    Samples out(static_cast<std::size_t>(bars * 4.0 * 60.0 / kBeatsPerMinute * sampleRate), 0.0);

    play(out, sampleRate, kKick, 0.45, 0.55, [] { return kickAt; });

    NoiseSource noise(1970);
    play(out, sampleRate, kSnare, 0.3, 0.42, [&] {
        Resonator wires;
        wires.tune(3200.0, 4500.0, sampleRate);
        return [&noise, wires](double t) mutable {
            const double skin = std::exp(-22.0 * t) * std::sin(kTwoPi * 188.0 * t);
            return 0.6 * skin + 1.3 * std::exp(-16.0 * t) * wires.process(noise.next());
        };
    });
    play(out, sampleRate, kHat, 0.12, 0.25, [&] {
        Resonator metal;
        metal.tune(10500.0, 5000.0, sampleRate);
        return
            [&noise, metal](double t) mutable { return std::exp(-45.0 * t) * metal.process(noise.next()); };
    });
    return out;
}

} // namespace velmora::demo
