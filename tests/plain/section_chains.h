#pragma once

#include "dsp/section_chains.h"

#include <algorithm>
#include <vector>

namespace velmora::plain {

/// Section after section, each over the whole block.
inline void runChains(std::span<const BiquadChain> chains, std::int32_t frames)
{
    for (const BiquadChain& chain : chains) {
        std::vector<double> block(chain.input, chain.input + frames);
        for (const BiquadLink& link : chain.links) {
            for (double& x : block) x = link.section->runSample(x);
            if (link.output != nullptr) std::copy(block.begin(), block.end(), link.output);
        }
    }
}

} // namespace velmora::plain
