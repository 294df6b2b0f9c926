#pragma once

#include <cstdint>
#include <filesystem>
#include <span>

namespace velmora::render {

/// A file that is written under a temporary name in its own folder and takes its place whole, or not at all.
class OutputFile {
public:
    /// Throws UserError if the folder takes no file.
    explicit OutputFile(const std::filesystem::path& path);
    /// Removes what wasn't committed.
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    int descriptor() const { return descriptor_; }
    const std::filesystem::path& path() const { return path_; }
    /// Throws UserError.
    void write(std::span<const std::uint8_t> bytes);
    /// Throws UserError.
    void commit();

private:
    std::filesystem::path path_;
    std::filesystem::path temporary_;
    int descriptor_ = -1;
};

} // namespace velmora::render
