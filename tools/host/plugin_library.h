#pragma once

#include "host/vst24/vst24_abi.h"

#include <filesystem>
#include <stdexcept>

namespace velmora::host {

/// A plug-in that can't be loaded, with the reason in one line.
class HostError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A plug-in's shared object, loaded for as long as this lives. It must outlive its instances.
class PluginLibrary {
public:
    /// Loads with every symbol bound at once, as hosts do. Throws HostError.
    explicit PluginLibrary(const std::filesystem::path& path);
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    vst24::EntryProc entry() const { return entry_; }
    const std::filesystem::path& path() const { return path_; }
    /// @return an exported symbol's address, or null.
    void* symbol(const char* name) const;

private:
    std::filesystem::path path_;
    void* handle_ = nullptr;
    vst24::EntryProc entry_ = nullptr;
};

} // namespace velmora::host
