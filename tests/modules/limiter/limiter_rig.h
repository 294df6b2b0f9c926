#pragma once

#include "engine/audio_record.h"
#include "modules/limiter/strip_effect_limiter.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>
#include <span>
#include <string>
#include <vector>

namespace velmora::test {

using Signal = std::vector<double>;

inline constexpr std::uint32_t kWindow = 192;
inline constexpr std::uint32_t kMeters = 383;

inline double toDb(double gain)
{
    return 20.0 * std::log10(gain);
}
inline double fromDb(double db)
{
    return std::pow(10.0, db / 20.0);
}

inline Signal constant(double level, std::size_t count)
{
    return Signal(count, level);
}

/// Constant magnitude at half the rate: a steady level for a rectifier, far above any shelf.
inline Signal alternating(double level, std::size_t count)
{
    Signal signal(count);
    for (std::size_t i = 0; i < count; ++i) signal[i] = i % 2 == 0 ? level : -level;
    return signal;
}

inline Signal sine(double level, double hz, double sampleRate, std::size_t count)
{
    Signal signal(count);
    for (std::size_t i = 0; i < count; ++i)
        signal[i] = level * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(i) / sampleRate);
    return signal;
}

inline Signal noise(double level, std::size_t count, std::uint64_t seed = 1)
{
    Signal signal(count);
    for (double& x : signal) {
        seed = seed * 6364136223846793005ULL + 1442695040888963407ULL;
        x = level * (static_cast<double>(seed >> 11) * 0x1p-52 - 1.0);
    }
    return signal;
}

inline double peak(std::span<const double> signal)
{
    double result = 0.0;
    for (double x : signal) result = std::max(result, std::fabs(x));
    return result;
}

/// Variants with what names them in a test's output.
struct Variant {
    std::int32_t type;
    const char* name;
};
inline constexpr Variant kVariants[] = {{limiter::kOpto, "Opto"},
                                        {limiter::kVca, "VCA"},
                                        {limiter::kBrickWall, "BrickWall"},
                                        {limiter::kSaturator, "Saturator"}};

/// One limiter with its defaults, driven in place like the engine drives it.
class LimiterRig {
public:
    explicit LimiterRig(std::int32_t type, double rate = 44100.0) : sampleRate(rate)
    {
        module.setSampleRate(rate);
        module.loadDefaults();
        setType(type);
        module.reset();
    }

    void set(ParameterId offset, double value)
    {
        module.setParameter(kWindow + static_cast<std::uint32_t>(offset), value);
    }
    void setType(std::int32_t type) { set(kTypeOffset, type / 15.0); }
    void setCeilingDb(double db) { set(limiter::kCeilingOffset, (db + 40.0) / 50.0); }
    void setOutputDb(double db) { set(limiter::kOutputOffset, (db + 20.0) / 40.0); }
    void setMode(int mode) { set(limiter::kModeOffset, mode / 10.0); }
    void setShape(int shape) { set(limiter::kShapeOffset, shape / 10.0); }
    void setSoft(bool on) { set(limiter::kSoftOffset, on ? 1.0 : 0.0); }

    /// Runs the signal in calls of at most `block` samples; an empty key is silence on the auxiliary pair.
    Signal run(const Signal& input, const Signal& key = {}, std::size_t block = 64)
    {
        Signal left = input;
        Signal right(input.size(), 0.25);
        Signal auxLeft = key.empty() ? Signal(input.size(), 0.0) : key;
        Signal auxRight(input.size(), 0.125);
        for (std::size_t at = 0; at < input.size(); at += block) {
            AudioRecord record;
            record.channels[0] = left.data() + at;
            record.channels[1] = right.data() + at;
            record.channels[2] = auxLeft.data() + at;
            record.channels[3] = auxRight.data() + at;
            const auto count = static_cast<std::int32_t>(std::min(block, input.size() - at));
            module.processMono(record, record, count);
        }
        lastRight = right;
        return left;
    }

    /// Gain on a constant magnitude after it has stood for some seconds.
    double steadyGain(double level, double seconds)
    {
        const Signal out = run(alternating(level, static_cast<std::size_t>(seconds * sampleRate)));
        return std::fabs(out.back()) / level;
    }

    double meter(std::uint32_t index)
    {
        double value = -1.0;
        module.getMeter(kMeters + index, &value);
        return value;
    }
    double reduction() { return meter(limiter::kReductionMeter); }

    StripEffectLimiter module{kWindow, kMeters, 633};
    double sampleRate;
    Signal lastRight; ///< right channel of the last run
};

} // namespace velmora::test
