#pragma once

#include "dsp/lanes.h"

#include <cmath>
#include <type_traits>

namespace velmora {

/// Gives way to loud material of a section's own band, as a coil near saturation does.
/// @tparam T double for one section, a lane vector for several side by side.
template <typename T>
struct Softening {
    T depth{};         ///< of the band's level, linear
    T lowTrackRate{};  ///< share per sample
    T bandTrackRate{}; ///< share per sample
    T lowTrack{};      ///< one-pole low-pass of the output
    T bandTrack{};     ///< low-passed rest above it

    /// One sample of the section's clean output.
    VELMORA_KERNEL T process(const T& y)
    {
        lowTrack = flushLanes<T>(lowTrack + (y - lowTrack) * lowTrackRate, kFlush);
        bandTrack = flushLanes<T>(bandTrack + ((y - lowTrack) - bandTrack) * bandTrackRate, kFlush);
        const T divisor = 1.0 + magnitude(bandTrack) * depth;
        return y / divisor * kSoftShare + y * kCleanShare;
    }

private:
    static constexpr double kFlush = 1e-30;
    static constexpr double kSoftShare = 0.125; // of the output; the rest stays clean
    static constexpr double kCleanShare = 0.875;

    static VELMORA_KERNEL T magnitude(const T& v)
    {
        if constexpr (std::is_same_v<T, double>)
            return std::fabs(v);
        else
            return absLanes<T>(v);
    }
};

} // namespace velmora
