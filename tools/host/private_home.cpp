#include "tools/host/private_home.h"

#include <stdlib.h>

#include <stdexcept>

namespace velmora::host {

namespace {

std::optional<std::string> environment(const char* name)
{
    const char* value = getenv(name);
    return value ? std::optional<std::string>(value) : std::nullopt;
}

} // namespace

PrivateHome::PrivateHome()
    : saved_{
          {{"XDG_CONFIG_HOME", environment("XDG_CONFIG_HOME")}, {"USERPROFILE", environment("USERPROFILE")}}}
{
    std::string name = (std::filesystem::temp_directory_path() / "velmora-XXXXXX").string();
    if (!mkdtemp(name.data())) throw std::runtime_error("no temporary folder can be made at " + name);
    folder_ = name;
    setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
    setenv("USERPROFILE", folder_.c_str(), 1);
}

PrivateHome::~PrivateHome()
{
    for (const Saved& variable : saved_) {
        if (variable.value)
            setenv(variable.name, variable.value->c_str(), 1);
        else
            unsetenv(variable.name);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

} // namespace velmora::host
