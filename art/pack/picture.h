#pragma once

#include "art/resource.h"

#include <cstdint>
#include <filesystem>
#include <span>
#include <vector>

namespace velmora::art {

/// A finished picture.
struct Picture {
    std::uint32_t id = 0;
    std::vector<std::uint8_t> png;
};

/// Draws and encodes pictures on several threads. @return in the order of `resources`
/// @throws std::runtime_error that names the first picture that failed
std::vector<Picture> drawPictures(std::span<const Resource> resources, unsigned threads);

/// Writes into a folder, which is made if it isn't there:
///   NNNNN.png         each picture
///   pictures.bin      all of them, one behind the other
///   picture_rows.inc  a row {id, offset, length}, for each, as source code
/// @throws std::runtime_error when a file can't be written
void writePictures(const std::filesystem::path& folder, std::span<const Picture> pictures);

} // namespace velmora::art
