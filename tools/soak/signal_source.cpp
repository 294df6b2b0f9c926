#include "tools/soak/signal_source.h"

#include <limits>
#include <numbers>

namespace velmora::soak {

namespace {

constexpr double kHugeLevel = 1e6;
constexpr double kHumLevel = 0.03;
constexpr double kBreakage = 0.002;   // share of broken samples
constexpr double kBurstDecay = 300.0; // per second

double sine(double cycles)
{
    return std::sin(2.0 * std::numbers::pi * cycles);
}

void advance(double& phase, double cycles)
{
    phase += cycles;
    phase -= std::floor(phase);
}

} // namespace

void SignalSource::choose(SignalKind kind)
{
    kind_ = kind;
    switch (kind) {
    case SignalKind::QuietTone:
        level_ = dice_.octaveBetween(1e-5, 0.1);
        frequency_ = dice_.octaveBetween(10.0, 20000.0);
        break;
    case SignalKind::HugeSquare:
        frequency_ = dice_.octaveBetween(5.0, 20000.0);
        break;
    case SignalKind::HummingMusic:
        frequency_ = dice_.chance(0.5) ? 50.0 : 60.0;
        [[fallthrough]];
    default:
        level_ = dice_.octaveBetween(0.02, 1.0);
        break;
    }
}

void SignalSource::fill(std::span<double> samples, double sampleRate)
{
    for (double& sample : samples) sample = next(sampleRate);
}

double SignalSource::next(double sampleRate)
{
    const double sample = nextOfKind(sampleRate);
    return denormals_ || std::fpclassify(sample) != FP_SUBNORMAL ? sample : 0.0;
}

double SignalSource::nextOfKind(double sampleRate)
{
    switch (kind_) {
    case SignalKind::Silence:
        return 0.0;
    case SignalKind::Music:
        return nextOfMusic(sampleRate);
    case SignalKind::QuietTone:
        return nextOfTone(sampleRate);
    case SignalKind::HummingMusic:
        advance(phase_, frequency_ / sampleRate);
        return nextOfMusic(sampleRate) + kHumLevel * (sine(phase_) + 0.3 * sine(3.0 * phase_));
    case SignalKind::Noise:
        return dice_.between(-1.0, 1.0);
    case SignalKind::Denormals:
        return dice_.between(-1.0, 1.0) * std::numeric_limits<double>::min();
    case SignalKind::HugeSquare:
        return nextOfSquare(sampleRate);
    case SignalKind::Broken:
        return breakSample(nextOfMusic(sampleRate));
    }
    return 0.0;
}

double SignalSource::nextOfMusic(double sampleRate)
{
    const double seconds = 1.0 / sampleRate;
    double sum = 0.0;
    for (Note& note : notes_) {
        note.pause -= seconds;
        if (note.pause <= 0.0) pluck(note);
        advance(note.phase, note.cyclesPerSecond * seconds);
        const double tone = sine(note.phase) + 0.4 * sine(2.0 * note.phase);
        sum += note.level * tone + note.burst * dice_.between(-1.0, 1.0);
        note.level -= note.level * note.decay * seconds;
        note.burst -= note.burst * kBurstDecay * seconds;
    }
    return sum;
}

void SignalSource::pluck(Note& note)
{
    note.cyclesPerSecond = dice_.octaveBetween(40.0, 4000.0);
    note.level = level_ * dice_.between(0.05, 0.6);
    note.burst = level_ * dice_.between(0.0, 0.8);
    note.decay = dice_.octaveBetween(1.0, 40.0);
    note.pause = dice_.octaveBetween(0.03, 0.8);
}

double SignalSource::nextOfTone(double sampleRate)
{
    advance(phase_, frequency_ / sampleRate);
    return level_ * sine(phase_);
}

double SignalSource::nextOfSquare(double sampleRate)
{
    advance(phase_, frequency_ / sampleRate);
    return phase_ < 0.5 ? kHugeLevel : -kHugeLevel;
}

double SignalSource::breakSample(double sample)
{
    using Limits = std::numeric_limits<double>;
    static constexpr std::array kBroken{Limits::quiet_NaN(),
                                        Limits::infinity(),
                                        -Limits::infinity(),
                                        Limits::denorm_min(),
                                        1e-310,
                                        Limits::max(),
                                        -1e30,
                                        -0.0};
    return dice_.chance(kBreakage) ? dice_.pick(kBroken) : sample;
}

} // namespace velmora::soak
