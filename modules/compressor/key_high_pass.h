#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"

namespace velmora {

/// Side-chain high-pass: the key less its one-pole low-pass.
class KeyHighPass {
public:
    void reset() { highPassState = 0.0; }

    /// @param count samples of k that are there, 1 to the number of lanes.
    template <typename V>
    VELMORA_KERNEL V process(const V& k, std::size_t count, double hpCoefficient)
    {
        V low{};
        for (std::size_t i = 0; i < count; ++i)
            low[i] = highPassState = flush((k[i] - highPassState) * hpCoefficient + highPassState, kFlush);
        return k - low;
    }

private:
    static constexpr double kFlush = 1e-18;

    double highPassState = 0.0;
};

} // namespace velmora
