#pragma once

#include "tools/host/scoped_environment.h"
#include "tools/host/temporary_folder.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <span>
#include <vector>

/// Files and folders of a test's own.
namespace velmora::test {

using host::ScopedEnvironment;
using host::TemporaryFolder;

inline std::vector<std::uint8_t> readBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::filesystem::path& path, std::span<const std::uint8_t> bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
}

inline std::size_t entryCount(const host::TemporaryFolder& folder)
{
    return static_cast<std::size_t>(std::distance(std::filesystem::directory_iterator(folder.path()), {}));
}

} // namespace velmora::test
