#pragma once

#include "params/parameter_ids.h"
#include "params/type_codes.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velmora::soak {

/// The modules that may sound in a scenario: all of them, or only those that the user named.
class Cast {
public:
    /// @param names of kinds ("compressor") or of single modules ("FET Levelor"), letter case aside; none:
    /// every module. Throws UserError for a name that nothing has.
    explicit Cast(const std::vector<std::string>& names = {});

    bool restricted() const { return restricted_; }
    /// Type codes that an insert may hold; never empty.
    const std::vector<std::int32_t>& codes() const { return codes_; }
    /// The normalised values of a role's Type that choose one of the modules; none for a role without.
    const std::vector<float>& types(Role role) const { return types_[static_cast<unsigned>(role)]; }
    /// @return whether this value of the role's Type chooses one of the modules.
    bool allows(Role role, float type) const;

private:
    bool restricted_;
    std::vector<std::int32_t> codes_;
    std::array<std::vector<float>, kRoleCount> types_;
};

} // namespace velmora::soak
