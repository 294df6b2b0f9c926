#pragma once

#include <array>

namespace velmora {

/// Channel pointers handed to a module: four pairs. Pair 0 is the main signal, pair 1 the auxiliary
/// side-chain feed, pairs 2 and 3 are null. Input and output records point at the same buffers: modules work
/// in place.
struct AudioRecord {
    static constexpr int kPairs = 4;

    std::array<double*, 2 * kPairs> channels{};

    double* left(int pair) const { return channels[static_cast<unsigned>(2 * pair)]; }
    double* right(int pair) const { return channels[static_cast<unsigned>(2 * pair + 1)]; }
};

} // namespace velmora
