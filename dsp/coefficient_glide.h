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
        move(roots_, increments_);
        --left_;
        current_ = coefficientsOf(roots_);
        return current_;
    }

    /// That many samples onwards, 1 to `samplesLeft()`; `use` takes the coefficients of each.
    template <typename Use>
    void advance(std::uint32_t samples, Use use)
    {
        Roots roots = roots_; // locals stay in registers
        const Roots increments = increments_;
        for (std::uint32_t n = 0; n < samples; ++n) {
            move(roots, increments);
            use(coefficientsOf(roots));
        }
        resume(roots, left_ - samples);
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
        current_ = coefficientsOf(roots);
    }

private:
    static Roots rootsOf(const BiquadCoefficients& c);

    static void move(Roots& roots, const Roots& increments)
    {
        for (std::size_t i = 0; i < kRoots; ++i) roots[i] += increments[i];
    }

    static BiquadCoefficients coefficientsOf(const Roots& r)
    {
        const double g = r[Gain];
        return {.a0 = 1.0,
                .a1 = -(r[P1Re] + r[P2Re]),
                .a2 = r[P1Re] * r[P2Re] - r[P1Im] * r[P2Im],
                .b0 = g,
                .b1 = -(r[Z1Re] + r[Z2Re]) * g,
                .b2 = (r[Z1Re] * r[Z2Re] - r[Z1Im] * r[Z2Im]) * g};
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
