#include "tools/host/plugin_library.h"

#include <dlfcn.h>

namespace velmora::host {

PluginLibrary::PluginLibrary(const std::filesystem::path& path) : path_(std::filesystem::absolute(path))
{
    std::error_code ignored;
    if (!std::filesystem::exists(path_, ignored)) throw HostError("there is no plug-in at " + path_.string());
    handle_ = dlopen(path_.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!handle_) throw HostError(std::string("the plug-in can't be loaded: ") + dlerror());
    entry_ = reinterpret_cast<vst24::EntryProc>(symbol("VSTPluginMain"));
    if (!entry_) {
        dlclose(handle_);
        throw HostError(path_.string() + " is no VST 2.4 plug-in: it doesn't export VSTPluginMain");
    }
}

PluginLibrary::~PluginLibrary()
{
    dlclose(handle_);
}

void* PluginLibrary::symbol(const char* name) const
{
    return dlsym(handle_, name);
}

} // namespace velmora::host
