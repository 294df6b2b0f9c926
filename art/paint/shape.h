#pragma once

#include "art/paint/colour.h"

#include <cairo.h>

namespace velmora::art {

struct Spot {
    double x;
    double y;
};

/// Degrees clockwise from 12 o'clock to a place on a circle.
Spot onCircle(double x, double y, double radius, double degrees);

/// Where a dial points. @param value position of the control, 0..1 @return degrees clockwise from 12 o'clock
constexpr double dialAngle(double value)
{
    return -150.0 + 300.0 * value;
}

/// These two add a closed path.
void addRoundRect(cairo_t* cr, double x, double y, double width, double height, double radius);
void addCircle(cairo_t* cr, double x, double y, double radius);

void fillRoundRect(cairo_t* cr, double x, double y, double width, double height, double radius);
void fillCircle(cairo_t* cr, double x, double y, double radius);
void fillRect(cairo_t* cr, double x, double y, double width, double height);
/// Strokes with what is in use.
void strokeRoundRect(cairo_t* cr, double lineWidth, double x, double y, double width, double height,
                     double radius);
void strokeCircle(cairo_t* cr, double lineWidth, double x, double y, double radius);

void drawLine(cairo_t* cr, double x0, double y0, double x1, double y1, double lineWidth, Colour colour,
              double alpha = 1.0, cairo_line_cap_t cap = CAIRO_LINE_CAP_BUTT);

/// A disc that fades out towards its rim, for shadows. @param inner share of the radius at full strength
void drawSoftDisc(cairo_t* cr, double x, double y, double radius, double alpha, double inner = 0.55,
                  Colour colour = kBlack);
/// A rounded rectangle whose edge fades over `blur` pixels to either side.
void drawSoftRect(cairo_t* cr, double x, double y, double width, double height, double radius, double blur,
                  double alpha, Colour colour = kBlack);

} // namespace velmora::art
