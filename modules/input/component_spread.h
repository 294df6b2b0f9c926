#pragma once

#include "modules/input/noise_generator.h"
#include "modules/input/rails.h"

#include <array>
#include <cstdint>

namespace velmora::preamp {

inline constexpr int kSpreadCount = 16;

/// Tolerances go in pairs, one per rail; a component names the pair that it takes, from its first member.
enum class TolerancePair : std::int8_t { None = -1, T12 = 0, T34 = 2, T56 = 4, T78 = 6 };

/// Component values of one built unit, as factors of the nominal ones.
struct ComponentSpread {
    std::array<double, 8> tolerance;
    std::array<double, kRails> noiseTrim;
    std::array<double, kRails> curveTrim;
    std::array<double, kRails> biasTrim;

    /// @return the pair's factor on a rail; 1 for `None`.
    double factor(TolerancePair pair, int rail) const
    {
        return pair == TolerancePair::None ? 1.0
                                           : tolerance[static_cast<unsigned>(static_cast<int>(pair) + rail)];
    }
};

/// Seeds of the two rails' generators.
struct RailSeeds {
    GeneratorWords left;
    GeneratorWords right;
};

/// @param instanceIndex 0..15
ComponentSpread componentSpread(std::int32_t instanceIndex);
RailSeeds railSeeds(std::int32_t instanceIndex);

/// Index 0..15 of the next unit of this process, in the order of construction. Safe from any thread.
std::int32_t nextInstanceIndex();

} // namespace velmora::preamp
