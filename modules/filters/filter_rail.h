#pragma once

#include "dsp/lane_chains.h"
#include "modules/filters/strip_filter_section.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// One channel's filters in the order of the signal: a high-pass and a low-pass of three slopes each, and a
/// parametric band between them.
class FilterRail {
public:
    /// @param hz corner on the panel, 20..2000 Hz; the sections stand below it so that the slopes meet there.
    void setHighPassFrequency(double hz);
    /// @param hz corner on the panel, 300..30000 Hz. @param sampleRate holds the one-pole section below
    /// Nyquist.
    void setLowPassFrequency(double hz, double sampleRate);
    /// @param slope 0..2: 12, 18, 24 dB per octave
    void setHighPass(bool in, std::int32_t slope);
    /// @param slope 0..2: 6, 12, 18 dB per octave
    void setLowPass(bool in, std::int32_t slope);
    StripFilterSection& band() { return parametric; }

    void setSampleRate(double hz);
    void reset();

    static constexpr std::size_t kSections = 6;
    using Links = std::array<ChainLink<StripFilterSection>, kSections>;
    /// Fills in the chain of high-pass, parametric band if `withBand`, and low-pass over a block in place.
    SectionChain<StripFilterSection> chain(bool withBand, double* block, Links& links);

private:
    template <typename Action>
    void forEachSection(Action action)
    {
        for (StripFilterSection* section :
             {&highPass1, &highPass2, &highPass3, &parametric, &lowPass1, &lowPass2})
            action(*section);
    }

    StripFilterSection highPass1{StripBiquadKind::HighPass, 120.0, 0.5};
    StripFilterSection highPass2{StripBiquadKind::HighPass, 83.33333333333334, 0.5};
    StripFilterSection highPass3{StripFilterSection::kOnePoleHighPass, 83.33333333333334, 0.5};
    StripFilterSection parametric{StripBiquadKind::Peaking, 1500.0, 0.5};
    StripFilterSection lowPass1{StripFilterSection::kOnePoleLowPass, 12000.0, 0.5};
    StripFilterSection lowPass2{StripBiquadKind::LowPass, 8333.333333333334, 0.5};
};

/// Runs the chains of rails over a block.
void runRails(std::span<const SectionChain<StripFilterSection>> rails, std::int32_t frames);

} // namespace velmora
