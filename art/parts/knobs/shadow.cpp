#include "art/parts/knobs/shadow.h"

#include "art/parts/knobs/pixels.h"

#include <span>

namespace velmora::art {
namespace {

// A disc that fades out, in units of the body's radius.
struct Soft {
    double x;
    double y;
    double radius;
    double alpha;
    double inner; // share of its radius at full strength
};

double smooth(double share)
{
    const double s = std::clamp(share, 0.0, 1.0);
    return s * s * (3.0 - 2.0 * s);
}

double coverOf(const Soft& soft, double x, double y)
{
    const double reach = std::hypot(x - soft.x, y - soft.y) / soft.radius;
    const double left = 1.0 - smooth((reach - soft.inner) / (1.0 - soft.inner));
    return soft.alpha * left * std::sqrt(left);
}

// 1 near the body, 0 at the edge of the room, whose corners are rounded as the shadow is.
double roomFade(const Knob& knob, double x, double y)
{
    constexpr double kLongest = 12.0;
    const double halfWidth = knob.room.width / 2;
    const double halfHeight = knob.room.height / 2;
    const double corner = 0.8 * std::min(halfWidth, halfHeight);
    const double pastX = std::abs(knob.shaft.x + x - halfWidth) - (halfWidth - corner);
    const double pastY = std::abs(knob.shaft.y + y - halfHeight) - (halfHeight - corner);
    const double outside = std::hypot(std::max(pastX, 0.0), std::max(pastY, 0.0));
    const double inside = std::min(std::max(pastX, pastY), 0.0);
    const double toEdge = corner - outside - inside;
    const double space = std::min({knob.shaft.x, knob.shaft.y, knob.room.width - knob.shaft.x,
                                   knob.room.height - knob.shaft.y}) -
                         knob.radius;
    return smooth(toEdge / std::clamp(space, 3.0, kLongest));
}

void cast(cairo_t* cr, const Knob& knob, double strength, std::span<const Soft> discs)
{
    const double r = knob.radius;
    const double reach = 1.6 * r;
    paintPixels(cr, 0.0, reach, {1, 1.0}, [&](double x, double y) {
        double light = 1.0;
        for (const Soft& disc : discs) light *= 1.0 - coverOf(disc, x / r, y / r);
        return Tint{kBlack, (1.0 - light) * strength * roomFade(knob, x, y)};
    });
}

} // namespace

void castShadow(cairo_t* cr, const Knob& knob, double strength)
{
    static constexpr Soft kDiscs[] = {{0.10, 0.22, 1.30, 0.50, 0.62}, {0.03, 0.07, 1.10, 0.45, 0.80}};
    cast(cr, knob, strength, kDiscs);
}

void castNearShadow(cairo_t* cr, const Knob& knob)
{
    static constexpr Soft kDiscs[] = {{0.14, 0.26, 1.30, 0.60, 0.62}};
    cast(cr, knob, 1.0, kDiscs);
}

void castOnBody(cairo_t* cr, const Knob& knob, double radius, double alpha, double inner)
{
    const double share = radius / knob.radius;
    const Soft disc{0.07 * share, 0.12 * share, share, alpha, inner};
    paintPixels(cr, 0.0, knob.radius, {2, 1.0}, [&](double x, double y) {
        if (std::hypot(x, y) > knob.radius) return Tint{kBlack, 0.0};
        return Tint{kBlack, coverOf(disc, x / knob.radius, y / knob.radius)};
    });
}

} // namespace velmora::art
