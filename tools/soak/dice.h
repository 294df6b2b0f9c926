#pragma once

#include <cmath>
#include <cstdint>
#include <random>

namespace velmora::soak {

/// Random choices that a seed repeats on every machine.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : generator_(seed) {}

    std::uint64_t seed() { return generator_(); }
    /// @return 0 or more, below 1
    double uniform() { return std::ldexp(static_cast<double>(generator_() >> 11), -53); }
    double between(double low, double high) { return low + (high - low) * uniform(); }
    /// Even over the octaves. @param low above 0
    double octaveBetween(double low, double high) { return low * std::pow(high / low, uniform()); }
    bool chance(double probability) { return uniform() < probability; }
    /// @return 0..count - 1
    std::int32_t below(std::size_t count) { return static_cast<std::int32_t>(generator_() % count); }

    template <typename List>
    const auto& pick(const List& list)
    {
        return list[static_cast<std::size_t>(below(list.size()))];
    }

private:
    std::mt19937_64 generator_;
};

} // namespace velmora::soak
