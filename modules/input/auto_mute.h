#pragma once

#include "modules/input/noise_generator.h"
#include "modules/input/rails.h"

#include <array>
#include <cstdint>
#include <memory>

namespace velmora::preamp {

/// Opens the noise while there is signal above about -60 dB and closes it with the signal.
///
/// The level is the highest of a window of 0.15 s, estimated by sixteen random taps into a ring of levels, so
/// the cost doesn't grow with the rate; a sample that holds the noise open by itself needs none. The ring's
/// memory is left untouched until the first sample.
class AutoMute {
public:
    AutoMute();

    void reset(double sampleRate); ///< the ring keeps its levels

    /// Turns a block of levels, linear, into the noise's gains, 0..1.
    /// @param taps gives sixteen values for each sample. @range count 0..64
    void run(RailBlock& levels, int count, NoiseGenerator& taps);

private:
    static constexpr std::uint32_t kHistorySize = 65536; // above 0.15 s at 384000 Hz
    static constexpr std::uint32_t kHistoryMask = kHistorySize - 1;
    static constexpr std::size_t kTaps = 16;
    static constexpr double kWindow = 0.15;     // seconds
    static constexpr double kThreshold = 0.001; // -60 dB
    static constexpr double kFlush = 1e-30;     // silence would leave denormals in the followers

    using Ages = std::array<std::int64_t, kTaps>; // of a sample's taps, in samples

    template <typename V>
    VELMORA_KERNEL void runBlock(RailBlock& levels, int count, NoiseGenerator& taps);
    template <typename V>
    VELMORA_KERNEL void toAges(Ages& words) const;
    VELMORA_KERNEL double windowMaximum(double level, const Ages& ages) const;

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
