#include "dsp/section_chains.h"

#include "dsp/run_widest.h"
#include "dsp/section_lanes.h"

#include <cmath>
#include <utility>

namespace velmora {

namespace {

constexpr std::int32_t kPiece = 64; // samples that go through the lanes at a time
constexpr std::size_t kWidest = 4;  // lanes of a vector; twice as many don't pay, chains being short
constexpr std::size_t kGroups = kChainLanes / kWidest;
constexpr std::int32_t kLaneDelay = 2; // steps behind the section before: one for inputs, one for outputs
constexpr std::int32_t kIdleDelay = 1 << 20;
constexpr std::size_t kMostSteps = kPiece + kLaneDelay * (kChainLanes - 1) + 1;

template <typename T>
using PerLane = std::array<T, kChainLanes>;

/// A piece of a block, laid out in lanes.
class LanePlan {
public:
    /// @param start of the piece in the block.
    LanePlan(std::int32_t start, std::int32_t frames) : start_(start), frames_(frames)
    {
        delays_.fill(kIdleDelay);
    }

    std::size_t lanes() const { return lanes_; }

    /// Puts those sections of a chain that run into the next lanes. @return false if the lanes won't do.
    bool place(const SectionChain& chain);
    /// Runs the lanes. @return whether all is well: if a NaN came up, nothing has changed.
    bool run();
    /// Writes the outputs of a chain. @param lane its first; moves on behind its last.
    void deliver(const SectionChain& chain, std::size_t& lane) const;

private:
    template <std::size_t groups>
    void runGroups();
    template <typename V, std::size_t vectors, SectionMotion motion>
    VELMORA_KERNEL void runKernel();
    template <typename V>
    VELMORA_KERNEL void feed(std::size_t vector);

    std::int32_t start_;
    std::int32_t frames_;
    std::size_t lanes_ = 0;
    std::int32_t lastDelay_ = 0;
    SectionMotion motion_ = SectionMotion::Steady;
    bool sound_ = false;

