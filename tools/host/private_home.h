#pragma once

#include "tools/host/scoped_environment.h"
#include "tools/host/temporary_folder.h"

#include <filesystem>

namespace velmora::host {

/// Points the platform layer at a temporary folder, so that nothing here reads or writes the user's settings
/// and presets: sets XDG_CONFIG_HOME and USERPROFILE, puts both back and removes the folder at the end. Make
/// one before the plug-in is loaded and before there are threads. Throws std::runtime_error.
class PrivateHome {
public:
    const std::filesystem::path& folder() const { return folder_.path(); }
    std::filesystem::path settings() const { return folder() / "config"; }

private:
    TemporaryFolder folder_;
    ScopedEnvironment settingsVariable_{"XDG_CONFIG_HOME", settings().string()};
    ScopedEnvironment profileVariable_{"USERPROFILE", folder().string()};
};

} // namespace velmora::host
