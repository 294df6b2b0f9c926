#pragma once

#include <cmath>
#include <random>

namespace velmora::demo {

/// White noise, evenly spread over +-1.
class NoiseSource {
public:
    explicit NoiseSource(unsigned seed) : generator_(seed) {}
    double next() { return std::ldexp(static_cast<double>(generator_()), -31) - 1.0; }

private:
    std::mt19937 generator_;
};

} // namespace velmora::demo
