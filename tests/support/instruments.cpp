#include "tests/support/instruments.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace velmora::test {
namespace {

constexpr double kSeconds = 3.0;
constexpr double kPeak = 0.5;
constexpr double kTwoPi = 2.0 * std::numbers::pi;

/// Noise of +-1.
class Hiss {
public:
    explicit Hiss(unsigned seed) : generator_(seed) {}
    double next() { return std::ldexp(static_cast<double>(generator_()), -31) - 1.0; }

private:
    std::mt19937 generator_;
};

/// Two-pole band pass with a peak gain of 1.
class Band {
public:
    Band(double hertz, double width, double sampleRate)
    {
        const double radius = std::exp(-std::numbers::pi * width / sampleRate);
        gain_ = 0.5 * (1.0 - radius * radius);
        a1_ = 2.0 * radius * std::cos(kTwoPi * hertz / sampleRate);
        a2_ = -radius * radius;
    }
    double process(double x)
    {
        const double y = gain_ * (x - x2_) + a1_ * y1_ + a2_ * y2_;
        x2_ = x1_;
        x1_ = x;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

private:
    double gain_ = 0.0, a1_ = 0.0, a2_ = 0.0;
    double x1_ = 0.0, x2_ = 0.0, y1_ = 0.0, y2_ = 0.0;
};

class Studio {
public:
    explicit Studio(double sampleRate) : rate_(sampleRate) {}

    Signal play(Instrument instrument)
    {
        switch (instrument) {
        case Instrument::Kick:
            return kick();
        case Instrument::Snare:
            return mix({{snare(), 1.0}, {hiHat(), 0.04}, {kick(), 0.03}});
        case Instrument::HiHat:
            return mix({{hiHat(), 1.0}, {snare(), 0.06}});
        case Instrument::Toms:
            return toms();
        case Instrument::Overheads:
            return mix({{cymbals(), 0.5}, {hiHat(), 0.35}, {snare(), 0.5}, {kick(), 0.25}});
        case Instrument::Room:
            return inRoom(drumKit());
        case Instrument::DrumKit:
            return drumKit();
        case Instrument::Bass:
            return bass();
        case Instrument::PickedGuitar:
            return plucked(
                {{0.0, 164.8}, {0.4, 196.0}, {0.8, 246.9}, {1.2, 329.6}, {1.6, 246.9}, {2.2, 196.0}});
        case Instrument::StrummedGuitar:
            return strummed();
        case Instrument::Piano:
            return piano();
        case Instrument::Pad:
            return ensemble({110.0, 164.8, 220.0, 277.2}, 0.5, 2500.0);
        case Instrument::Strings:
            return ensemble({146.8, 220.0, 293.7, 440.0}, 0.18, 7000.0);
        case Instrument::Brass:
            return brass();
        case Instrument::MaleVoice:
            return voice(118.0, 1.0);
        case Instrument::FemaleVoice:
            return voice(215.0, 1.17);
        case Instrument::FullMix:
            break;
        }
        return mix({{drumKit(), 1.0},
                    {bass(), 0.5},
                    {ensemble({220.0, 277.2, 329.6}, 0.3, 4000.0), 0.3},
                    {voice(118.0, 1.0), 0.6}});
    }

private:
    struct Part {
        Signal signal;
        double level;
    };
    struct Note {
        double start; ///< seconds
        double hertz;
    };

    Signal tape() const { return Signal(static_cast<std::size_t>(kSeconds * rate_), 0.0); }

    static void normalise(Signal& signal, double level)
    {
        double peak = 0.0;
        for (const double x : signal) peak = std::max(peak, std::fabs(x));
        for (double& x : signal) x *= level / peak;
    }

    /// The sum, each part brought to the same peak before its level.
    Signal mix(std::vector<Part> parts) const
    {
        Signal out = tape();
        for (Part& part : parts) {
            normalise(part.signal, part.level);
            for (std::size_t i = 0; i < out.size(); ++i) out[i] += part.signal[i];
        }
        return out;
    }

