#pragma once

#include "dsp/strip_biquad.h"

#include <array>
#include <cstdint>

namespace velmora {

/// The de-esser's filters: a crossover of two sections a side, and the detection band behind its high side.
class SibilanceFilters {
public:
    static constexpr std::int32_t kLongest = 64;
    using Block = std::array<double, kLongest>;
    struct Bands {
        Block low;
        Block high;
        Block detected;
    };

    SibilanceFilters();

    void setSampleRate(double hz);
    /// Detection frequency in Hz and Q; the crossover follows.
    void setBand(double frequency, double q);
    void reset();

    /// @range frames up to kLongest.
    void process(const double* x, Bands& bands, std::int32_t frames);

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
