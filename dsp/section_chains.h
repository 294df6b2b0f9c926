#pragma once

#include "dsp/strip_biquad.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace velmora {

/// A section of a chain, and where its output is wanted; null where only the next section takes it.
struct ChainLink {
    StripBiquad* section;
    double* output = nullptr;
};

/// Sections in series.
struct SectionChain {
    const double* input;
    std::span<const ChainLink> links;
};

/// Sections that `runChains` takes at once in lanes; more are run one after the other.
inline constexpr std::size_t kChainLanes = 20;

/// Runs chains of sections over a block, all at once in the lanes of vectors: a section works some samples
/// behind the one before it, and the block is filled and drained, so there is no delay. The outputs, and what
/// the sections keep, are those of `runSample` on section after section, bit for bit, healing included.
/// Disabled sections cost nothing. A chain may put its last output in place of its input if no other chain
/// reads it; the other outputs stand apart from all inputs.
void runChains(std::span<const SectionChain> chains, std::int32_t frames);

/// One chain in place. @param sections any range of `StripBiquad`.
template <typename Sections>
void runInSeries(Sections& sections, double* block, std::int32_t frames)
{
    std::array<ChainLink, std::tuple_size_v<Sections>> links;
    std::transform(std::begin(sections), std::end(sections), links.begin(),
                   [](StripBiquad& section) { return ChainLink{&section}; });
    links.back().output = block;
    const SectionChain chain{block, links};
    runChains({&chain, 1}, frames);
}

} // namespace velmora