    /// Adds `sound(seconds)` from a start on.
    template <typename Sound>
    void addTo(Signal& out, double start, double seconds, double level, Sound sound) const
    {
        const auto begin = static_cast<std::size_t>(start * rate_);
        const auto frames = static_cast<std::size_t>(seconds * rate_);
        for (std::size_t i = 0; i < frames && begin + i < out.size(); ++i)
            out[begin + i] += level * sound(static_cast<double>(i) / rate_);
    }

    /// A skin whose pitch falls from the stroke to its own tone.
    static double skin(double t, double tone, double stroke, double decay)
    {
        constexpr double kFall = 38.0; // per second
        return std::exp(-decay * t) *
               std::sin(kTwoPi * (tone * t + stroke / kFall * (1.0 - std::exp(-kFall * t))));
    }

    Signal kick() const
    {
        Signal out = tape();
        for (const double start : {0.1, 0.6, 1.1, 1.6, 2.1, 2.6}) {
            Hiss hiss(11);
            Band beater(3500.0, 3000.0, rate_);
            addTo(out, start, 0.45, 1.0, [&](double t) {
                return skin(t, 52.0, 130.0, 9.0) + std::exp(-180.0 * t) * beater.process(hiss.next());
            });
        }
        return out;
    }

    Signal snare() const
    {
        Signal out = tape();
        for (const double start : {0.35, 0.85, 1.35, 1.85, 2.35, 2.85}) {
            Hiss hiss(23);
            Band wires(4200.0, 5000.0, rate_);
            addTo(out, start, 0.35, 1.0, [&](double t) {
                return 0.6 * skin(t, 188.0, 60.0, 22.0) + 0.25 * skin(t, 331.0, 60.0, 26.0) +
                       1.2 * std::exp(-16.0 * t) * wires.process(hiss.next());
            });
        }
        return out;
    }

    /// Six square waves of a plate, and hiss, above 7 kHz.
    Signal metal(std::initializer_list<double> starts, double decay, double seconds) const
    {
        constexpr std::array<double, 6> kPlate{2051.0, 3042.0, 3693.0, 5225.0, 5401.0, 7998.0};
        Signal out = tape();
        Hiss hiss(37);
        for (const double start : starts) {
            Band ring(9500.0, 6000.0, rate_);
            addTo(out, start, seconds, 1.0, [&](double t) {
                double squares = 0.0;
                for (const double hertz : kPlate)
                    squares += std::sin(kTwoPi * hertz * t) > 0.0 ? 0.15 : -0.15;
                return std::exp(-decay * t) * ring.process(squares + 0.6 * hiss.next());
            });
        }
        return out;
    }

    Signal hiHat() const
    {
        Signal out = metal({0.1, 0.35, 0.6, 0.85, 1.1, 1.35, 1.6, 1.85, 2.1, 2.35, 2.6}, 40.0, 0.2);
        const Signal open = metal({0.475, 1.475, 2.475}, 9.0, 0.35);
        for (std::size_t i = 0; i < out.size(); ++i) out[i] += 0.7 * open[i];
        return out;
    }

    Signal cymbals() const { return metal({0.1, 1.6}, 1.8, 1.5); }

    Signal toms() const
    {
        Signal out = tape();
        double start = 0.1;
        for (const double tone : {165.0, 165.0, 120.0, 82.0, 165.0, 120.0, 82.0}) {
            Hiss hiss(41);
            Band stick(2500.0, 2500.0, rate_);
            addTo(out, start, 0.7, 1.0, [&](double t) {
                return skin(t, tone, 45.0, 6.0) + 0.6 * std::exp(-120.0 * t) * stick.process(hiss.next());
            });
            start += 0.4;
        }
        return out;
    }

    Signal drumKit() const
    {
        return mix({{kick(), 1.0}, {snare(), 0.8}, {hiHat(), 0.25}, {cymbals(), 0.12}});
    }

