#include "art/portraits/sketch.h"

#include "art/paint/gradient.h"

#include <numbers>

namespace velmora::art {
namespace {

/// Cairo's angle of one that counts from 12 o'clock.
double radians(double degrees)
{
    return (degrees - 90) * std::numbers::pi / 180;
}

} // namespace

void Sketch::pen(double width, double strength)
{
    width_ = width;
    strength_ = strength;
}

void Sketch::add(Outline spots)
{
    cairo_new_path(cr_);
    for (const Spot& spot : spots) cairo_line_to(cr_, spot.x, spot.y);
}

void Sketch::stroke()
{
    useColour(cr_, ink_, strength_);
    cairo_set_line_width(cr_, width_);
    cairo_set_line_cap(cr_, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr_, CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(cr_);
}

void Sketch::line(double x0, double y0, double x1, double y1)
{
    trace({{x0, y0}, {x1, y1}});
}

void Sketch::trace(Outline spots)
{
    add(spots);
    stroke();
}

void Sketch::close(Outline spots)
{
    add(spots);
    cairo_close_path(cr_);
    stroke();
}

void Sketch::box(double x, double y, double width, double height, double radius)
{
    cairo_new_path(cr_);
    addRoundRect(cr_, x, y, width, height, radius);
    stroke();
}

void Sketch::ring(double x, double y, double radius)
{
    cairo_new_path(cr_);
    addCircle(cr_, x, y, radius);
    stroke();
}

void Sketch::arc(double x, double y, double radius, double from, double to)
{
    cairo_new_path(cr_);
    cairo_arc(cr_, x, y, radius, radians(from), radians(to));
    stroke();
}

void Sketch::bow(double x0, double y0, double bendX, double bendY, double x1, double y1)
{
    cairo_new_path(cr_);
    cairo_move_to(cr_, x0, y0);
    cairo_curve_to(cr_, x0 + (bendX - x0) * 2 / 3, y0 + (bendY - y0) * 2 / 3, x1 + (bendX - x1) * 2 / 3,
                   y1 + (bendY - y1) * 2 / 3, x1, y1);
    stroke();
}

void Sketch::arch(double x0, double x1, double spring, double floor)
{
    cairo_new_path(cr_);
    cairo_move_to(cr_, x0, floor);
    cairo_arc(cr_, (x0 + x1) / 2, spring, (x1 - x0) / 2, radians(-90), radians(90));
    cairo_line_to(cr_, x1, floor);
    stroke();
}

void Sketch::field(Outline spots, double strength)
{
    add(spots);
    cairo_close_path(cr_);
    useColour(cr_, ink_, strength);
    cairo_fill(cr_);
}

void Sketch::fieldBox(double x, double y, double width, double height, double strength, double radius)
{
    useColour(cr_, ink_, strength);
    fillRoundRect(cr_, x, y, width, height, radius);
}

void Sketch::disc(double x, double y, double radius, double strength)
{
    useColour(cr_, ink_, strength);
    fillCircle(cr_, x, y, radius);
}

void Sketch::glow(double x, double y, double radius, double strength)
{
    useRadial(cr_, x, y, 0, x, y, radius, {{0, ink_, strength}, {1, ink_, 0}});
    fillCircle(cr_, x, y, radius);
}

void Sketch::wedge(double x, double y, double inner, double outer, double from, double to, double strength)
{
    cairo_new_path(cr_);
    cairo_arc(cr_, x, y, outer, radians(from), radians(to));
    cairo_arc_negative(cr_, x, y, inner, radians(to), radians(from));
    cairo_close_path(cr_);
    useColour(cr_, ink_, strength);
    cairo_fill(cr_);
}

void Sketch::lamp(double x, double top, double y)
{
    line(x, top, x, y - 5);
    trace({{x - 7, y}, {x - 2.5, y - 5}, {x + 2.5, y - 5}, {x + 7, y}, {x - 7, y}});
    disc(x, y + 1.6, 1.8);
    glow(x, y + 2, 15, 0.45);
}

void Sketch::microphone(double x, double y, double floor)
{
    fieldBox(x - 4, y - 7, 8, 14, 0.3, 4);
    box(x - 4, y - 7, 8, 14, 4);
    arc(x, y + 2, 7, 90, 270);
    line(x, y + 9, x, floor);
    line(x - 7, floor, x + 7, floor);
}

void Sketch::speaker(double x, double y, double width, double height)
{
    const double centre = x + width / 2;
    fieldBox(x, y, width, height, 0.12, 1.5);
    box(x, y, width, height, 1.5);
    ring(centre, y + height * 0.66, width * 0.32);
    disc(centre, y + height * 0.66, width * 0.11);
    ring(centre, y + height * 0.23, width * 0.14);
}

void Sketch::reel(double x, double y, double radius)
{
    disc(x, y, radius, 0.14);
    ring(x, y, radius);
    ring(x, y, radius * 0.2);
    for (const double degrees : {0.0, 120.0, 240.0}) {
        const Spot hole = onCircle(x, y, radius * 0.58, degrees);
        ring(hole.x, hole.y, radius * 0.22);
    }
}

void Sketch::window(double x, double y, double width, double height)
{
    fieldBox(x, y, width, height, 0.2);
    box(x, y, width, height);
    line(x + width / 2, y, x + width / 2, y + height);
    line(x, y + height / 2, x + width, y + height / 2);
}

} // namespace velmora::art
