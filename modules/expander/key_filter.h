#pragma once

#include "dsp/strip_biquad.h"

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

    double process(double k)
    {
        if (highPassIn_) k = highPass_[1].runSample(highPass_[0].runSample(k));
        if (lowPassIn_) k = lowPass_[1].runSample(lowPass_[0].runSample(k));
        return k;
    }

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
