#pragma once

#include "dsp/lanes.h"
#include "dsp/strip_biquad.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

namespace velmora {

/// The last lane of `before`, then all but the last of `v`.
template <typename V>
VELMORA_KERNEL V shiftIn(const V& before, const V& v)
{
    if constexpr (kLaneCount<V> == 2)
        return __builtin_shufflevector(before, v, 1, 2);
    else if constexpr (kLaneCount<V> == 4)
        return __builtin_shufflevector(before, v, 3, 4, 5, 6);
    else
        return __builtin_shufflevector(before, v, 7, 8, 9, 10, 11, 12, 13, 14);
}

template <typename V>
VELMORA_KERNEL bool anyNan(const V& v)
{
    const MaskOf<V> lost = v != v;
    std::int64_t any = 0;
    for (std::size_t k = 0; k < kLaneCount<V>; ++k) any |= lost[k];
    return any != 0;
}

/// The sections of a vector, lane by lane; null where a lane is idle. Their `parts` are as `StripBiquad`'s.
template <typename V, typename Section = StripBiquad>
using LaneSections = std::array<Section*, kLaneCount<V>>;

/// In place of a mask that is set in all lanes.
struct EveryLane {};

/// `choose` for lanes of doubles that knows `EveryLane`.
template <typename V>
VELMORA_KERNEL V where(const EveryLane&, const V& a, const V&)
{
    return a;
}
template <typename V>
VELMORA_KERNEL V where(const MaskOf<V>& mask, const V& a, const V& b)
{
    return choose<V>(mask, a, b);
}

/// The words of the lanes that a mask marks, 0 in the others.
template <typename V>
VELMORA_KERNEL MaskOf<V> wordsWhere(const EveryLane&, const MaskOf<V>& words)
{
    return words;
}
template <typename V>
VELMORA_KERNEL MaskOf<V> wordsWhere(const MaskOf<V>& mask, const MaskOf<V>& words)
{
    return mask ? words : MaskOf<V>{};
}

/// Coefficient glides of sections side by side, with the bits of `CoefficientGlide`.
template <typename V>
class GlideLanes {
public:
    template <typename Section>
    VELMORA_KERNEL void load(const LaneSections<V, Section>& sections)
    {
        for (std::size_t k = 0; k < sections.size(); ++k) {
            if (sections[k] == nullptr) continue;
            const CoefficientGlide& glide = sections[k]->parts().glide;
            left_[k] = glide.samplesLeft();
            for (std::size_t i = 0; i < kRoots; ++i) {
                roots_[i][k] = glide.roots()[i];
                increments_[i][k] = glide.increments()[i];
            }
        }
    }

    template <typename Section>
    VELMORA_KERNEL void store(const LaneSections<V, Section>& sections) const
    {
        for (std::size_t k = 0; k < sections.size(); ++k) {
            if (sections[k] == nullptr || !sections[k]->parts().glide.gliding()) continue;
            CoefficientGlide::Roots roots;
            for (std::size_t i = 0; i < kRoots; ++i) roots[i] = roots_[i][k];
            sections[k]->parts().glide.resume(roots, static_cast<std::uint32_t>(left_[k]));
        }
    }

    /// One sample onwards in the lanes that `runs` marks. @return the lanes whose coefficients glide.
    template <typename Mask>
    VELMORA_KERNEL MaskOf<V> advance(const Mask& runs)
    {
        const MaskOf<V> moves = wordsWhere<V>(runs, left_) > 0;
        left_ += moves; // a set lane is -1
        for (std::size_t i = 0; i < kRoots; ++i)
            roots_[i] = choose<V>(moves, roots_[i] + increments_[i], roots_[i]);
        return moves;
    }

    VELMORA_KERNEL V b0() const { return roots_[Glide::Gain]; }
    VELMORA_KERNEL V b1() const { return -(roots_[Glide::Z1Re] + roots_[Glide::Z2Re]) * b0(); }
    VELMORA_KERNEL V b2() const
    {
        return (roots_[Glide::Z1Re] * roots_[Glide::Z2Re] - roots_[Glide::Z1Im] * roots_[Glide::Z2Im]) * b0();
    }
    VELMORA_KERNEL V a1() const { return -(roots_[Glide::P1Re] + roots_[Glide::P2Re]); }
    VELMORA_KERNEL V a2() const
    {
        return roots_[Glide::P1Re] * roots_[Glide::P2Re] - roots_[Glide::P1Im] * roots_[Glide::P2Im];
    }

private:
    using Glide = CoefficientGlide;
    static constexpr std::size_t kRoots = CoefficientGlide::kRoots;

