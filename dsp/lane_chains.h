#pragma once

#include "dsp/run_widest.h"
#include "dsp/section_lanes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

/// Chains of sections run over a block, all at once in the lanes of vectors: a section works some samples
/// behind the one before it, and the block is filled and drained, so there is no delay.
namespace velmora {

/// A section of a chain, and where its output is wanted; null where only the next section takes it.
template <typename Section>
struct ChainLink {
    Section* section;
    double* output = nullptr;
};

/// Sections in series. The last output may take the place of the input if no other chain reads that; the
/// other outputs stand apart from all inputs.
template <typename Section>
struct SectionChain {
    const double* input;
    std::span<const ChainLink<Section>> links;
};

namespace detail {

inline constexpr std::int32_t kLanePiece = 64; // samples that go through the lanes at a time
inline constexpr std::size_t kWidestLanes = 4; // of a vector; twice as many don't pay, chains being short
inline constexpr std::int32_t kLaneDelay = 2;  // steps behind the section before: inputs, then outputs
inline constexpr std::int32_t kIdleDelay = 1 << 20;

/// A piece of a block, laid out in lanes.
template <typename Section, std::size_t mostLanes>
struct LanePlan {
    static constexpr std::size_t kMostSteps = kLanePiece + kLaneDelay * (mostLanes - 1) + 1;
    template <typename T>
    using PerLane = std::array<T, mostLanes>;

    std::int32_t start; ///< of the piece in the block
    std::int32_t frames;
    std::size_t count = 0; ///< lanes in use
    std::int32_t lastDelay = 0;
    bool gliding = false;
    bool sound = false; ///< no NaN has come up

    PerLane<Section*> sections{};                               ///< null: idle
    PerLane<const double*> inputs{};                            ///< of the lanes that begin a chain
    PerLane<std::int64_t> delays;                               ///< steps until a lane takes its first sample
    PerLane<bool> heard{};                                      ///< whether the output is wanted
    std::size_t width = 0;                                      ///< lanes of a vector
    alignas(64) std::array<double, mostLanes * kLanePiece> fed; ///< vector by vector, by sample
    alignas(64) std::array<double, mostLanes * kMostSteps> outputs; ///< vector by vector, by step

    LanePlan(std::int32_t startFrame, std::int32_t frameCount) : start(startFrame), frames(frameCount)
    {
        delays.fill(kIdleDelay);
    }

    /// Puts those sections of a chain that run into the next lanes. @return false if the lanes won't do.
    bool place(const SectionChain<Section>& chain)
    {
        std::int32_t delay = 0;
        for (const ChainLink<Section>& link : chain.links) {
            if (!link.section->passes()) {
                const auto parts = link.section->parts();
                if (count == mostLanes || parts.softLimitFactor != 0.0) return false;
                gliding |= parts.glide.gliding();
                sections[count] = link.section;
                inputs[count] = delay == 0 ? chain.input + start : nullptr;
                delays[count] = delay;
                lastDelay = std::max(lastDelay, delay);
                delay += kLaneDelay;
                ++count;
            }
            if (delay != 0) heard[count - 1] |= link.output != nullptr;
        }
        return true;
    }

    /// Writes the outputs of a chain. @param lane its first; moves on behind its last.
    void deliver(const SectionChain<Section>& chain, std::size_t& lane) const
    {
        const std::size_t first = lane;
        for (const ChainLink<Section>& link : chain.links) {
            if (link.section->passes())
                link.section->passBlock();
            else
                ++lane;
            if (link.output == nullptr) continue;
            double* output = link.output + start;
            if (lane == first) { // nothing has run up to here
                if (link.output != chain.input) std::copy_n(chain.input + start, frames, output);
                continue;
            }
            const std::size_t last = lane - 1;
            const auto step = static_cast<std::size_t>(delays[last]) + 1;
            const double* from = &outputs[last / width * width * kMostSteps + step * width + last % width];
            for (std::int32_t n = 0; n < frames; ++n, from += width) output[n] = *from;
        }
    }
};

/// What the lanes of a vector do through a piece.
template <typename V, typename Section>
struct VectorPlan {
    static constexpr std::size_t kWidth = kLaneCount<V>;

