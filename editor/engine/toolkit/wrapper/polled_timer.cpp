#include "editor/engine/toolkit/wrapper/polled_timer.h"

namespace velmora::Qorvane {

// The clock wraps: only differences are compared. The next tick never lies further ahead than a period,
// however long nobody has asked.
int PolledTimer::poll(std::uint32_t now)
{
    const std::uint32_t ahead = next - now;
    if (ahead != 0 && ahead <= period) return 0;
    if (now - next > kMostOwed) next = now - kMostOwed;
    const std::uint32_t ticks = (now - next) / period + 1;
    next += ticks * period;
    return static_cast<int>(ticks);
}

} // namespace velmora::Qorvane
