#pragma once

#include "params/parameter_ids.h"

#include <cstdint>

namespace velmora {

/// One bit a role, in the order of `Role`.
class RoleMask {
public:
    void set(Role role, bool on) { bits_ = on ? bits_ | bit(role) : bits_ & ~bit(role); }
    bool has(Role role) const { return (bits_ & bit(role)) != 0; }
    bool any() const { return bits_ != 0; }

private:
    static constexpr std::uint32_t bit(Role role) { return 1U << static_cast<unsigned>(role); }

    std::uint32_t bits_ = 0;
};

/// Which modules work on the signal. A solo anywhere silences the question of mutes: only soloed modules run.
struct Activity {
    RoleMask soloMask;
    RoleMask muteMask;

    bool runs(Role role) const { return soloMask.any() ? soloMask.has(role) : !muteMask.has(role); }
};

} // namespace velmora
