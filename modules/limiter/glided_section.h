#pragma once

#include "dsp/biquad_design.h"
#include "dsp/coefficient_glide.h"
#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "dsp/section_lanes.h"
#include "modules/limiter/limiter_window.h"

#include <array>
#include <cmath>
#include <cstddef>

namespace velmora::limiter {

/// Last inputs and outputs of a signal that runs through a section.
struct SectionHistory {
    double x1 = 0.0, x2 = 0.0;
    double y1 = 0.0, y2 = 0.0;
};

/// A second-order section with the bits of `StripBiquad`, taken apart for kernels: one design serves several
/// signals, the part of the inputs is worked out for a whole chunk, and what is left is a recursion that can
/// run in one loop with others. Designs are put off until a chunk needs them, however often they are set.
class GlidedSection {
public:
    /// Starts a glide from unity to the first design at the lowest sample rate.
    void init(StripBiquadKind kind, double hz, double q, double gainDb);
    void setSampleRate(double hz);
    void glideTo(double hz);
    /// The same without a glide, for a section that is idle. Who holds histories clears them, here and below.
    void placeAt(double hz);
    /// Lands on the design.
    void land();

    /// Designs what has been set. Outside of kernels, before the first chunk of a block.
    void refresh()
    {
        if (stale) design();
    }

    /// Which older output stays behind a NaN.
    enum class Healing { KeepsOlder, ClearsBoth };

    /// A chunk in place. `use(output)` may run the recursion within a loop of its own: it calls
    /// `output(index)` once for each sample, in their order.
    template <Healing healing, typename V, typename Use>
    VELMORA_KERNEL void run(double* samples, std::size_t count, SectionHistory& history, Use use);
    template <Healing healing, typename V>
    VELMORA_KERNEL void run(double* samples, std::size_t count, SectionHistory& history);

    /// The three steps of it. Coefficients of the next samples, up to a chunk;
    VELMORA_KERNEL void advance(std::size_t count);
    /// what the inputs give to each output, NaN taken for 0; both arrays have room for whole vectors;
    template <typename V>
    VELMORA_KERNEL void feedForward(const double* x, SectionHistory& history, double* forward,
                                    std::size_t count) const;
    /// the output of a sample of the chunk from that.
    template <Healing healing>
    VELMORA_KERNEL double feedBack(double forward, std::size_t index, SectionHistory& history) const;

private:
    static constexpr double kFlush = 1e-30;
    using Samples = std::array<double, kChunk>;

    void design();

    BiquadSettings settings;
    CoefficientGlide glide;
    bool stale = false;   // the settings have no design yet
    bool landing = false; // and it's in place at once

    bool gliding = false; // within this chunk
    bool filled = false;  // the feedback is that of rest
    Samples a1{}, a2{};
    Samples b0{}, b1{}, b2{}; // while gliding
};

inline void GlidedSection::advance(std::size_t count)
{
    gliding = glide.gliding();
    if (gliding) {
        for (std::size_t i = 0; i < count; ++i) {
            const BiquadCoefficients& c = glide.advance();
            b0[i] = c.b0, b1[i] = c.b1, b2[i] = c.b2;
            a1[i] = c.a1, a2[i] = c.a2;
        }
        filled = false;
    } else if (!filled) {
        a1.fill(glide.target().a1);
        a2.fill(glide.target().a2);
        filled = true;
    }
}

template <typename V>
inline void GlidedSection::feedForward(const double* x, SectionHistory& history, double* forward,
                                       std::size_t count) const
{
    const auto sum = [&](auto coefficient) VELMORA_KERNEL_LAMBDA {
        const BiquadCoefficients& rest = glide.target();
        V before0 = allLanes<V>(history.x1); // last lanes count: x0 and x1 of the sample before these
        V before1 = allLanes<V>(history.x2);
        for (std::size_t i = 0; i < count; i += kLaneCount<V>) {
            const V x0 = zeroNanLanes<V>(loadLanes<V>(x + i));
            const V x1 = shiftIn<V>(before0, x0);
            const V x2 = shiftIn<V>(before1, x1);
            storeLanes<V>(forward + i, coefficient(rest.b0, b0, i) * x0 + coefficient(rest.b1, b1, i) * x1 +
                                           coefficient(rest.b2, b2, i) * x2);
            before0 = x0;
            before1 = x1;
        }
    };
    if (gliding)
        sum([](double, const Samples& moving, std::size_t i)
                VELMORA_KERNEL_LAMBDA { return loadLanes<V>(moving.data() + i); });
    else
        sum([](double rest, const Samples&, std::size_t) VELMORA_KERNEL_LAMBDA { return allLanes<V>(rest); });

    const auto healed = [](double v) VELMORA_KERNEL_LAMBDA { return v == v ? v : 0.0; };
    history.x2 = count > 1 ? healed(x[count - 2]) : history.x1;
    history.x1 = healed(x[count - 1]);
}

template <GlidedSection::Healing healing>
inline double GlidedSection::feedBack(double forward, std::size_t index, SectionHistory& history) const
{
    const double older = history.y1;
    double y = flush(forward - a1[index] * older - a2[index] * history.y2, kFlush);
    history.y2 = older;
    if (std::isnan(y)) [[unlikely]] { // a branch costs the recursion nothing, a select would
        y = 0.0;
        if (healing == Healing::ClearsBoth) history.y2 = 0.0;
    }
    history.y1 = y;
    return y;
}

template <GlidedSection::Healing healing, typename V, typename Use>
inline void GlidedSection::run(double* samples, std::size_t count, SectionHistory& history, Use use)
{
    Samples forward;
    advance(count);
    feedForward<V>(samples, history, forward.data(), count);
    SectionHistory local = history; // stays in registers
    use([&](std::size_t i)
            VELMORA_KERNEL_LAMBDA { return samples[i] = feedBack<healing>(forward[i], i, local); });
    history = local;
}

template <GlidedSection::Healing healing, typename V>
inline void GlidedSection::run(double* samples, std::size_t count, SectionHistory& history)
{
    run<healing, V>(samples, count, history, [count](auto output) VELMORA_KERNEL_LAMBDA {
        for (std::size_t i = 0; i < count; ++i) output(i);
    });
}

} // namespace velmora::limiter
