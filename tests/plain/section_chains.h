#pragma once

#include "dsp/lane_chains.h"

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

namespace velmora::plain {

/// Section after section, each over the whole block.
template <typename Section>
void runChains(std::span<const SectionChain<Section>> chains, std::int32_t frames)
{
    for (const SectionChain<Section>& chain : chains) {
        std::vector<double> block(chain.input, chain.input + frames);
        for (const ChainLink<Section>& link : chain.links) {
            for (double& x : block) x = link.section->runSample(x);
            if (link.output != nullptr) std::copy(block.begin(), block.end(), link.output);
        }
    }
}

} // namespace velmora::plain
