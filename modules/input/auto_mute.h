#pragma once

#include "modules/input/noise_generator.h"

#include <array>
#include <cstdint>
#include <memory>

namespace velmora::preamp {

/// Opens the noise while there is signal above about -60 dB and closes it with the signal.
///
/// The level is the highest of a window of 0.15 s, estimated by sixteen random taps into a ring of levels, so
/// the cost doesn't grow with the rate. The ring's memory is left untouched until the first sample.
class AutoMute {
public:
    AutoMute();

    void reset(double sampleRate); ///< the ring keeps its levels

    /// @param level of this sample, linear. @return the noise's gain, 0..1.
    double process(double level, NoiseGenerator& taps)
    {
        level = windowMaximum(level, taps);
        muteEnvelope_ = follow(muteEnvelope_, level);
        if (muteEnvelope_ > kThreshold) muteEnvelope_ = kThreshold;
        double v = muteEnvelope_ / (kThreshold + 0.0000001);
        for (double& follower : muteFollow_) v = follower = follow(follower, v);
        return v;
    }

private:
    static constexpr std::uint32_t kHistorySize = 65536; // above 0.15 s at 384000 Hz
    static constexpr std::uint32_t kHistoryMask = kHistorySize - 1;
    static constexpr int kTaps = 16;
    static constexpr double kWindow = 0.15;     // seconds
    static constexpr double kThreshold = 0.001; // -60 dB
    static constexpr double kFlush = 1e-30;     // silence would leave denormals in the followers

    double windowMaximum(double level, NoiseGenerator& taps);
    double follow(double state, double input) const;

    std::unique_ptr<double[]> muteHistory_;
    std::uint32_t muteIndex_ = kHistoryMask;
    std::uint32_t lowestWritten_ = kHistoryMask; ///< below it the ring holds nothing yet, which counts as 0
    double sampleRate_ = 0.0;
    double muteAttack_ = 0.0;
    double muteRelease_ = 0.0;
    double muteEnvelope_ = 0.0;
    std::array<double, 3> muteFollow_{};
};

} // namespace velmora::preamp
