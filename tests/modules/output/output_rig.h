#pragma once

#include "modules/output/strip_effect_output.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <numbers>
#include <vector>

namespace velmora::test {

inline constexpr std::uint32_t kWindow = 224;
inline constexpr std::uint32_t kMeters = 387;

enum class Form { Mono, Stereo };

/// What came out of a run, by channel.
struct Rendered {
    std::vector<double> left;
    std::vector<double> right;
};

/// The master control in its fixed role, with a test signal in front of it.
class OutputRig {
public:
    enum Id : std::uint32_t { Type = 0, Clear = 4, Width = 16, Balance, Gain, MeasurementPoint };
    enum Reading : std::uint32_t { InLevel, OutLevel, PeakL, PeakR, RmsL, RmsR, ClipL, ClipR };

    explicit OutputRig(double rate = 44100.0) : module(kWindow, kMeters, 672), rate_(rate)
    {
        module.setSampleRate(rate);
        module.reset();
    }

    void set(std::uint32_t offset, double value) { module.setParameter(kWindow + offset, value); }
    double read(std::uint32_t meter)
    {
        double value = -1.0;
        module.getMeter(kMeters + meter, &value);
        return value;
    }
    double rate() const { return rate_; }

    /// Runs the two signals in place through the module, cut into pieces of at most `piece` samples.
    Rendered run(std::vector<double> left, std::vector<double> right, Form form, std::size_t piece = 64)
    {
        for (std::size_t at = 0; at < left.size(); at += piece) {
            const auto frames = static_cast<std::int32_t>(std::min(piece, left.size() - at));
            AudioRecord record;
            record.channels[0] = left.data() + at;
            record.channels[1] = right.data() + at;
            if (form == Form::Mono)
                module.processMono(record, record, frames);
            else
                module.processStereo(record, record, frames);
        }
        return {std::move(left), std::move(right)};
    }
    std::vector<double> run(const std::vector<double>& x, std::size_t piece = 64)
    {
        return run(x, x, Form::Mono, piece).left;
    }

    std::size_t samples(double seconds) const { return static_cast<std::size_t>(seconds * rate_); }
    std::vector<double> constant(double seconds, double level) const
    {
        return std::vector<double>(samples(seconds), level);
    }
    std::vector<double> sine(double seconds, double amplitude, double hz = 1000.0) const
    {
        std::vector<double> x(samples(seconds));
        for (std::size_t i = 0; i < x.size(); ++i)
            x[i] = amplitude * std::sin(2.0 * std::numbers::pi * hz / rate_ * static_cast<double>(i));
        return x;
    }

    StripEffectOutput module;

private:
    double rate_;
};

} // namespace velmora::test
