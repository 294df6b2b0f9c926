#pragma once

#include "dsp/run_widest.h"
#include "dsp/section_lanes.h"
#include "modules/eq/eq_section.h"

#include <algorithm>

namespace velmora {

/// The recursion of a section of any kind.
VELMORA_KERNEL StripBiquad& biquadOf(StripBiquad& section)
{
    return section;
}
VELMORA_KERNEL StripBiquad& biquadOf(EqSection& section)
{
    return section.biquad();
}

/// Equaliser sections side by side in the lanes of `groups` vectors, each with its softening behind it. What
/// the lanes take in and what becomes of their outputs is the flavour's affair.
template <typename V, std::size_t groups, SectionMotion motion, bool softens>
class EqLanes {
public:
    static constexpr std::size_t kWidth = kLaneCount<V>;
    using Vectors = std::array<V, groups>;
    using Masks = std::array<MaskOf<V>, groups>;

    /// @param sections by lane, EqSection or StripBiquad; lanes behind the last are idle.
    template <typename Section, std::size_t count>
    VELMORA_KERNEL void load(std::array<Section, count>& sections)
    {
        for (std::size_t g = 0; g < groups; ++g) {
            recursion_[g].load(biquads(sections, g));
            dry_[g] = wet_[g] = V{};
            if constexpr (softens) loadSoftening(sections, g);
        }
    }

    /// Hands the sections what they keep. @return false, and no change, if a NaN has come up: it stays in the
    /// recursion here where a section alone would heal itself.
    template <typename Section, std::size_t count>
    VELMORA_KERNEL bool store(std::array<Section, count>& sections) const
    {
        bool sound = true;
        for (std::size_t g = 0; g < groups; ++g) sound &= !recursion_[g].stuck();
        if (!sound) return false;
        for (std::size_t g = 0; g < groups; ++g) {
            recursion_[g].store(biquads(sections, g));
            if constexpr (softens) storeSoftening(sections, g);
        }
        return true;
    }

    /// Takes a sample into each lane, and gives `dry` and `wet` of the ones taken in by the step before.
    /// @param begun, due see SectionLanes::step.
    template <typename Mask>
    VELMORA_KERNEL void step(const Vectors& input, const std::array<Mask, groups>& begun,
                             const std::array<Mask, groups>& due)
    {
        for (std::size_t g = 0; g < groups; ++g) {
            dry_[g] = entered_[g];
            entered_[g] = input[g];
            recursion_[g].step(input[g], begun[g], due[g]);
            wet_[g] = softened(g, due[g]);
        }
    }

    VELMORA_KERNEL const V& dry(std::size_t group) const { return dry_[group]; }
    VELMORA_KERNEL const V& wet(std::size_t group) const { return wet_[group]; }

private:
    template <typename Section, std::size_t count>
    static VELMORA_KERNEL LaneSections<V> biquads(std::array<Section, count>& sections, std::size_t group)
    {
        LaneSections<V> of{};
        for (std::size_t k = 0; k < kWidth && group * kWidth + k < count; ++k)
            of[k] = &biquadOf(sections[group * kWidth + k]);
        return of;
    }

    template <typename Section, std::size_t count>
    VELMORA_KERNEL void loadSoftening(std::array<Section, count>& sections, std::size_t group)
    {
        Softening<V>& lanes = softening_[group];
        lanes = {};
        for (std::size_t k = 0; k < kWidth && group * kWidth + k < count; ++k) {
            const Softening<double>& one = sections[group * kWidth + k].softening();
            lanes.depth[k] = one.depth;
            lanes.lowTrackRate[k] = one.lowTrackRate;
            lanes.bandTrackRate[k] = one.bandTrackRate;
            lanes.lowTrack[k] = one.lowTrack;
            lanes.bandTrack[k] = one.bandTrack;
        }
    }

