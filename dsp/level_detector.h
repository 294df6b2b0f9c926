#pragma once

#include "dsp/flush.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// How fast a level detector follows: shares of the distance that it covers per sample, 0..1, rising not
/// slower than falling.
class LevelRates {
public:
    static constexpr std::size_t kGroup = 4; ///< samples that the block form takes in one step

    LevelRates() : LevelRates(1.0, 0.0) {}
    LevelRates(double attackShare, double releaseShare) : attack(attackShare), release(releaseShare)
    {
        for (std::size_t rises = 0; rises <= kGroup; ++rises)
            groupKeep[rises] = std::pow(1.0 - attack, static_cast<double>(rises)) *
                               std::pow(1.0 - release, static_cast<double>(kGroup - rises));
    }

    double attack;
    double release;
    std::array<double, kGroup + 1> groupKeep{}; ///< what a group of so many rises leaves of the level
};

/// Follows the magnitude of a signal by one pole that rises at another rate than it falls. A sample that is
/// no number stays in the level until a reset.
/// @unit linear level in and out.
class LevelDetector {
public:
    void reset(double level = 0.0) { level_ = level; }
    double level() const { return level_; }
    bool operator==(const LevelDetector&) const = default;

    void process(double x, const LevelRates& rates)
    {
        const double magnitude = std::fabs(x);
        const double share = magnitude > level_ ? rates.attack : rates.release;
        level_ = flush(level_ + (magnitude - level_) * share, kFlush);
    }

    /// Ends where `process` over all samples would, but for rounding.
    void processBlock(const double* x, std::int32_t frames, const LevelRates& rates);
    /// The same for two at once, such as the sides of a pair, for little more than one costs; for no more
    /// while they stand alike and see the same samples.
    static void processBlocks(LevelDetector& left, const double* xLeft, LevelDetector& right,
                              const double* xRight, std::int32_t frames, const LevelRates& rates);

private:
    void land(double level, const double* x, std::int32_t frames, const LevelRates& rates);

    static constexpr double kFlush = 1e-14;

    double level_ = 0.0;
};

} // namespace velmora
