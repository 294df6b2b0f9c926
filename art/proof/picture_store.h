#pragma once

#include "art/pack/surface.h"
#include "art/proof/picture_use.h"

#include <cstdint>
#include <map>

namespace velmora::art {

/// Draws pictures when they are first asked for.
class PictureStore {
public:
    explicit PictureStore(int scale) : scale_(scale) {}

    /// @return null for ids that aren't among the pictures
    cairo_surface_t* find(std::uint32_t id);

    int frameWidth(std::uint32_t id);
    int frameHeight(std::uint32_t id);

    /// Paints a frame with its top left at (x, y); nothing for an unknown id.
    void paintFrame(cairo_t* cr, std::uint32_t id, int x, int y, int frame);
    void paint(cairo_t* cr, std::uint32_t id, int x, int y);

private:
    int scale_;
    std::map<std::uint32_t, SurfacePtr> surfaces_;
};

} // namespace velmora::art
