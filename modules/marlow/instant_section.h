#pragma once

#include "dsp/biquad_design.h"
#include "dsp/flush.h"
#include "dsp/lanes.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmora {

/// Longest block of the dynamic EQ's parts.
inline constexpr std::size_t kMarlowBlock = 64;

/// A value for each sample of a block, in whole vectors.
struct alignas(64) MarlowTrack : std::array<double, kMarlowBlock> {
    /// Length of a block in whole vectors of the widest kind.
    static constexpr std::size_t whole(std::size_t frames) { return (frames + 7) / 8 * 8; }
    /// Puts zeros behind the block's end, as far as vectors reach.
    void closeBehind(std::size_t frames) { std::fill(begin() + frames, begin() + whole(frames), 0.0); }
};

/// What a section is designed from, sample by sample.
struct SectionTracks {
    const MarlowTrack& hz;
    const MarlowTrack& q;
    bool bandStands; ///< frequency and Q are the same throughout
    const MarlowTrack* gainDb = nullptr;
    bool gainStands = true; ///< so is the gain, if there is one
};

/// A section that may be redesigned on every sample: no glide, a new design acts at once. Designs are made
/// for a block at a time, side by side. What moves from sample to sample takes its sine, cosine and powers
/// from the lanes, what stands still from the library, as all other sections do: at low frequencies a last
/// bit that differs for long would be heard in the ninth digit.
class InstantSection {
public:
    void setSampleRate(double hz);
    void reset() { history_ = {}; }

    /// Coefficients for the samples of a block. @param frames 1..kMarlowBlock
    void design(StripBiquadKind kind, const SectionTracks& tracks, std::size_t frames);

    /// What a section remembers of the samples before.
    struct History {
        double x1 = 0.0, x2 = 0.0;
        double y1 = 0.0, y2 = 0.0;
    };
    /// For a loop to keep in registers.
    History history() const { return history_; }
    void setHistory(const History& history) { history_ = history; }

    /// One sample of the block on its coefficients. Heals NaN at input and output.
    VELMORA_KERNEL double process(double x, std::size_t i, History& h) const
    {
        const double x0 = x == x ? x : 0.0;
        const double fed = b0_[i] * x0 + b1_[i] * h.x1 + b2_[i] * h.x2;
        const double y = flush(fed - a1_[i] * h.y1 - a2_[i] * h.y2, kFlush);
        const bool broken = y != y;
        h = {x0, h.x1, broken ? 0.0 : y, broken ? 0.0 : h.y1};
        return h.y1;
    }

private:
    static constexpr double kFlush = 1e-30;

    void holdPrewarp();
    void prewarp(const SectionTracks& tracks, bool kindMoves, std::size_t frames);
    void amplify(const MarlowTrack& gainDb, std::size_t frames);
    void shape(std::size_t length);

    BiquadSettings settings_; ///< of the last sample; kind None until the first design
    BiquadPrewarp libraryPrewarp_;
    double libraryAmplitude_ = 1.0;
    bool prewarpIsLibrary_ = false; ///< the last sample has the library's prewarp
    bool amplitudeIsLibrary_ = false;
    bool prewarpStands_ = false; ///< and it fills its tracks
    bool stands_ = false;        ///< so do the coefficients that follow from both

    MarlowTrack cosine_{}, sine_{}, warpedQ_{}, amplitude_{};
    MarlowTrack b0_{}, b1_{}, b2_{}, a1_{}, a2_{};
    History history_;
};

} // namespace velmora
