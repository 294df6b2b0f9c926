#include "art/paint/shape.h"

#include "art/paint/gradient.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmora::art {
namespace {

constexpr double kPi = std::numbers::pi;

} // namespace

Spot onCircle(double x, double y, double radius, double degrees)
{
    const double angle = degrees * kPi / 180.0;
    return {x + radius * std::sin(angle), y - radius * std::cos(angle)};
}

void addRoundRect(cairo_t* cr, double x, double y, double width, double height, double radius)
{
    const double r = std::max(0.0, std::min({radius, width / 2, height / 2}));
    cairo_new_sub_path(cr);
    cairo_arc(cr, x + width - r, y + r, r, -kPi / 2, 0.0);
    cairo_arc(cr, x + width - r, y + height - r, r, 0.0, kPi / 2);
    cairo_arc(cr, x + r, y + height - r, r, kPi / 2, kPi);
    cairo_arc(cr, x + r, y + r, r, kPi, 1.5 * kPi);
    cairo_close_path(cr);
}

void addCircle(cairo_t* cr, double x, double y, double radius)
{
    cairo_new_sub_path(cr);
    cairo_arc(cr, x, y, std::max(0.0, radius), 0.0, 2 * kPi);
    cairo_close_path(cr);
}

void fillRoundRect(cairo_t* cr, double x, double y, double width, double height, double radius)
{
    addRoundRect(cr, x, y, width, height, radius);
    cairo_fill(cr);
}

void fillCircle(cairo_t* cr, double x, double y, double radius)
{
    addCircle(cr, x, y, radius);
    cairo_fill(cr);
}

void fillRect(cairo_t* cr, double x, double y, double width, double height)
{
    cairo_rectangle(cr, x, y, width, height);
    cairo_fill(cr);
}

void strokeRoundRect(cairo_t* cr, double lineWidth, double x, double y, double width, double height,
                     double radius)
{
    cairo_set_line_width(cr, lineWidth);
    addRoundRect(cr, x, y, width, height, radius);
    cairo_stroke(cr);
}

void strokeCircle(cairo_t* cr, double lineWidth, double x, double y, double radius)
{
    cairo_set_line_width(cr, lineWidth);
    addCircle(cr, x, y, radius);
    cairo_stroke(cr);
}

void drawLine(cairo_t* cr, double x0, double y0, double x1, double y1, double lineWidth, Colour colour,
              double alpha, cairo_line_cap_t cap)
{
    cairo_set_line_width(cr, lineWidth);
    cairo_set_line_cap(cr, cap);
    useColour(cr, colour, alpha);
    cairo_move_to(cr, x0, y0);
    cairo_line_to(cr, x1, y1);
    cairo_stroke(cr);
}

void drawSoftDisc(cairo_t* cr, double x, double y, double radius, double alpha, double inner, Colour colour)
{
    const double fade = 1.0 - inner;
    useRadial(cr, x, y, 0.0, x, y, radius,
              {{0.0, colour, alpha},
               {inner, colour, alpha},
               {inner + fade * 0.35, colour, alpha * 0.62},
               {inner + fade * 0.7, colour, alpha * 0.2},
               {1.0, colour, 0.0}});
    fillCircle(cr, x, y, radius);
}

void drawSoftRect(cairo_t* cr, double x, double y, double width, double height, double radius, double blur,
                  double alpha, Colour colour)
{
    // Layers from wide to narrow that add up to `alpha` in the middle.
    const int layers = std::max(4, static_cast<int>(blur * 1.6));
    const double share = 1.0 - std::pow(1.0 - alpha, 1.0 / layers);
    useColour(cr, colour, share);
    for (int layer = 0; layer < layers; ++layer) {
        const double grow = blur * (1.0 - 2.0 * (layer + 0.5) / layers);
        fillRoundRect(cr, x - grow, y - grow, width + 2 * grow, height + 2 * grow,
                      std::max(0.5, radius + grow));
    }
}

} // namespace velmora::art
