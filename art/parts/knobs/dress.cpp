#include "art/parts/knobs/dress.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/knobs/pixels.h"

#include <numbers>

namespace velmora::art {
namespace {

constexpr double kDiagonal = 0.71;

// Between two rays the colour changes without an edge.
Colour colourAt(std::span<const Ray> rays, double turn)
{
    for (std::size_t i = 1; i < rays.size(); ++i) {
        if (turn > rays[i].turn) continue;
        const double share = (turn - rays[i - 1].turn) / (rays[i].turn - rays[i - 1].turn);
        return mix(rays[i - 1].colour, rays[i].colour, 0.5 - 0.5 * std::cos(share * std::numbers::pi));
    }
    return rays.back().colour;
}

} // namespace

void fillShadedDisc(cairo_t* cr, double radius, Colour topLeft, Colour middle, Colour bottomRight)
{
    const double end = kDiagonal * radius;
    useLinear(cr, -end, -end, end, end, {{0.0, topLeft}, {0.5, middle}, {1.0, bottomRight}});
    fillCircle(cr, 0, 0, radius);
}

void fillFlatDisc(cairo_t* cr, double radius, Colour colour, double alpha)
{
    useColour(cr, colour, alpha);
    fillCircle(cr, 0, 0, radius);
}

void drawSpunDisc(cairo_t* cr, double radius, std::span<const Ray> rays, double pitch, double depth)
{
    paintPixels(cr, 0.0, radius, {4, 1.0}, [&](double x, double y) {
        const double reach = std::hypot(x, y);
        if (reach > radius) return Tint{kBlack, 0.0};
        const double turn = std::atan2(-x, y) / (2.0 * std::numbers::pi) + 0.5;
        const double ring = -0.5 * depth * std::cos(reach / pitch * 2.0 * std::numbers::pi);
        const Colour ray = colourAt(rays, turn);
        return Tint{ring > 0.0 ? lighter(ray, ring) : darker(ray, -ring), 1.0};
    });
}

void drawPointer(cairo_t* cr, const Pointer& pointer, double degrees)
{
    const Spot from = onCircle(0, 0, pointer.from, degrees);
    const Spot to = onCircle(0, 0, pointer.to, degrees);
    if (pointer.shadow > 0.0)
        drawLine(cr, from.x + 0.4, from.y + 0.7, to.x + 0.4, to.y + 0.7, pointer.lineWidth + 0.5, kBlack,
                 pointer.shadow * 0.7, CAIRO_LINE_CAP_ROUND);
    drawLine(cr, from.x, from.y, to.x, to.y, pointer.lineWidth, pointer.colour, 1.0, CAIRO_LINE_CAP_ROUND);
}

} // namespace velmora::art
