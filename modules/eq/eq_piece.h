#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "modules/eq/eq_band.h"

namespace velmora {

/// Two-pole low-pass of the signal, which drives the saturation behind the filter.
struct DriveFollower {
    double rate = 0.0; ///< share per sample
    double low = 0.0;
    double band = 0.0;

    VELMORA_KERNEL double follow(double y)
    {
        low = flush(low + (y - low) * rate, kFlush);
        band = flush(band + (low - band) * rate, kFlush);
        return band;
    }

private:
    static constexpr double kFlush = 1e-15;
};

/// A piece of audio on its way through a filter, what the bands add to it, and what follows the filter sample
/// by sample.
struct EqPiece {
    static constexpr std::size_t kMaxFrames = 64;
    using Row = std::array<double, kMaxFrames>;
    using MixRows = std::array<PerBand<double>, kMaxFrames>;

    std::int32_t frames = 0; ///< 1 .. kMaxFrames
    const double* input = nullptr;

    bool fading = false; ///< false: the first row of `mix` holds for all samples
    MixRows mix;         ///< how far each band is faded in, 0 dry .. 1

    bool gainMoving = false; ///< false: the first `gain` holds for all samples
    Row gain;                ///< of the output, linear
    DriveFollower follower;  ///< follows the output
    Row output;              ///< with the gain on it
    Row drive;               ///< of the saturation

    double mixAt(std::int32_t n, EqBand band) const
    {
        return mix[fading ? static_cast<std::size_t>(n) : 0][index(band)];
    }
    double gainAt(std::int32_t n) const { return gain[gainMoving ? static_cast<std::size_t>(n) : 0]; }
};

/// Gives a filter's samples out in their order. It is to be used while the filter runs: its recursion is as
/// slow as that of a section and hides behind it.
class EqPieceWriter {
public:
    VELMORA_KERNEL explicit EqPieceWriter(EqPiece& piece) : piece_(piece), follower_(piece.follower) {}

    VELMORA_KERNEL void write(std::int32_t n, double y)
    {
        const double louder = y * piece_.gainAt(n);
        piece_.output[static_cast<std::size_t>(n)] = louder;
        piece_.drive[static_cast<std::size_t>(n)] = follower_.follow(louder);
    }

    /// Makes it count; without it the piece may be written once more.
    VELMORA_KERNEL void finish() { piece_.follower = follower_; }

private:
    EqPiece& piece_;
    DriveFollower follower_; // a copy stays in registers
};

} // namespace velmora
