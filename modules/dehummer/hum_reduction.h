#pragma once

#include "dsp/flush.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// Slow level of a magnitude. Four samples are a straight line in the level, so it steps once for four; they
/// are counted through the blocks, and what a block's last ones make of the level is worked out when asked,
/// so readings don't depend on how the audio is cut.
class SlowLevel {
public:
    /// @param step 0..1 per sample
    void setStep(double step)
    {
        step_ = step;
        keep_ = 1.0 - step;
        keep2_ = keep_ * keep_;
        keep4_ = keep2_ * keep2_;
    }
    void reset() { level_ = 0.0, count_ = 0; }

    void follow(const double* x, std::int32_t frames)
    {
        std::int32_t i = 0;
        while (i < frames && count_ != 0) take(x[i++]);
        for (; i + 4 <= frames; i += 4) stepFour(x + i);
        while (i < frames) take(x[i++]);
    }

    double value() const
    {
        double level = level_;
        for (std::size_t i = 0; i < count_; ++i)
            level = flush(level + (std::fabs(waiting_[i]) - level) * step_, kFlush);
        return level;
    }

private:
    static constexpr double kFlush = 1e-14;

    void take(double x)
    {
        waiting_[count_++] = x;
        if (count_ < waiting_.size()) return;
        stepFour(waiting_.data());
        count_ = 0;
    }

    void stepFour(const double* x)
    {
        const double early = std::fabs(x[0]) * keep_ + std::fabs(x[1]);
        const double late = std::fabs(x[2]) * keep_ + std::fabs(x[3]);
        level_ = flush(level_ * keep4_ + (early * keep2_ + late) * step_, kFlush);
    }

    double level_ = 0.0; ///< before those that wait
    double step_ = 1.0;
    double keep_ = 0.0, keep2_ = 0.0, keep4_ = 0.0; ///< share that stays after 1, 2, 4 samples
    std::array<double, 4> waiting_{};
    std::size_t count_ = 0;
};

/// How much of the signal the comb takes away: compares slow levels before and behind it.
class HumReduction {
public:
    void setSampleRate(double hz)
    {
        constexpr double kMilli = 0.001;
        constexpr double kResidue = 0.0625; // left of a step after the fall time
        const double fallMs = std::pow(100.0, 1.4);
        const double step = 1.0 - std::pow(kResidue, 1.0 / (fallMs * hz * kMilli));
        levelIn.setStep(step);
        levelOut.setStep(step);
    }
    void reset()
    {
        levelIn.reset();
        levelOut.reset();
    }

    void follow(const double* in, const double* out, std::int32_t frames)
    {
        levelIn.follow(in, frames);
        levelOut.follow(out, frames);
    }

    /// 0 nothing taken .. 1 all.
    double reading() const
    {
        const double in = levelIn.value();
        const double out = levelOut.value();
        if (out <= kSilence || in <= kSilence) return 0.0;
        return std::clamp(1.0 - (out + kOutBias) / (in + kInBias), 0.0, 1.0);
    }

private:
    static constexpr double kSilence = 1e-6;
    static constexpr double kOutBias = 1e-5;
    static constexpr double kInBias = 1e-6;

    SlowLevel levelIn;
    SlowLevel levelOut;
};

} // namespace velmora
