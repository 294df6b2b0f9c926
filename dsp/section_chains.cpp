#include "dsp/section_chains.h"

namespace velmora {

void runChains(std::span<const BiquadChain> chains, std::int32_t frames)
{
    runLaneChains<SectionLanes, 20>(chains, frames);
}

} // namespace velmora
