#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

namespace velmora {

/// Per-user values by name, shared by all instances and processes of a user. A value is a file of its name in
/// `$XDG_CONFIG_HOME` (else `~/.config`) below `Qorvane/QORVelmora`, written whole. The environment is read
/// at each use. Without a home folder every call fails quietly. Names that are empty or hold '/', ".." or a
/// zero byte are refused.
class SettingsStore {
public:
    static constexpr std::size_t kMaxBytes = 1 << 20; ///< a longer value counts as missing

    std::optional<std::vector<std::uint8_t>> read(std::string_view name) const;
    /// Makes the folder if need be. @return false if nothing was stored; an older value then still stands.
    bool write(std::string_view name, std::span<const std::uint8_t> bytes) const;
};

} // namespace velmora
