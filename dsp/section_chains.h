#pragma once

#include "dsp/lane_chains.h"
#include "dsp/strip_biquad.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <span>
#include <tuple>

namespace velmora {

using BiquadLink = ChainLink<StripBiquad>;
using BiquadChain = SectionChain<StripBiquad>;

/// Runs chains of the strip's sections; see `runLaneChains`. Up to 20 sections go at once, and none with its
/// soft limit on.
void runChains(std::span<const BiquadChain> chains, std::int32_t frames);

/// One chain in place. @param sections array of `StripBiquad`.
template <typename Sections>
void runInSeries(Sections& sections, double* block, std::int32_t frames)
{
    std::array<BiquadLink, std::tuple_size_v<Sections>> links;
    std::transform(std::begin(sections), std::end(sections), links.begin(),
                   [](StripBiquad& section) { return BiquadLink{&section}; });
    links.back().output = block;
    const BiquadChain chain{block, links};
    runChains({&chain, 1}, frames);
}

} // namespace velmora
