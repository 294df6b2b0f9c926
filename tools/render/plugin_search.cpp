#include "tools/render/plugin_search.h"

#include "tools/common/user_error.h"

#include <cstdlib>
#include <string>
#include <vector>

namespace velmora::render {

std::filesystem::path findPlugin()
{
    std::error_code ignored;
    const std::filesystem::path beside =
        std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path();
    std::vector<std::filesystem::path> folders{beside, beside.parent_path()};
    if (const char* home = std::getenv("HOME")) folders.push_back(std::filesystem::path(home) / ".vst");
    folders.insert(folders.end(), {"/usr/local/lib/vst", "/usr/lib/vst"});

    std::string places;
    for (const std::filesystem::path& folder : folders) {
        std::filesystem::path candidate = folder / "velmora_mono.so";
        if (std::filesystem::exists(candidate, ignored)) return candidate;
        places += (places.empty() ? "" : ", ") + folder.string();
    }
    throw UserError("velmora_mono.so isn't in any of " + places + "; name it with --plugin PATH");
}

} // namespace velmora::render
