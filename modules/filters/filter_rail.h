#pragma once

#include "modules/filters/strip_filter_section.h"

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

    /// One sample through high-pass and low-pass.
    double runBasic(double x) { return runLowPass(runHighPass(x)); }
    /// One sample with the parametric band between the two.
    double runPro(double x) { return runLowPass(parametric.runSample(runHighPass(x))); }

private:
    double runHighPass(double x) { return highPass3.runSample(highPass2.runSample(highPass1.runSample(x))); }
    double runLowPass(double x) { return lowPass2.runSample(lowPass1.runSample(x)); }

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

} // namespace velmora
