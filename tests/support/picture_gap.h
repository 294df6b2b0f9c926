#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velmora::test {

/// Opaque pixels of 32 bits, red in bits 16 to 23.
struct Pixels {
    int width = 0;
    int height = 0;
    std::vector<std::uint32_t> words;
};

/// How different two pictures look, in units of CIE 1976 colour difference (about 2 is just visible side by
/// side) after a blur over 3 x 3 pixels, which forgives what an edge's antialiasing may do.
struct PictureGap {
    double mean = 0.0;
    double worst = 0.0; ///< that one pixel in 20,000 exceeds, enough for a letter to count
};

/// Both of the same size.
PictureGap pictureGap(const Pixels& a, const Pixels& b);

/// Every pixel the mean of a square of `factor` pixels.
Pixels shrunk(const Pixels& picture, int factor);

} // namespace velmora::test
