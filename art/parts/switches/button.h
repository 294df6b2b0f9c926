#pragma once

#include "art/parts/switches/lamp.h"

#include <string_view>

namespace velmora::art {

inline constexpr Colour kButtonBase = hex(0x4a4e53);

/// A key cap in its black well with a shadow of 2.2 px to the right and below; pressed, its gradient turns
/// over.
void drawButtonCap(cairo_t* cr, double x, double y, double width, double height, bool pressed,
                   Colour base = kButtonBase, double radius = 2.5);

/// A lettered key that glows as a whole when lit, as in a module's foot. Fills its rectangle but for 2 px.
void drawFootButton(cairo_t* cr, double x, double y, double width, double height, std::string_view text,
                    double textSize, Light lit);

/// These fill frames whose size they name, with the engaged state as argument.
void drawInButton27x34(cairo_t* cr, bool on, Colour lamp = light::kGreen);
void drawSquareButton22x31(cairo_t* cr, bool on);
void drawPhaseButton23x30(cairo_t* cr, bool on);
void drawRoundPhaseButton26x31(cairo_t* cr, bool on);
/// A rocker that lies across; `right` tells the side that is down.
void drawTwoWayRocker55x30(cairo_t* cr, bool right);
/// A rocker with a lit bar in its upper half.
void drawBarRocker32x42(cairo_t* cr, std::string_view text, bool on);
/// Closes the place of a key that a module doesn't have: a recess with vents.
void drawBlindPlate41x22(cairo_t* cr);
/// The two keys of the measuring point.
void drawMeasureKeys47x18(cairo_t* cr, bool post);

} // namespace velmora::art
