#pragma once

#include <algorithm>
#include <cstdint>

namespace velmora::render {

/// Watches the gain-reduction meter of a strip (1 - gain). A limiter's meter swings in from full reduction
/// when the limiter starts, so what it shows until it has settled counts only if nothing else comes.
class ReductionReading {
public:
    explicit ReductionReading(double sampleRate)
        : settlingFrames_(static_cast<std::int64_t>(kSettlingSeconds * sampleRate))
    {
    }
    /// A limiter starts.
    void settle() { settlingLeft_ = settlingFrames_; }

    /// Takes the reading behind a block.
    void add(double reading, std::int64_t frames)
    {
        latest_ = reading;
        settlingLeft_ -= std::min(frames, settlingLeft_);
        if (settlingLeft_ > 0) return;
        highest_ = std::max(highest_, reading);
        settled_ = true;
    }
    double highest() const { return settled_ ? highest_ : latest_; }

private:
    /// Four times the meter's time of recovery; what is left then is 0.001 dB.
    static constexpr double kSettlingSeconds = 1.2;

    std::int64_t settlingFrames_;
    std::int64_t settlingLeft_ = 0;
    double latest_ = 0.0;
    double highest_ = 0.0;
    bool settled_ = false;
};

} // namespace velmora::render
