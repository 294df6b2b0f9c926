#pragma once

#include "modules/expander/strip_effect_expander.h"
#include "tests/support/module_rig.h"

#include <numbers>

namespace velmora::test {

/// The dynamics module with a threshold of -20 dB, floor 0, the shortest hold and an exponential release.
struct ExpanderRig : ModuleRig<StripEffectExpander, 80, 371> {
    enum Id {
        SideChain = 4,
        Monitor,
        Attack = 16,
        Release,
        Ratio,
        Hold,
        Threshold,
        Shape,
        Range,
        HpfIn,
        HpfFreq,
        LpfIn,
        LpfFreq
    };
    enum Type { Expander = 1, Gate, Ducker };
    static constexpr double kThreshold = 0.1;
    static constexpr std::uint32_t kReduction = 2; // meter

    explicit ExpanderRig(int type, double sampleRate = 44100.0) : ModuleRig(type, sampleRate)
    {
        set(Threshold, 40.0 / 60.0);
        set(Hold, 0.0);
        set(Shape, 0.0);
        set(Range, 0.0);
    }

    /// Gain of each sample while the key follows `key`, read off a constant main signal.
    Signal gains(const Signal& key)
    {
        set(SideChain, 1.0);
        const Signal ones(key.size(), 1.0);
        return run({ones, ones, key, key})[0];
    }
    /// Gain after the key has stood at a level for some seconds.
    double steadyGain(double level, double seconds = 2.0)
    {
        return gains(Signal(samples(seconds), level)).back();
    }

    static Signal sine(std::size_t count, double level, double hz, double rate)
    {
        Signal x(count);
        for (std::size_t i = 0; i < count; ++i)
            x[i] = level * std::sin(2.0 * std::numbers::pi * hz / rate * static_cast<double>(i));
        return x;
    }
};

/// Index of the first value at or below a level.
inline std::size_t firstBelow(const Signal& x, double level)
{
    return static_cast<std::size_t>(
        std::find_if(x.begin(), x.end(), [level](double v) { return v <= level; }) - x.begin());
}

/// Index of the first value at or above a level.
inline std::size_t firstAbove(const Signal& x, double level)
{
    return static_cast<std::size_t>(
        std::find_if(x.begin(), x.end(), [level](double v) { return v >= level; }) - x.begin());
}

} // namespace velmora::test
