#pragma once

#include "art/parts/icon.h"
#include "art/parts/scale.h"

#include <cairo.h>

#include <array>
#include <string_view>
#include <vector>

namespace velmora::art {

/// A band of the equalisers, as all three of them print it.
struct EqBand {
    std::string_view name;
    Law frequency;
    std::vector<double> printed; ///< Hz; both ends and five between
};

/// From the highest band, which stands at the top, to the lowest.
const std::array<EqBand, 4>& eqBands();

/// Gain of a band, with numbers at -18, -6, 0, 6 and 18 dB.
const DialScale& eqGainScale();

/// What the three positions of a band's switch select, from the top, where its value is 0.
using EqShapes = std::array<Icon, 3>;

inline constexpr EqShapes kBellWidths{Icon::Wide, Icon::Bell, Icon::Narrow};

/// The three shapes beside their switch, `pitch` apart around the middle one.
void drawShapes(cairo_t* cr, const UnitFace& face, const EqShapes& shapes, double x, double y, double pitch,
                double width);

/// Knob and window of the gain after the bands, at the lower left of each equaliser.
void drawOutput(cairo_t* cr, const UnitFace& face);

} // namespace velmora::art