    /// Parallel combs, their times without common factors.
    Signal inRoom(const Signal& dry) const
    {
        Signal out = tape();
        for (const double seconds : {0.0297, 0.0371, 0.0411, 0.0437}) {
            const auto delay = static_cast<std::size_t>(seconds * rate_);
            Signal comb(dry.size(), 0.0);
            for (std::size_t i = delay; i < dry.size(); ++i) {
                comb[i] = dry[i - delay] + 0.72 * comb[i - delay];
                out[i] += 0.25 * comb[i];
            }
        }
        for (std::size_t i = 0; i < out.size(); ++i) out[i] += 0.3 * dry[i];
        return out;
    }

    /// A sum of partials, each with its own share and decay.
    template <typename Share, typename Decay>
    void strike(Signal& out, const Note& note, double seconds, int partials, double stiffness, Share share,
                Decay decay) const
    {
        for (int n = 1; n <= partials; ++n) {
            const double hertz = n * note.hertz * std::sqrt(1.0 + stiffness * n * n);
            if (hertz > 0.4 * rate_) break;
            addTo(out, note.start, seconds, share(n), [&](double t) {
                return std::exp(-decay(n) * t) * (1.0 - std::exp(-600.0 * t)) * std::sin(kTwoPi * hertz * t);
            });
        }
    }

    Signal bass() const
    {
        Signal out = tape();
        const std::array<Note, 6> notes{
            {{0.05, 41.2}, {0.55, 55.0}, {1.05, 61.7}, {1.55, 41.2}, {2.05, 73.4}, {2.55, 49.0}}};
        for (const Note& note : notes)
            strike(
                out, note, 0.48, 30, 0.0001, [](int n) { return std::fabs(std::sin(0.6 * n)) / n; },
                [](int n) { return 1.2 + 0.7 * n; });
        return out;
    }

    Signal piano() const
    {
        Signal out = tape();
        const std::array<std::array<double, 4>, 3> chords{
            {{110.0, 220.0, 277.2, 329.6}, {98.0, 196.0, 246.9, 392.0}, {73.4, 220.0, 293.7, 440.0}}};
        for (std::size_t chord = 0; chord < chords.size(); ++chord)
            for (const double hertz : chords[chord])
                strike(
                    out, {0.05 + 0.95 * static_cast<double>(chord), hertz}, 1.0, 20, 0.0004,
                    [](int n) { return std::exp(-0.28 * n); }, [](int n) { return 1.5 + 0.5 * n; });
        return out;
    }

    /// A delay line that averages two neighbours on each round: a plucked string.
    void pluck(Signal& out, const Note& note, double level, unsigned seed) const
    {
        Hiss hiss(seed);
        Signal line(static_cast<std::size_t>(rate_ / note.hertz));
        for (double& x : line) x = hiss.next();
        std::size_t at = 0;
        addTo(out, note.start, 1.2, level, [&](double) {
            const std::size_t next = (at + 1) % line.size();
            const double y = line[at];
            line[at] = 0.497 * (line[at] + line[next]);
            at = next;
            return y;
        });
    }

    Signal plucked(std::initializer_list<Note> notes) const
    {
        Signal out = tape();
        unsigned seed = 51;
        for (const Note& note : notes) pluck(out, note, 1.0, seed++);
        return out;
    }

    Signal strummed() const
    {
        Signal out = tape();
        unsigned seed = 71;
        for (const double start : {0.05, 0.55, 0.8, 1.3, 1.8, 2.05, 2.55}) {
            double delay = 0.0;
            for (const double hertz : {82.4, 123.5, 164.8, 207.7, 246.9, 329.6}) {
                pluck(out, {start + delay, hertz}, 0.4, seed++);
                delay += 0.012;
            }
        }
        return out;
    }

