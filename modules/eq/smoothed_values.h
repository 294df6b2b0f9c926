#pragma once

#include "dsp/flush.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// Values that move to their targets by a one-pole step per sample until rounding stops them. A block asks
/// once whether they still move, so that values at rest cost nothing per sample.
template <std::size_t count>
class SmoothedValues {
public:
    using Values = std::array<double, count>;

    /// @param flushLevel denormal guard, see dsp/flush.h.
    SmoothedValues(double flushLevel, double value) : flushLevel_(flushLevel) { values_.fill(value); }

    void reset(const Values& values) { values_ = values; }
    const Values& values() const { return values_; }

    /// A block onwards. @param step share of the way per sample, 0..1. @param put takes the values of each
    /// sample: put(n, values).
    template <typename Put>
    void advance(const Values& targets, double step, std::int32_t frames, Put put)
    {
        Values values = values_; // a local stays in registers
        for (std::int32_t n = 0; n < frames; ++n) {
            for (std::size_t i = 0; i < count; ++i) values[i] = next(values[i], targets[i], step);
            put(static_cast<std::size_t>(n), values);
        }
        values_ = values;
    }

    /// Whether `advance` would leave all values as they are.
    bool resting(const Values& targets, double step) const
    {
        bool rests = true;
        for (std::size_t i = 0; i < count; ++i) rests &= next(values_[i], targets[i], step) == values_[i];
        return rests;
    }

private:
    double next(double value, double target, double step) const
    {
        return flush(value + (target - value) * step, flushLevel_);
    }

    double flushLevel_;
    Values values_;
};

} // namespace velmora
