#pragma once

#include "modules/input/strip_effect_input.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <memory>
#include <numbers>
#include <vector>

namespace velmora::test {

using Signal = std::vector<double>;

inline constexpr double kRate = 44100.0;

inline double db(double ratio)
{
    return 20.0 * std::log10(std::fabs(ratio));
}

inline Signal sine(double amplitude, double hz, double seconds, double rate = kRate)
{
    Signal signal(static_cast<std::size_t>(seconds * rate));
    for (std::size_t i = 0; i < signal.size(); ++i)
        signal[i] = amplitude * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(i) / rate);
    return signal;
}

inline Signal silence(double seconds, double rate = kRate)
{
    return Signal(static_cast<std::size_t>(seconds * rate), 0.0);
}

/// Complex amplitude of a frequency in signal[from, from + count).
inline std::complex<double> tone(const Signal& signal, double hz, std::size_t from, std::size_t count,
                                 double rate = kRate)
{
    std::complex<double> sum;
    for (std::size_t i = 0; i < count; ++i)
        sum += signal[from + i] *
               std::polar(1.0, -2.0 * std::numbers::pi * hz * static_cast<double>(from + i) / rate);
    return sum * std::complex<double>(0.0, 2.0) / static_cast<double>(count); // a sine reads real
}

inline double rms(const Signal& signal, std::size_t from, std::size_t count)
{
    double sum = 0.0;
    for (std::size_t i = from; i < from + count; ++i) sum += signal[i] * signal[i];
    return std::sqrt(sum / static_cast<double>(count));
}

inline double peak(const Signal& signal, std::size_t from = 0)
{
    double top = 0.0;
    for (std::size_t i = from; i < signal.size(); ++i) top = std::max(top, std::fabs(signal[i]));
    return top;
}

/// A preamp by the offsets of its parameters and meters.
class InputRig {
public:
    enum Offset {
        kType = 0,
        kGain = 16,
        kAutoIn,
        kRefLevel,
        kDetect,
        kUpDown,
        kPhaseL,
        kPhaseR,
        kAnalog,
        kDrive,
        kNoiseIn,
        kNoiseLevel
    };

    explicit InputRig(int typeIndex = 1, double sampleRate = kRate) : rate(sampleRate) { prepare(typeIndex); }

    /// A unit with the given set of component values.
    static InputRig unit(int index, int typeIndex, double sampleRate = kRate)
    {
        InputRig rig(typeIndex, sampleRate);
        while (rig.module->instanceIndex() != index) rig.module = make();
        rig.prepare(typeIndex);
        return rig;
    }

    void set(int offset, double value) { module->setParameter(16u + static_cast<unsigned>(offset), value); }
    double meter(int offset) const
    {
        double value = -1.0;
        module->getMeter(361u + static_cast<unsigned>(offset), &value);
        return value;
    }

    /// Runs a copy of the signal in calls of `block` frames. @return the left channel.
    Signal run(Signal left, std::size_t block = 64)
    {
        right = left;
        AudioRecord record;
        for (std::size_t at = 0; at < left.size(); at += block) {
            record.channels[0] = left.data() + at;
            record.channels[1] = right.data() + at;
            module->processMono(record, record, static_cast<int>(std::min(block, left.size() - at)));
        }
        return left;
    }

    double rate;
    std::unique_ptr<StripEffectInput> module = make();
    Signal right; ///< the other channel of the last run

private:
    static std::unique_ptr<StripEffectInput> make()
    {
        return std::make_unique<StripEffectInput>(16u, 361u, 438u);
    }
    void prepare(int typeIndex)
    {
        set(kType, typeIndex / 15.0);
        set(kDrive, 0.5);
        module->setSampleRate(rate);
        module->reset();
    }
};

} // namespace velmora::test
