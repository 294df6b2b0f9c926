#pragma once

#include "dsp/kernel.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// Runs serial stages along diagonals: in one step stage k works on sample n - k. The results are those of
/// sample by sample, but the stages of a step don't wait for each other, which is what a chain costs.
/// @param stage called with (k, sample index).
template <std::size_t stages, typename Stage>
VELMORA_KERNEL void runDiagonally(std::int32_t frames, Stage stage)
{
    constexpr auto kLast = static_cast<std::int32_t>(stages) - 1;
    const auto step = [&](std::int32_t n, std::int32_t first, std::int32_t last) VELMORA_KERNEL_LAMBDA {
        for (std::int32_t k = first; k <= last; ++k) stage(static_cast<std::size_t>(k), n - k);
    };
    std::int32_t n = 0;
    for (; n < kLast; ++n) step(n, std::max(0, n - frames + 1), n);
    for (; n < frames; ++n) step(n, 0, kLast);
    for (; n < frames + kLast; ++n) step(n, n - frames + 1, kLast);
}

} // namespace velmora
