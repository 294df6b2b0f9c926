#pragma once

#include "dsp/level_detector.h"

#include <cstdint>

namespace velmora::plain {

/// The block form, sample by sample.
inline void followBlock(LevelDetector& detector, const double* x, std::int32_t frames,
                        const LevelRates& rates)
{
    for (std::int32_t i = 0; i < frames; ++i) detector.process(x[i], rates);
}

} // namespace velmora::plain
