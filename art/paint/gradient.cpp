#include "art/paint/gradient.h"

#include "art/paint/shape.h"

namespace velmora::art {
namespace {

// Takes the pattern over.
void useGradient(cairo_t* cr, cairo_pattern_t* pattern, Stops stops)
{
    for (const Stop& stop : stops)
        cairo_pattern_add_color_stop_rgba(pattern, stop.offset, stop.colour.red, stop.colour.green,
                                          stop.colour.blue, stop.alpha);
    cairo_set_source(cr, pattern);
    cairo_pattern_destroy(pattern);
}

Colour colourAt(Stops stops, double offset)
{
    const Stop* before = stops.begin();
    for (const Stop& stop : stops) {
        if (stop.offset > offset) {
            const double width = stop.offset - before->offset;
            return width > 0.0 ? mix(before->colour, stop.colour, (offset - before->offset) / width)
                               : stop.colour;
        }
        before = &stop;
    }
    return before->colour;
}

} // namespace

void useColour(cairo_t* cr, Colour colour, double alpha)
{
    cairo_set_source_rgba(cr, colour.red, colour.green, colour.blue, alpha);
}

void useLinear(cairo_t* cr, double x0, double y0, double x1, double y1, Stops stops)
{
    useGradient(cr, cairo_pattern_create_linear(x0, y0, x1, y1), stops);
}

void useRadial(cairo_t* cr, double x0, double y0, double r0, double x1, double y1, double r1, Stops stops)
{
    useGradient(cr, cairo_pattern_create_radial(x0, y0, r0, x1, y1, r1), stops);
}

void fillConic(cairo_t* cr, double x, double y, double radius, Stops stops)
{
    constexpr int kWedges = 96;
    constexpr double kDegrees = 360.0 / kWedges;
    // Wedges reach over the rim, which the clip cuts, and over their successor, so that no seam shows.
    constexpr double kOver = 1.06;

    cairo_save(cr);
    addCircle(cr, x, y, radius);
    cairo_clip(cr);
    cairo_set_antialias(cr, CAIRO_ANTIALIAS_NONE);
    for (int wedge = 0; wedge < kWedges; ++wedge) {
        const Spot from = onCircle(x, y, radius * kOver, kDegrees * wedge - 0.3);
        const Spot to = onCircle(x, y, radius * kOver, kDegrees * (wedge + 1) + 0.9);
        useColour(cr, colourAt(stops, (wedge + 0.5) / kWedges));
        cairo_move_to(cr, x, y);
        cairo_line_to(cr, from.x, from.y);
        cairo_line_to(cr, to.x, to.y);
        cairo_close_path(cr);
        cairo_fill(cr);
    }
    cairo_restore(cr);
}

} // namespace velmora::art
