#pragma once

#include "dsp/flush.h"

#include <algorithm>
#include <cmath>

namespace velmora {

/// How much of the signal the comb takes away: compares slow levels before and behind it.
class HumReduction {
public:
    void setSampleRate(double hz)
    {
        constexpr double kMilli = 0.001;
        constexpr double kResidue = 0.0625; // left of a step after the fall time
        const double fallMs = std::pow(100.0, 1.4);
        step_ = 1.0 - std::pow(kResidue, 1.0 / (fallMs * hz * kMilli));
    }
    void reset() { levelIn = levelOut = 0.0; }

    void follow(double in, double out)
    {
        levelOut = flush(levelOut + (std::fabs(out) - levelOut) * step_, kFlush);
        levelIn = flush(levelIn + (std::fabs(in) - levelIn) * step_, kFlush);
    }

    /// 0 nothing taken .. 1 all.
    double reading() const
    {
        if (levelOut <= kSilence || levelIn <= kSilence) return 0.0;
        return std::clamp(1.0 - (levelOut + kOutBias) / (levelIn + kInBias), 0.0, 1.0);
    }

private:
    static constexpr double kFlush = 1e-14;
    static constexpr double kSilence = 1e-6;
    static constexpr double kOutBias = 1e-5;
    static constexpr double kInBias = 1e-6;

    double levelIn = 0.0;
    double levelOut = 0.0;
    double step_ = 1.0;
};

} // namespace velmora
