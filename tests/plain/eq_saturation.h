#pragma once

#include "modules/eq/eq_band.h"

#include <cmath>

namespace velmora::plain {

/// A sample of the output stage, with libm's functions.
inline double eqSaturate(EqFlavour flavour, double y, double t)
{
    const double size = std::fabs(t);
    if (size > 1e-6) {
        if (flavour == EqFlavour::Sorrel)
            y = y * std::atan(t / 16.0) * 16.0 / t;
        else if (flavour == EqFlavour::Tamarin)
            y = t > 0.0 ? y * std::tanh(t / 16.0) * 16.0 / t : y * std::atan(t / 8.0) * 8.0 / t;
        else
            y = t > 0.0 ? y * std::tanh(t / 8.0) * 8.0 / t
                        : y * std::atan(t / (size * 0.02 + 1.0) / 16.0) * 16.0 / t;
    }
    return std::isnan(y) ? 0.0 : y;
}

} // namespace velmora::plain
