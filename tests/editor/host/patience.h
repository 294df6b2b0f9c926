#pragma once

#include <chrono>
#include <functional>
#include <thread>

namespace velmora::test {

/// Asks again and again for as long as a busy machine may need. @return whether it came so far
inline bool comesTrue(const std::function<bool()>& done)
{
    using Clock = std::chrono::steady_clock;
    constexpr auto kPatience = std::chrono::seconds(20);
    constexpr auto kPause = std::chrono::milliseconds(5);
    const Clock::time_point start = Clock::now();
    while (!done()) {
        if (Clock::now() - start > kPatience) return false;
        std::this_thread::sleep_for(kPause);
    }
    return true;
}

} // namespace velmora::test
