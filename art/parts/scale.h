#pragma once

#include "art/paint/shape.h"
#include "art/parts/face.h"
#include "art/parts/law.h"

#include <cairo.h>

#include <optional>
#include <string>
#include <vector>

namespace velmora::art {

/// What is printed around a knob. Values are in the unit of the law and stand where the law puts them.
struct DialScale {
    Law law = itself;
    std::vector<double> numbers = {}; ///< with a tick and a number
    std::vector<double> ticks = {};   ///< with a numbered value's tick, but no number
    std::vector<double> fine = {};    ///< with a fine tick
    std::string (*text)(double) = plainNumber;

    /// A mark with a text of its own. @range position 0..1
    struct Mark {
        double position;
        std::string text;
    };
    std::vector<Mark> marks = {};
};

struct DialLook {
    double radius = 24.0;               ///< where ticks start; pixels from the centre
    std::optional<double> numbers = {}; ///< radius of the numbers; otherwise 5.2 beyond the ticks
    double size = 7.8;                  ///< of the numbers
    double tick = 4.0;                  ///< length of a numbered tick
    double alpha = 1.0;
    Face font = Face::Narrow;
    std::optional<Colour> colour = {}; ///< instead of the unit's ink
};

void drawDialScale(cairo_t* cr, const UnitFace& face, double x, double y, const DialScale& scale,
                   const DialLook& look = {});

/// Evenly spaced values, both ends among them.
std::vector<double> steps(double from, double to, double step);

} // namespace velmora::art
