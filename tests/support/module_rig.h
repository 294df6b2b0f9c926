#pragma once

#include "engine/strip_effect.h"
#include "tests/support/gap.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <random>
#include <vector>

namespace velmora::test {

using Signal = std::vector<double>;
/// Main left and right, auxiliary left and right.
using Channels = std::array<Signal, 4>;

enum class Form { Mono, Stereo };

inline double toDb(double gain)
{
    return 20.0 * std::log10(gain);
}

inline Signal noise(std::size_t count, double level, unsigned seed = 1)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> uniform(-level, level);
    Signal signal(count);
    for (double& x : signal) x = uniform(random);
    return signal;
}

inline double peakOf(const Signal& signal, std::size_t from = 0)
{
    double peak = 0.0;
    for (std::size_t i = from; i < signal.size(); ++i) peak = std::max(peak, std::fabs(signal[i]));
    return peak;
}

inline double largestDifference(const Signal& a, const Signal& b, std::size_t from = 0)
{
    double worst = 0.0;
    for (std::size_t i = from; i < a.size(); ++i) worst = std::max(worst, gapBetween(a[i], b[i]));
    return worst;
}

/// A module in its fixed role with its defaults, driven in place as the engine does it.
template <typename Module, std::uint32_t kWindow, std::uint32_t kMeters>
class ModuleRig {
public:
    explicit ModuleRig(int type, double sampleRate = 44100.0) : rate(sampleRate)
    {
        module.setSampleRate(rate);
        module.loadDefaults();
        setType(type);
        module.reset();
    }

    void set(int offset, double value)
    {
        module.setParameter(kWindow + static_cast<std::uint32_t>(offset), value);
    }
    void setType(int type) { set(kTypeOffset, type / 15.0); }
    double meter(std::uint32_t index)
    {
        double value = -1.0;
        module.getMeter(kMeters + index, &value);
        return value;
    }
    std::size_t samples(double seconds) const { return static_cast<std::size_t>(seconds * rate); }

    Channels run(Channels channels, std::size_t block = 64, Form form = Form::Mono)
    {
        const std::size_t total = channels[0].size();
        for (std::size_t at = 0; at < total; at += block) {
            AudioRecord record;
            for (std::size_t c = 0; c < channels.size(); ++c) record.channels[c] = channels[c].data() + at;
            const auto frames = static_cast<std::int32_t>(std::min(block, total - at));
            if (form == Form::Mono)
                module.processMono(record, record, frames);
            else
                module.processStereo(record, record, frames);
        }
        return channels;
    }
    /// Mono form on a signal with a silent auxiliary pair.
    Signal run(const Signal& x) { return run({x, x, Signal(x.size()), Signal(x.size())})[0]; }

    /// Writes random values to random ids while noise of 1e6 runs. @return the largest output; infinite if
    /// anything stopped being finite, or a meter fell below 0.
    double hammer(int blocks, int types, unsigned seed)
    {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        double peak = 0.0;
        for (int block = 0; block < blocks; ++block) {
            const int offset = static_cast<int>(32.0 * unit(random));
            if (offset == kTypeOffset)
                setType(static_cast<int>(types * unit(random)));
            else
                set(offset, unit(random));
            const Signal x = noise(64, 1e6, seed + static_cast<unsigned>(block));
            const Channels out = run({x, x, x, x}, 64, block % 5 == 0 ? Form::Stereo : Form::Mono);
            bool sound = true;
            for (const Signal& channel : out)
                for (double v : channel) {
                    sound = sound && std::isfinite(v);
                    peak = std::max(peak, std::fabs(v));
                }
            for (std::uint32_t m = 0; m < 2; ++m) sound = sound && std::isfinite(meter(m)) && meter(m) >= 0.0;
            if (!sound) return HUGE_VAL;
        }
        return peak;
    }

    Module module{kWindow, kMeters, 0};
    double rate;
};

} // namespace velmora::test