    template <typename Section, std::size_t count>
    VELMORA_KERNEL void storeSoftening(std::array<Section, count>& sections, std::size_t group) const
    {
        for (std::size_t k = 0; k < kWidth && group * kWidth + k < count; ++k) {
            Softening<double>& one = sections[group * kWidth + k].softening();
            one.lowTrack = softening_[group].lowTrack[k];
            one.bandTrack = softening_[group].bandTrack[k];
        }
    }

    VELMORA_KERNEL V softened(std::size_t g, const EveryLane&)
    {
        if constexpr (softens)
            return softening_[g].process(recursion_[g].y1());
        else
            return recursion_[g].y1();
    }
    VELMORA_KERNEL V softened(std::size_t g, const MaskOf<V>& due)
    {
        if constexpr (!softens) return recursion_[g].y1();
        const Softening<V> before = softening_[g];
        const V y = softened(g, EveryLane{});
        softening_[g].lowTrack = choose<V>(due, softening_[g].lowTrack, before.lowTrack);
        softening_[g].bandTrack = choose<V>(due, softening_[g].bandTrack, before.bandTrack);
        return y;
    }

    std::array<SectionLanes<V, motion>, groups> recursion_;
    std::array<Softening<V>, groups> softening_;
    Vectors entered_{}, dry_{}, wet_{};
};

/// Calls `step(n, begun, due)` for the steps that take `frames` samples through lanes which start late, lane
/// k of group g by `delays[g][k]` steps. A sample's output comes a step after it has been taken in.
template <std::size_t groups, typename Mask, typename Step>
VELMORA_KERNEL void runLate(std::int32_t frames, const std::array<Mask, groups>& delays,
                            std::int32_t lastDelay, Step step)
{
    std::array<Mask, groups> due{};
    const auto stepSome = [&](std::int32_t n) VELMORA_KERNEL_LAMBDA {
        std::array<Mask, groups> begun;
        for (std::size_t g = 0; g < groups; ++g) {
            const Mask sample = n - delays[g];
            begun[g] = (~sample & (sample - frames)) < 0; // 0 <= sample < frames, by the sign bits
        }
        step(n, begun, due);
        due = begun;
    };
    constexpr std::array<EveryLane, groups> kAll{};
    std::int32_t n = 0;
    for (; n <= lastDelay; ++n) stepSome(n);
    for (; n < frames; ++n) step(n, kAll, kAll);
    if (frames > lastDelay + 1)
        for (Mask& mask : due) mask = ~Mask{};
    for (; n <= frames + lastDelay; ++n) stepSome(n);
}

/// Whether all sections may run in lanes: they are on, as they are from the first setting of their band.
template <typename Section, std::size_t count>
bool allRun(std::array<Section, count>& sections)
{
    return std::none_of(sections.begin(), sections.end(),
                        [](Section& section) { return biquadOf(section).passes(); });
}

template <typename Section, std::size_t count>
bool anyGlides(std::array<Section, count>& sections)
{
    return std::any_of(sections.begin(), sections.end(),
                       [](Section& section) { return biquadOf(section).glide().gliding(); });
}

/// Vector for the lanes on an instruction set whose own vectors hold `width` doubles. Two of 4 run as fast as
/// one of 8.
template <std::size_t width>
using EqVector = Lanes<std::min<std::size_t>(width, 4)>;

/// Runs `kernel.operator()<V, motion, softens>()` for sections with softening. @return its result.
template <typename Kernel>
bool runSofteningLanes(bool gliding, bool softens, Kernel kernel)
{
    bool result = false;
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = EqVector<decltype(width)::value>;
        if (gliding && softens)
            result = kernel.template operator()<V, SectionMotion::Gliding, true>();
        else if (gliding)
            result = kernel.template operator()<V, SectionMotion::Gliding, false>();
        else if (softens)
            result = kernel.template operator()<V, SectionMotion::Steady, true>();
        else
            result = kernel.template operator()<V, SectionMotion::Steady, false>();
    });
    return result;
}

} // namespace velmora
