#pragma once

#include "art/parts/face.h"
#include "art/parts/icon.h"

#include <cairo.h>

#include <array>
#include <string_view>
#include <variant>

namespace velmora::art {

/// A raised field with a bright ground, which groups controls on the light panels.
void drawField(cairo_t* cr, double y, double height);

/// What a position of a switch is called by.
using Sign = std::variant<std::string_view, Icon>;

/// Above a rocker of 55 x 30 that lies across with its top left at (27, y).
void printRocker(cairo_t* cr, const UnitFace& face, std::string_view name, double y,
                 const std::array<Sign, 2>& signs);

/// A name along the right edge, read from below and struck into the metal. @param y its middle
void drawWordmark(cairo_t* cr, const UnitFace& face, std::string_view name, double y);

} // namespace velmora::art
