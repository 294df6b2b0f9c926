#include "platform/user_folders.h"

#include <cstdlib>

namespace velmora {

std::string profileFolder()
{
    for (const char* variable : {"USERPROFILE", "HOME"}) {
        const char* folder = std::getenv(variable);
        if (folder && *folder) return folder;
    }
    return {};
}

} // namespace velmora