    V roots_[kRoots]{};
    V increments_[kRoots]{};
    MaskOf<V> left_{};
};

struct NoGlide {};

/// What a run of section lanes has to reckon with.
enum class SectionMotion {
    Steady,  ///< nothing glides, no soft limit
    Gliding, ///< some lane glides, no soft limit
    Limited, ///< some lane has its soft limit on; glides too
};

/// Sections side by side, with the bits of `StripBiquad` in every lane but for healing: a NaN stays in
/// the recursion of its lane, where `StripBiquad` would clear it. A sample takes two steps, one for the part
/// of its inputs and one for that of its outputs, so that a step waits for nothing but its own last output.
template <typename V, SectionMotion motion>
class SectionLanes {
public:
    /// @param sections null where a lane is idle: it keeps giving 0.
    template <typename Section>
    VELMORA_KERNEL void load(const LaneSections<V, Section>& sections)
    {
        x1_ = x2_ = y1_ = y2_ = b0_ = b1_ = b2_ = a1_ = a2_ = limit_ = inputPart_ = V{};
        for (std::size_t k = 0; k < sections.size(); ++k) {
            if (sections[k] == nullptr) continue;
            const auto parts = sections[k]->parts();
            const BiquadCoefficients& target = parts.glide.target();
            x1_[k] = parts.history.x1, x2_[k] = parts.history.x2;
            y1_[k] = parts.history.y1, y2_[k] = parts.history.y2;
            b0_[k] = target.b0, b1_[k] = target.b1, b2_[k] = target.b2;
            a1_[k] = target.a1, a2_[k] = target.a2;
            limit_[k] = parts.softLimitFactor;
        }
        targetA1_ = a1_, targetA2_ = a2_;
        if constexpr (motion != SectionMotion::Steady) glide_.load(sections);
    }

    template <typename Section>
    VELMORA_KERNEL void store(const LaneSections<V, Section>& sections) const
    {
        for (std::size_t k = 0; k < sections.size(); ++k)
            if (sections[k] != nullptr) sections[k]->parts().history = {x1_[k], x2_[k], y1_[k], y2_[k]};
        if constexpr (motion != SectionMotion::Steady) glide_.store(sections);
    }

    /// Whether a NaN has come up in any lane: it never leaves the recursion, so one look behind a block
    /// tells.
    VELMORA_KERNEL bool stuck() const { return anyNan<V>(y1_); }

    /// Last outputs.
    VELMORA_KERNEL const V& y1() const { return y1_; }

    /// The outputs of one sample and the inputs of the next.
    /// @param begun lanes that take `x0` in. @param due lanes whose last input awaits its output. The others
    /// stand still. Both are masks, or `EveryLane`.
    template <typename Mask>
    VELMORA_KERNEL void step(const V& x0, const Mask& begun, const Mask& due)
    {
        V r = inputPart_ - a1_ * y1_ - a2_ * y2_;
        if constexpr (motion == SectionMotion::Limited) r = r / (absLanes(r) * limit_ + 1.0);
        r = flushLanes(r, StripBiquad::kFlush);
        y2_ = where<V>(due, y1_, y2_);
        y1_ = where<V>(due, r, y1_);

        if constexpr (motion == SectionMotion::Steady)
            inputPart_ = b0_ * x0 + b1_ * x1_ + b2_ * x2_;
        else
            glideOn(x0, begun);
        x2_ = where<V>(begun, x1_, x2_);
        x1_ = where<V>(begun, x0, x1_);
    }

private:
    // Lanes at rest run on their target.
    template <typename Mask>
    VELMORA_KERNEL void glideOn(const V& x0, const Mask& begun)
    {
        const MaskOf<V> moves = glide_.advance(begun);
        const V b0 = choose<V>(moves, glide_.b0(), b0_);
        const V b1 = choose<V>(moves, glide_.b1(), b1_);
        const V b2 = choose<V>(moves, glide_.b2(), b2_);
        a1_ = choose<V>(moves, glide_.a1(), targetA1_);
        a2_ = choose<V>(moves, glide_.a2(), targetA2_);
        inputPart_ = b0 * x0 + b1 * x1_ + b2 * x2_;
    }

    V b0_, b1_, b2_, a1_, a2_; // targets; of a gliding lane, a1_ and a2_ are those of the next output
    V targetA1_, targetA2_;
    V limit_; // factor of the soft limit, 0 without
    V x1_, x2_, y1_, y2_;
    V inputPart_; // of the next output
    [[no_unique_address]] std::conditional_t<motion == SectionMotion::Steady, NoGlide, GlideLanes<V>> glide_;
};

} // namespace velmora
