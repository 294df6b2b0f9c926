#include "art/parts/knobs/flutes.h"

#include "art/parts/knobs/pixels.h"

#include <numbers>

namespace velmora::art {
namespace {

constexpr double kPi = std::numbers::pi;

// Towards the lamp, which stands half as high above the panel as a right angle.
constexpr double kLampAside = 0.5;
constexpr double kLampAbove = std::numbers::sqrt2 / 2.0;

constexpr double kEdge = 1.3; // pixels

struct Outline {
    double radius;
    double lean;   // its change per radian
    double hollow; // 1 in the middle of a flute, 0 on a crest
};

Outline outlineAt(const Flutes& flutes, double angle)
{
    const double turn = flutes.count * angle;
    const double wave = std::max(0.5 + 0.5 * std::cos(turn), 1e-9);
    const double hollow = flutes.round == 1.0 ? wave : std::pow(wave, flutes.round);
    const double slide = -0.5 * flutes.count * std::sin(turn) * flutes.round * hollow / wave;
    return {flutes.radius * (1.0 - flutes.depth * hollow), -flutes.radius * flutes.depth * slide, hollow};
}

double cube(double value)
{
    return value * value * value;
}

Colour colourAt(const Slope& slope, double share)
{
    const double s = std::clamp(share, 0.0, 1.0);
    return s < 0.5 ? mix(slope.bright, slope.middle, 2.0 * s) : mix(slope.middle, slope.dark, 2.0 * s - 1.0);
}

} // namespace

void drawFluted(cairo_t* cr, const Flutes& flutes, const Slope& slope, double degrees, Colour glint)
{
    const double start = degrees * kPi / 180.0;
    const double reach = slope.reach * flutes.radius;
    const double steep = flutes.steep * kPi / 180.0;
    paintPixels(cr, flutes.inner, flutes.radius, {4, 1.0}, [&](double x, double y) {
        const double radius = std::sqrt(x * x + y * y);
        const Outline outline = outlineAt(flutes, std::atan2(x, -y) - start);
        if (radius > outline.radius) return Tint{kBlack, 0.0};
        const Colour body = colourAt(slope, 0.5 + (x + y) / (4.0 * reach));
        const double fall = (radius / outline.radius - flutes.shoulder) / (1.0 - flutes.shoulder);
        if (fall <= 0.0) return Tint{body, 1.0};

        // The way the wall looks: outwards, leaning aside where the outline does.
        const double lean = flutes.relief * outline.lean / outline.radius;
        const double length = std::sqrt(1.0 + lean * lean) * radius;
        const double outX = (x + lean * y) / length;
        const double outY = (y - lean * x) / length;
        const double tilt = steep * fall * std::sqrt(fall);
        const double facing = -kLampAside * (outX + outY);
        const double light = std::sin(tilt) * facing + std::cos(tilt) * kLampAbove;
        const double change = light - kLampAbove;
        const double ends = std::min(1.0, 3.0 * fall);
        const double groove = flutes.groove * cube(outline.hollow) * ends;
        const double crest = flutes.crest * cube(1.0 - outline.hollow) * std::max(0.0, facing) * ends;
        const double rim =
            flutes.edge * std::max(0.0, facing) * std::max(0.0, 1.0 - (outline.radius - radius) / kEdge);
        const double tone = (change > 0.0 ? flutes.shine : flutes.shade) * change - groove + crest + rim;
        return Tint{tone > 0.0 ? mix(body, glint, std::min(tone, 1.0)) : darker(body, std::min(-tone, 1.0)),
                    1.0};
    });
}

} // namespace velmora::art
