#pragma once

#include "dsp/strip_biquad.h"

namespace velmora {

/// The de-esser's filters: a crossover of two sections a side, and the detection band behind its high side.
class SibilanceFilters {
public:
    struct Bands {
        double low;
        double high;
        double detected;
    };

    SibilanceFilters();

    void setSampleRate(double hz);
    /// Detection frequency in Hz and Q; the crossover follows.
    void setBand(double frequency, double q);
    void reset();

    Bands process(double x)
    {
        const double high = splitHighB.runSample(splitHighA.runSample(x));
        const double low = splitLowB.runSample(splitLowA.runSample(x));
        return {low, high, detectBell.runSample(detectBand.runSample(high))};
    }

private:
    template <typename Action>
    void forEachSection(Action action);

    StripBiquad splitHighA;
    StripBiquad splitHighB;
    StripBiquad splitLowA;
    StripBiquad splitLowB;
    StripBiquad detectBand;
    StripBiquad detectBell;
};

} // namespace velmora
