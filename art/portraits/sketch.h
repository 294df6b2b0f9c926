#pragma once

#include "art/paint/colour.h"
#include "art/paint/shape.h"

#include <cairo.h>

#include <initializer_list>

namespace velmora::art {

using Outline = std::initializer_list<Spot>;

/// Draws with one pen, as the emblems do: outlines, and fields of the pen's colour at a part of its strength.
class Sketch {
public:
    Sketch(cairo_t* cr, Colour ink) : cr_(cr), ink_(ink) {}

    /// What follows is drawn with a line this wide and this strong.
    void pen(double width, double strength = 0.95);

    void line(double x0, double y0, double x1, double y1);
    void trace(Outline spots);
    void close(Outline spots);
    void box(double x, double y, double width, double height, double radius = 0.0);
    void ring(double x, double y, double radius);
    /// Degrees clockwise from 12 o'clock.
    void arc(double x, double y, double radius, double from, double to);
    /// From (x0, y0) to (x1, y1), bent towards (bendX, bendY).
    void bow(double x0, double y0, double bendX, double bendY, double x1, double y1);
    /// Upright sides from `floor` up to a half circle between x0 and x1.
    void arch(double x0, double x1, double spring, double floor);

    void field(Outline spots, double strength);
    void fieldBox(double x, double y, double width, double height, double strength, double radius = 0.0);
    void disc(double x, double y, double radius, double strength = 0.95);
    void glow(double x, double y, double radius, double strength);
    /// A sector of a ring. Degrees clockwise from 12 o'clock.
    void wedge(double x, double y, double inner, double outer, double from, double to, double strength);

    void lamp(double x, double top, double y);
    void microphone(double x, double y, double floor);
    void speaker(double x, double y, double width, double height);
    void reel(double x, double y, double radius);
    /// A window with a cross.
    void window(double x, double y, double width, double height);

private:
    void add(Outline spots);
    void stroke();

    cairo_t* cr_;
    Colour ink_;
    double width_ = 1.5;
    double strength_ = 0.95;
};

} // namespace velmora::art
