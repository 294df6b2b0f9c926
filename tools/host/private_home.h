#pragma once

#include <array>
#include <filesystem>
#include <optional>
#include <string>

namespace velmora::host {

/// Points the platform layer at a temporary folder, so that nothing here reads or writes the user's settings
/// and presets: sets XDG_CONFIG_HOME and USERPROFILE, puts both back and removes the folder at the end. Make
/// one before the plug-in is loaded and before there are threads. Throws std::runtime_error.
class PrivateHome {
public:
    PrivateHome();
    ~PrivateHome();
    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;

    const std::filesystem::path& folder() const { return folder_; }

private:
    struct Saved {
        const char* name;
        std::optional<std::string> value;
    };
    std::array<Saved, 2> saved_;
    std::filesystem::path folder_;
};

} // namespace velmora::host
