#pragma once

#include "dsp/lanes.h"

#include <cstdint>

namespace velmora {

/// Runs different stages over a block in step: while the first takes sample n, the second takes n - 1, and so
/// on. The results are those of one stage after the other, but the recursions of a step don't wait for each
/// other, so a chain takes about the time of its slowest stage.
/// @param stages callable with a sample index; each may read what the stages before it left at that index.
template <typename... Stages>
VELMORA_KERNEL void runInStep(std::int32_t frames, Stages... stages)
{
    constexpr auto kLast = static_cast<std::int32_t>(sizeof...(Stages)) - 1;
    std::int32_t n = 0;
    while (n < frames + kLast) {
        if (n < kLast || n >= frames) { // fills or drains
            std::int32_t at = n++;
            ((at >= 0 && at < frames ? stages(static_cast<std::size_t>(at)) : void(), --at), ...);
            continue;
        }
        for (; n < frames; ++n) {
            std::int32_t at = n;
            (stages(static_cast<std::size_t>(at--)), ...);
        }
    }
}

} // namespace velmora
