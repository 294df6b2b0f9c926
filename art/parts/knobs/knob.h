#pragma once

#include "art/paint/colour.h"
#include "art/paint/shape.h"

#include <cairo.h>

#include <cstdint>
#include <span>

namespace velmora::art {

struct Knob;

/// A layer of a knob, drawn around the shaft at the origin. @param degrees where the pointer stands,
/// clockwise from 12 o'clock; a layer that stands still gets 0
struct Layer {
    bool turns;
    void (*draw)(cairo_t* cr, const Knob& knob, double degrees);
};

/// What the knobs of one kind have in common: their layers from below upwards.
struct Family {
    std::span<const Layer> layers;
};

/// The part of a frame, in its own pixels, that a shadow has to fade out in.
struct Room {
    double width;
    double height;
};

/// A knob's filmstrip. Every length is in pixels.
struct Knob {
    std::uint32_t id;
    const Family* family;
    int width;     ///< of a frame
    int height;    ///< of a frame
    Spot shaft;    ///< in the frame
    Room room;     ///< from the frame's top left corner
    double radius; ///< of the body
    Colour accent = kWhite;
    int frames = 301;
};

inline constexpr int kKnobColumns = 17;

} // namespace velmora::art
