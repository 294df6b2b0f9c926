#pragma once

#include <cstdint>

namespace velmora {

/// Counts the samples since the key last stood above the threshold.
class HoldCounter {
public:
    void restart() { holdCount_ = 0; }

    /// One sample below the threshold. @return true for exactly `holdSamples` samples after a restart.
    bool hold(std::int32_t holdSamples)
    {
        if (holdCount_ >= holdSamples) return false;
        ++holdCount_;
        return true;
    }

private:
    std::int32_t holdCount_ = 0;
};

} // namespace velmora
