#pragma once

#include <cstdint>

namespace velmora::Qorvane {

/// A timer that is asked instead of calling: keeps its phase however irregularly it is asked, and owes at
/// most a second's worth of ticks.
class PolledTimer {
public:
    /// @param periodMilliseconds at least 1
    explicit PolledTimer(std::uint32_t periodMilliseconds) : period(periodMilliseconds) {}

    void start(std::uint32_t now) { next = now + period; }
    /// @return ticks that have come due since the last call.
    int poll(std::uint32_t now);

private:
    static constexpr std::uint32_t kMostOwed = 1000; ///< milliseconds

    std::uint32_t period;
    std::uint32_t next = 0;
};

} // namespace velmora::Qorvane
