#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velmora::shot {

/// A picture of the editor. Pixels of 32 bits: opaque, red in bits 16 to 23.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> pixels;
};

struct ShotRequest {
    std::string preset; ///< name or id of a factory preset, or a .qor file; empty for the first one
    double scale = 1.0; ///< pixels of the picture for each of the design
};

/// Opens the editor without a display and takes its picture. Throws UserError.
Picture takeShot(const ShotRequest& request);

} // namespace velmora::shot
