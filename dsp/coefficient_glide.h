#pragma once

#include "dsp/biquad_design.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// Moves a section from one design to the next through valid filters: zeros, poles and gain travel in a
/// straight line, and the coefficients are rebuilt from them on every sample of the way.
class CoefficientGlide {
public:
    // Zero and pole pairs as real and imaginary parts, then the gain.
    enum Root : std::size_t { Z1Re, Z1Im, Z2Re, Z2Im, P1Re, P1Im, P2Re, P2Im, Gain, kRoots };
    using Roots = std::array<double, kRoots>;

    /// Unity filter, at rest. @param length samples of a whole glide.
    void init(std::uint32_t length);

    /// Starts a whole glide from wherever the roots stand to those of `target`.
    void aim(const BiquadCoefficients& target);

    /// Replaces the target without a glide; the roots don't follow. For sections that run on the target
    /// alone.
    void setTarget(const BiquadCoefficients& target) { target_ = target; }

    /// Lands roots and coefficients on the target.
    void snap();

    /// Lands the coefficients on the target; the roots stay where they are.
    void snapCoefficients()
    {
        current_ = target_;
        left_ = 0;
    }

    /// One sample onwards. @return the coefficients for this sample; exactly the target's when at rest.
    const BiquadCoefficients& advance()
    {
        if (left_ == 0) return target_;
        step();
        return current_;
    }

    bool gliding() const { return left_ != 0; }
    std::uint32_t samplesLeft() const { return left_; }
    std::uint32_t length() const { return length_; }
    const BiquadCoefficients& target() const { return target_; }
    /// Coefficients of the last sample's recursion.
    const BiquadCoefficients& current() const { return left_ == 0 ? target_ : current_; }

    /// For kernels that move many glides at once: where the roots stand, what a sample adds to them, and the
    /// way back. @param roots after the last sample that glided. @param samplesLeft at most as many as
    /// before.
    const Roots& roots() const { return roots_; }
    const Roots& increments() const { return increments_; }
    void resume(const Roots& roots, std::uint32_t samplesLeft)
    {
        roots_ = roots;
        left_ = samplesLeft;
        rebuild();
    }

private:
    static Roots rootsOf(const BiquadCoefficients& c);

    void step()
    {
        for (std::size_t i = 0; i < kRoots; ++i) roots_[i] += increments_[i];
        --left_;
        rebuild();
    }

    void rebuild()
    {
        const Roots& r = roots_;
        const double g = r[Gain];
        current_.a0 = 1.0;
        current_.b0 = g;
        current_.b1 = -(r[Z1Re] + r[Z2Re]) * g;
        current_.b2 = (r[Z1Re] * r[Z2Re] - r[Z1Im] * r[Z2Im]) * g;
        current_.a1 = -(r[P1Re] + r[P2Re]);
        current_.a2 = r[P1Re] * r[P2Re] - r[P1Im] * r[P2Im];
    }

    BiquadCoefficients current_;
    BiquadCoefficients target_;
    Roots roots_{};
    Roots targetRoots_{};
    Roots increments_{};
    std::uint32_t left_ = 0;
    std::uint32_t length_ = 0;
};

} // namespace velmora