    PerLane<StripBiquad*> sections_{};                            // null: idle
    PerLane<const double*> inputs_{};                             // of the lanes that begin a chain
    PerLane<std::int64_t> delays_;                                // steps until a lane takes its first sample
    PerLane<bool> heard_{};                                       // whether the output is wanted
    alignas(64) PerLane<std::array<double, kPiece>> fed_;         // vector by vector, by sample
    alignas(64) PerLane<std::array<double, kMostSteps>> outputs_; // vector by vector, by step
    std::size_t width_ = 0;                                       // lanes of a vector
};

bool LanePlan::place(const SectionChain& chain)
{
    std::int32_t delay = 0;
    for (const ChainLink& link : chain.links) {
        if (!link.section->passes()) {
            const StripBiquad::Parts parts = link.section->parts();
            if (lanes_ == kChainLanes || parts.softLimitFactor != 0.0) return false;
            if (parts.glide.gliding()) motion_ = SectionMotion::Gliding;
            sections_[lanes_] = link.section;
            inputs_[lanes_] = delay == 0 ? chain.input + start_ : nullptr;
            delays_[lanes_] = delay;
            lastDelay_ = std::max(lastDelay_, delay);
            delay += kLaneDelay;
            ++lanes_;
        }
        if (delay != 0) heard_[lanes_ - 1] |= link.output != nullptr;
    }
    return true;
}

// Inputs are healed as each section heals its own; within a chain outputs are healed already.
template <typename V>
VELMORA_KERNEL void LanePlan::feed(std::size_t vector)
{
    constexpr std::size_t kWidth = kLaneCount<V>;
    const double* last = nullptr;
    for (std::size_t k = 0; k < kWidth; ++k) {
        const double* input = inputs_[vector * kWidth + k];
        if (input == nullptr || input == last) continue;
        double* fed = &fed_[vector * kWidth][0];
        for (std::int32_t n = 0; n < frames_; ++n, fed += kWidth) {
            const double x = std::isnan(input[n]) ? 0.0 : input[n];
            if (last == nullptr)
                storeLanes(fed, allLanes<V>(x));
            else
                fed[k] = x;
        }
        last = input;
    }
}

// Calls f with constants count - 1 .. 0: a vector is to step before the one that feeds it.
template <std::size_t count, typename F>
VELMORA_KERNEL void forEachFromLast(F f)
{
    [&]<std::size_t... k>(std::index_sequence<k...>)
    {
        (f(std::integral_constant<std::size_t, count - 1 - k>{}), ...);
    }
    (std::make_index_sequence<count>{});
}

/// What the lanes of a vector have in common through a piece.
template <typename V>
struct VectorPlan {
    LaneSections<V> sections;
    MaskOf<V> delays;
    MaskOf<V> heads{}; ///< lanes that begin a chain
    std::int64_t firstDelay = kIdleDelay;
    std::int64_t lastDelay = 0;
    bool heard = false;
};

template <typename V, std::size_t vectors, SectionMotion motion>
VELMORA_KERNEL void LanePlan::runKernel()
{
    constexpr std::size_t kWidth = kLaneCount<V>;
    width_ = kWidth;
    std::array<VectorPlan<V>, vectors> plans;
    std::array<SectionLanes<V, motion>, vectors> lanes;
    for (std::size_t v = 0; v < vectors; ++v) {
        VectorPlan<V>& plan = plans[v];
        for (std::size_t k = 0; k < kWidth; ++k) {
            const std::size_t lane = v * kWidth + k;
            plan.sections[k] = sections_[lane];
            plan.delays[k] = delays_[lane];
            plan.heads[k] = inputs_[lane] != nullptr ? -1 : 0;
            plan.firstDelay = std::min(plan.firstDelay, delays_[lane]);
            if (sections_[lane] != nullptr) plan.lastDelay = std::max(plan.lastDelay, delays_[lane]);
            plan.heard |= heard_[lane];
        }
        feed<V>(v);
        lanes[v].load(plan.sections);
    }

    const std::int32_t frames = frames_;
    const auto inputOf = [&](auto v, std::int32_t n) __attribute__((always_inline))
    {
        V before{};
        if constexpr (v > 0) before = lanes[v - 1].y1();
        const V fresh = loadLanes<V>(&fed_[v * kWidth][0] + static_cast<std::size_t>(n) * kWidth);
        return choose<V>(plans[v].heads, fresh, shiftIn<V>(before, lanes[v].y1()));
    };
    const auto keepOutput = [&](auto v, std::int32_t n) __attribute__((always_inline))
    {
        if (plans[v].heard)
            storeLanes(&outputs_[v * kWidth][0] + static_cast<std::size_t>(n) * kWidth, lanes[v].y1());
    };
    const auto stepSome = [&](std::int32_t n) __attribute__((always_inline))
    {
        forEachFromLast<vectors>([&](auto v) __attribute__((always_inline)) {
            if (n < plans[v].firstDelay || n > frames + plans[v].lastDelay) return;
            const MaskOf<V> sample = n - plans[v].delays;
            const MaskOf<V> begun = (sample >= 0) & (sample < frames);
            const MaskOf<V> due = (sample >= 1) & (sample <= frames);
            lanes[v].step(inputOf(v, std::min(n, frames - 1)), begun, due);
            keepOutput(v, n);
        });
    };
    const auto stepAll = [&](std::int32_t n) __attribute__((always_inline))
    {
        forEachFromLast<vectors>([&](auto v) __attribute__((always_inline)) {
            lanes[v].step(inputOf(v, n), EveryLane{}, EveryLane{});
            keepOutput(v, n);
        });
    };

    for (std::int32_t n = 0; n <= frames + lastDelay_; ++n) {
        if (n == lastDelay_ + 1)
            for (; n < frames; ++n) stepAll(n);
        stepSome(n);
    }

    sound_ = true;
    for (std::size_t v = 0; v < vectors; ++v) sound_ &= !lanes[v].stuck();
    if (!sound_) return;
    for (std::size_t v = 0; v < vectors; ++v) lanes[v].store(plans[v].sections);
}

template <std::size_t groups>
void LanePlan::runGroups()
{
    runWidest([this](auto width) {
        constexpr std::size_t kWidth = std::min<std::size_t>(width, kWidest);
        constexpr std::size_t kVectors = groups * kWidest / kWidth;
        using V = Lanes<kWidth>;
        if (motion_ == SectionMotion::Steady)
            runKernel<V, kVectors, SectionMotion::Steady>();
        else
            runKernel<V, kVectors, SectionMotion::Gliding>();
    });
}

bool LanePlan::run()
{
    static_assert(kGroups == 5);
    switch ((lanes_ + kWidest - 1) / kWidest) {
    case 1:
        runGroups<1>();
        break;
    case 2:
        runGroups<2>();
        break;
    case 3:
        runGroups<3>();
        break;
    default:
        runGroups<5>();
        break;
    }
    return sound_;
}

void LanePlan::deliver(const SectionChain& chain, std::size_t& lane) const
{
    const std::size_t first = lane;
    for (const ChainLink& link : chain.links) {
        if (link.section->passes())
            link.section->passBlock();
        else
            ++lane;
        if (link.output == nullptr) continue;
        double* output = link.output + start_;
        if (lane == first) { // nothing has run up to here
            if (link.output != chain.input) std::copy_n(chain.input + start_, frames_, output);
            continue;
        }
        const std::size_t last = lane - 1;
        const std::size_t vector = last / width_ * width_;
        const auto step = static_cast<std::size_t>(delays_[last]) + 1;
        const double* from = &outputs_[vector][0] + step * width_ + last % width_;
        for (std::int32_t n = 0; n < frames_; ++n, from += width_) output[n] = *from;
    }
}

// The same the plain way.
void runOneByOne(const SectionChain& chain, std::int32_t start, std::int32_t frames)
{
    for (std::int32_t n = start; n < start + frames; ++n) {
        double x = chain.input[n];
        for (const ChainLink& link : chain.links) {
            x = link.section->runSample(x);
            if (link.output != nullptr) link.output[n] = x;
        }
    }
}

void runPiece(std::span<const SectionChain> chains, std::int32_t start, std::int32_t frames)
{
    LanePlan plan(start, frames);
    bool done =
        std::all_of(chains.begin(), chains.end(), [&](const auto& chain) { return plan.place(chain); });
    done = done && (plan.lanes() == 0 || (plan.lanes() > 1 && plan.run()));
    if (!done) {
        for (const SectionChain& chain : chains) runOneByOne(chain, start, frames);
        return;
    }
    std::size_t lane = 0;
    for (const SectionChain& chain : chains) plan.deliver(chain, lane);
}

} // namespace

void runChains(std::span<const SectionChain> chains, std::int32_t frames)
{
    for (std::int32_t start = 0; start < frames; start += kPiece)
        runPiece(chains, start, std::min(kPiece, frames - start));
}

} // namespace velmora
