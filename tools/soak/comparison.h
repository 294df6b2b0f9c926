#pragma once

#include "tools/soak/player.h"

#include <cstdint>
#include <string>

namespace velmora::soak {

/// Where a build and another differed most in a run.
struct WorstDifference {
    double difference = 0.0; ///< infinite if only one of the two was a finite number
    std::int64_t frame = -1; ///< counted from the run's start; -1: nowhere
};

/// Compares two builds that play the same scenario, block by block. Outputs are measured relative to the
/// highest output so far, or 1 if that is less. What came in single precision may differ by its last bit.
class Comparison {
public:
    /// @param stripOn false: the input goes straight through, whatever its height, and sets no measure
    void add(const Player& played, const Player& reference, std::int64_t firstFrame, bool stripOn);
    /// Compares the latest readings. @param frame at which they were taken
    void addMeters(const Player& played, const Player& reference, std::int64_t frame);

    const WorstDifference& output() const { return output_; }
    const WorstDifference& meter() const { return meter_; }
    ParameterId worstMeter() const { return worstMeter_; }
    /// The frame of the first sample or meter that wasn't equal; -1: all were.
    std::int64_t firstDifference() const { return firstDifference_; }

private:
    bool note(WorstDifference& worst, double difference, std::int64_t frame);

    double peak_ = 1.0;
    WorstDifference output_;
    WorstDifference meter_;
    ParameterId worstMeter_ = 0;
    std::int64_t firstDifference_ = -1;
};

} // namespace velmora::soak
