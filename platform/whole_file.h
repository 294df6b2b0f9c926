#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace velmora {

enum class FileAccess {
    Read,      ///< reading is enough
    ReadWrite, ///< a write-protected file counts as unreadable
};

/// Reads a regular file whole. @return nothing if it can't be opened, isn't a regular file or holds more than
/// `limit` bytes.
std::optional<std::vector<std::uint8_t>> readWholeFile(const std::string& path, std::size_t limit,
                                                       FileAccess access = FileAccess::Read);

/// Writes a file so that its old or its new content stands under `path` at any time, even after a crash or on
/// a full disk: a temporary file in the same folder, flushed to disk, then renamed. The temporary name ends
/// in
/// ".tmp". A symbolic link stays one, its target is replaced. @return false, the old file untouched, if the
/// folder doesn't exist, the file is write-protected or no regular file, or the disk is full.
bool writeWholeFile(const std::string& path, std::span<const std::uint8_t> bytes);

} // namespace velmora
