#pragma once

#include "dsp/section_chains.h"

#include <array>

namespace velmora {

/// Filters of one channel's key: a high-pass and a low-pass of four poles each. One that is out stands still.
class KeyFilter {
public:
    KeyFilter();

    void setHighPassIn(bool in) { highPassIn_ = in; }
    void setLowPassIn(bool in) { lowPassIn_ = in; }
    void setHighPassFrequency(double hz);
    void setLowPassFrequency(double hz);
    void setSampleRate(double hz);
    void reset();

    using Links = std::array<BiquadLink, 4>;
    /// Fills in the chain of the filters that are in.
    BiquadChain chain(const double* key, double* filtered, Links& links);

private:
    static constexpr double kQ = 0.7;

    bool highPassIn_ = false;
    bool lowPassIn_ = false;
    std::array<StripBiquad, 2> highPass_{StripBiquad(StripBiquadKind::HighPass, 20.0, kQ),
                                         StripBiquad(StripBiquadKind::HighPass, 20.0, kQ)};
    std::array<StripBiquad, 2> lowPass_{StripBiquad(StripBiquadKind::LowPass, 20000.0, kQ),
                                        StripBiquad(StripBiquadKind::LowPass, 20000.0, kQ)};
};

} // namespace velmora
