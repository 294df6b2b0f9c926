#pragma once

#include <filesystem>
#include <string>

namespace velmora::host {

/// A folder of its own, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder(); ///< Throws std::runtime_error if none can be made.
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    const std::filesystem::path& path() const { return path_; }
    std::string file(const std::string& name) const { return (path_ / name).string(); }

private:
    std::filesystem::path path_;
};

} // namespace velmora::host