    std::array<Section*, kWidth> sections{};
    MaskOf<V> delays{};
    MaskOf<V> heads{}; ///< lanes that begin a chain
    std::int64_t firstDelay = kIdleDelay;
    std::int64_t lastDelay = 0;
    bool heard = false;
    double* fed = nullptr;
    double* outputs = nullptr;

    template <std::size_t mostLanes>
    VELMORA_KERNEL void take(LanePlan<Section, mostLanes>& plan, std::size_t vector)
    {
        for (std::size_t k = 0; k < kWidth; ++k) {
            const std::size_t lane = vector * kWidth + k;
            sections[k] = plan.sections[lane];
            delays[k] = plan.delays[lane];
            heads[k] = plan.inputs[lane] != nullptr ? -1 : 0;
            firstDelay = std::min(firstDelay, plan.delays[lane]);
            if (sections[k] != nullptr) lastDelay = std::max(lastDelay, plan.delays[lane]);
            heard |= plan.heard[lane];
        }
        fed = &plan.fed[vector * kWidth * kLanePiece];
        outputs = &plan.outputs[vector * kWidth * plan.kMostSteps];
        feed(&plan.inputs[vector * kWidth], plan.frames);
    }

    // Inputs are healed as each section heals its own; within a chain outputs are healed already.
    VELMORA_KERNEL void feed(const double* const* inputs, std::int32_t frames)
    {
        const double* last = nullptr;
        for (std::size_t k = 0; k < kWidth; ++k) {
            if (inputs[k] == nullptr || inputs[k] == last) continue;
            double* to = fed;
            for (std::int32_t n = 0; n < frames; ++n, to += kWidth) {
                const double x = std::isnan(inputs[k][n]) ? 0.0 : inputs[k][n];
                if (last == nullptr)
                    storeLanes(to, allLanes<V>(x));
                else
                    to[k] = x;
            }
            last = inputs[k];
        }
    }
};

/// Calls f with constants count - 1 .. 0: a vector is to step before the one that feeds it.
template <std::size_t count, typename F>
VELMORA_KERNEL void forEachFromLast(F f)
{
    [&]<std::size_t... k>(std::index_sequence<k...>) VELMORA_KERNEL_LAMBDA
    {
        (f(std::integral_constant<std::size_t, count - 1 - k>{}), ...);
    }
    (std::make_index_sequence<count>{});
}

/// Lanes with a sample from 0 to below `frames`: one comparison, with all values moved to where the negative
/// ones come last.
template <typename V>
VELMORA_KERNEL MaskOf<V> inside(const MaskOf<V>& sample, std::int64_t frames)
{
    return (sample ^ INT64_MIN) < (frames ^ INT64_MIN);
}

template <typename V, std::size_t vectors, typename SectionsInLanes, typename Section, std::size_t mostLanes>
VELMORA_KERNEL void runLanes(LanePlan<Section, mostLanes>& plan)
{
    constexpr std::size_t kWidth = kLaneCount<V>;
    plan.width = kWidth;
    std::array<VectorPlan<V, Section>, vectors> plans;
    std::array<SectionsInLanes, vectors> lanes;
    for (std::size_t v = 0; v < vectors; ++v) {
        plans[v].take(plan, v);
        lanes[v].load(plans[v].sections);
    }

    const std::int32_t frames = plan.frames;
    const auto step = [&](auto v, std::int32_t n, std::int32_t sample, const auto& begun,
                          const auto& due) VELMORA_KERNEL_LAMBDA {
        V before{};
        if constexpr (v > 0) before = lanes[v - 1].y1();
        const V fresh = loadLanes<V>(plans[v].fed + static_cast<std::size_t>(sample) * kWidth);
        lanes[v].step(choose<V>(plans[v].heads, fresh, shiftIn<V>(before, lanes[v].y1())), begun, due);
        if (plans[v].heard)
            storeLanes(plans[v].outputs + static_cast<std::size_t>(n) * kWidth, lanes[v].y1());
    };
    // Some lanes haven't begun, or are through.
    const auto stepSome = [&](std::int32_t n) VELMORA_KERNEL_LAMBDA {
        forEachFromLast<vectors>([&](auto v) VELMORA_KERNEL_LAMBDA {
            if (n < plans[v].firstDelay || n > frames + plans[v].lastDelay) return;
            const MaskOf<V> sample = n - plans[v].delays;
            step(v, n, std::min(n, frames - 1), inside<V>(sample, frames), inside<V>(sample - 1, frames));
        });
    };
    const auto stepAll = [&](std::int32_t n) VELMORA_KERNEL_LAMBDA {
        forEachFromLast<vectors>([&](auto v)
                                     VELMORA_KERNEL_LAMBDA { step(v, n, n, EveryLane{}, EveryLane{}); });
    };
    for (std::int32_t n = 0; n <= frames + plan.lastDelay; ++n) {
        if (n == plan.lastDelay + 1)
            for (; n < frames; ++n) stepAll(n);
        stepSome(n);
    }

    plan.sound = true;
    for (std::size_t v = 0; v < vectors; ++v) plan.sound &= !lanes[v].stuck();
    if (!plan.sound) return;
    for (std::size_t v = 0; v < vectors; ++v) lanes[v].store(plans[v].sections);
}

template <template <typename V, SectionMotion motion> typename LanesOf, std::size_t groups, typename Plan>
void runGroups(Plan& plan)
{
    runWidest([&plan](auto width) VELMORA_KERNEL_LAMBDA {
        constexpr std::size_t kWidth = std::min<std::size_t>(width, kWidestLanes);
        constexpr std::size_t kVectors = groups * kWidestLanes / kWidth;
        using V = Lanes<kWidth>;
        if (plan.gliding)
            runLanes<V, kVectors, LanesOf<V, SectionMotion::Gliding>>(plan);
        else
            runLanes<V, kVectors, LanesOf<V, SectionMotion::Steady>>(plan);
    });
}

/// The same section by section.
template <typename Section>
void runOneByOne(const SectionChain<Section>& chain, std::int32_t start, std::int32_t frames)
{
    for (std::int32_t n = start; n < start + frames; ++n) {
        double x = chain.input[n];
        for (const ChainLink<Section>& link : chain.links) {
            x = link.section->runSample(x);
            if (link.output != nullptr) link.output[n] = x;
        }
    }
}

} // namespace detail

/// Runs chains at once. Outputs, and what the sections keep, are those of `runSample` on section after
/// section, bit for bit. Where lanes won't do, it runs section after section: for a lone section, for too
/// many, and once more from the start of a piece in which a NaN came up, which a section heals and a lane
/// doesn't.
/// @param Section has `runSample`, `passes`, `passBlock` and `parts` as `StripBiquad` has.
/// @param LanesOf what runs sections side by side, as `SectionLanes` does.
/// @param mostLanes sections at once: 4, 8, 12 or 20.
template <template <typename V, SectionMotion motion> typename LanesOf, std::size_t mostLanes,
          typename Section>
void runLaneChains(std::span<const SectionChain<Section>> chains, std::int32_t frames)
{
    using Plan = detail::LanePlan<Section, mostLanes>;
    for (std::int32_t start = 0; start < frames; start += detail::kLanePiece) {
        Plan plan(start, std::min(detail::kLanePiece, frames - start));
        bool placed = true;
        for (const auto& chain : chains) placed = placed && plan.place(chain);
        if (placed && plan.count > 1) {
            if (plan.count <= 4)
                detail::runGroups<LanesOf, 1>(plan);
            else if (plan.count <= 8)
                detail::runGroups<LanesOf, std::min<std::size_t>(2, mostLanes / 4)>(plan);
            else if (plan.count <= 12)
                detail::runGroups<LanesOf, std::min<std::size_t>(3, mostLanes / 4)>(plan);
            else
                detail::runGroups<LanesOf, mostLanes / 4>(plan);
        }
        if (placed && (plan.count == 0 || plan.sound)) {
            std::size_t lane = 0;
            for (const auto& chain : chains) plan.deliver(chain, lane);
        } else {
            for (const auto& chain : chains) detail::runOneByOne(chain, start, plan.frames);
        }
    }
}

} // namespace velmora
