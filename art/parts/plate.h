#pragma once

#include "art/parts/face.h"

#include <cairo.h>

#include <optional>
#include <string_view>

namespace velmora::art {

/// The unit's whole face: colour, grain, light.
void drawFace(cairo_t* cr, const UnitFace& face);
/// Bevel around the panel; drawn last.
void drawEdge(cairo_t* cr, const UnitFace& face);

/// The dark plate for the module's name, with its two arrows; the name itself is a control's.
void drawTitlePlate(cairo_t* cr, const UnitFace& face);
/// The same plate on ground of any kind. @param lip alpha of the light below it
void drawTitlePlate(cairo_t* cr, double lip, Colour arrows, double arrowAlpha);

struct Label {
    double size = 8.0;
    Align align = Align::Centre;
    double alpha = 1.0;
    double spacing = 0.45;
    Face font = Face::Sans;
    bool bold = true;
    std::optional<Colour> colour = {}; ///< instead of the unit's ink
};
/// Printed lettering in the unit's ink; `y` is the middle of the capitals.
void drawLabel(cairo_t* cr, const UnitFace& face, std::string_view text, double x, double y,
               const Label& label = {});

/// Engraved lines, across from x0 to x1 and down from y0 to y1.
void drawGroove(cairo_t* cr, const UnitFace& face, double x0, double y, double x1);
void drawGrooveDown(cairo_t* cr, const UnitFace& face, double x, double y0, double y1);

/// An empty value window in the unit's style or another one.
void drawWindow(cairo_t* cr, const UnitFace& face, double x, double y, double width, double height);
void drawWindow(cairo_t* cr, const UnitFace& face, double x, double y, double width, double height,
                WindowStyle style);

/// A cross-head screw. @param degrees how far its head is turned
void drawScrew(cairo_t* cr, double x, double y, double radius = 4.2, double degrees = 35.0);

} // namespace velmora::art