    /// Detuned players with vibrato. @param attack seconds. @param brightness corner of their spectrum in Hz
    Signal ensemble(std::initializer_list<double> pitches, double attack, double brightness) const
    {
        Signal out = tape();
        Hiss hiss(91);
        for (const double pitch : pitches)
            for (int player = 0; player < 3; ++player) {
                const double hertz = pitch * (1.0 + 0.003 * hiss.next());
                const double start = hiss.next();
                for (int n = 1; n * hertz < std::min(12000.0, 0.4 * rate_); ++n) {
                    const double share = 1.0 / (n * (1.0 + std::pow(n * hertz / brightness, 2.0)));
                    if (share < 1e-3) break;
                    addTo(out, 0.05, kSeconds - 0.2, share, [&](double t) {
                        const double vibrato = 0.0006 * std::sin(kTwoPi * (5.1 * t + start));
                        const double edge = std::min({1.0, t / attack, (kSeconds - 0.2 - t) / attack});
                        return edge * std::sin(kTwoPi * (n * hertz * (t + vibrato) + start * n));
                    });
                }
            }
        return out;
    }

    Signal brass() const
    {
        Signal out = tape();
        const std::array<Note, 4> notes{{{0.05, 233.1}, {0.75, 293.7}, {1.45, 349.2}, {2.15, 261.6}}};
        for (const Note& note : notes)
            for (int n = 1; n <= 24; ++n)
                addTo(out, note.start, 0.6, 1.0, [&](double t) {
                    const double swell = std::min(1.0, t / 0.06) * std::clamp((0.6 - t) / 0.08, 0.0, 1.0);
                    // The louder, the brighter.
                    return swell * std::exp(-(0.12 + 0.5 * (1.0 - swell)) * n) *
                           std::sin(kTwoPi * n * note.hertz * t);
                });
        return out;
    }

    /// Syllables of a pulse through three formants, breaths and sibilants between them.
    Signal voice(double pitch, double formantScale) const
    {
        constexpr std::array<std::array<double, 3>, 4> kVowels{
            {{730, 1090, 2440}, {270, 2290, 3010}, {570, 840, 2410}, {530, 1840, 2480}}};
        Signal out = tape();
        Hiss hiss(101);
        double start = 0.05;
        for (std::size_t syllable = 0; syllable < 6; ++syllable) {
            Band sibilance(6800.0, 2500.0, rate_);
            addTo(out, start, 0.13, 0.9, [&](double t) {
                return std::sin(std::numbers::pi * t / 0.13) * sibilance.process(hiss.next());
            });
            std::vector<Band> tract;
            for (const double hertz : kVowels[syllable % 4])
                tract.emplace_back(formantScale * hertz, 80.0 + 0.03 * hertz, rate_);
            const double hertz = pitch * (1.0 + 0.12 * std::sin(1.7 * static_cast<double>(syllable)));
            double phase = 0.0;
            addTo(out, start + 0.12, 0.34, 1.0, [&](double t) {
                phase += hertz * (1.0 + 0.01 * std::sin(kTwoPi * 5.2 * t)) / rate_;
                phase -= std::floor(phase);
                // Slope of the flow through the vocal folds: opens slowly, closes fast.
                const double pulse = phase < 0.4    ? 0.4 * std::sin(std::numbers::pi * phase / 0.4)
                                     : phase < 0.56 ? -std::sin(0.5 * std::numbers::pi * (phase - 0.4) / 0.16)
                                                    : 0.0;
                const double source = pulse + 0.02 * hiss.next();
                const double edge = std::clamp(std::min(t, 0.34 - t) / 0.03, 0.0, 1.0);
                return edge *
                       (tract[0].process(source) - 0.5 * tract[1].process(source) +
                        0.2 * tract[2].process(source)) *
                       3.0;
            });
            start += 0.48;
        }
        return out;
    }

    double rate_;
};

} // namespace

Signal playInstrument(Instrument instrument, double sampleRate)
{
    Signal out = Studio(sampleRate).play(instrument);
    double peak = 0.0;
    for (const double x : out) peak = std::max(peak, std::fabs(x));
    for (double& x : out) x *= kPeak / peak;
    return out;
}

} // namespace velmora::test
