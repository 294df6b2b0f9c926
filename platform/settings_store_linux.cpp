#include "platform/settings_store.h"

#include "platform/whole_file.h"

#include <cstdlib>
#include <filesystem>

namespace velmora {
namespace {

using std::filesystem::path;

/// @return the folder that an environment variable names, or an empty path if it names no absolute one.
path absoluteFolder(const char* variable)
{
    const char* value = std::getenv(variable);
    path folder = value ? value : "";
    return folder.is_absolute() ? folder : path();
}

path keyFolder()
{
    path config = absoluteFolder("XDG_CONFIG_HOME");
    if (config.empty()) {
        const path home = absoluteFolder("HOME");
        if (home.empty()) return {};
        config = home / ".config";
    }
    return config / "Qorvane" / "QORVelmora";
}

bool isValueName(std::string_view name)
{
    return !name.empty() && name != "." && name.find("..") == name.npos && name.find('/') == name.npos &&
           name.find('\0') == name.npos;
}

} // namespace

std::optional<std::vector<std::uint8_t>> SettingsStore::read(std::string_view name) const
{
    const path folder = keyFolder();
    if (folder.empty() || !isValueName(name)) return std::nullopt;
    return readWholeFile((folder / name).string(), kMaxBytes);
}

bool SettingsStore::write(std::string_view name, std::span<const std::uint8_t> bytes) const
{
    const path folder = keyFolder();
    if (folder.empty() || !isValueName(name) || bytes.size() > kMaxBytes) return false;
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    return !error && writeWholeFile((folder / name).string(), bytes);
}

} // namespace velmora
