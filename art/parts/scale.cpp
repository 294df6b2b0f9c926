#include "art/parts/scale.h"

#include "art/paint/gradient.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmora::art {
namespace {

constexpr double kNumberedWidth = 1.2;
constexpr double kFineWidth = 0.8;
constexpr double kFineShare = 0.62; // of a numbered tick's length
constexpr double kEndAngle = 140.0; // beyond it a number stands beside its tick

struct Dial {
    cairo_t* cr;
    const UnitFace& face;
    double x, y;
    const DialLook& look;
    Colour colour;

    void drawTick(double position, double length, double width, double alpha) const
    {
        const double angle = dialAngle(position);
        const Spot from = onCircle(x, y, look.radius, angle);
        const Spot to = onCircle(x, y, look.radius + length, angle);
        drawLine(cr, from.x, from.y, to.x, to.y, width, colour, alpha * look.alpha);
    }

    void drawNumbered(double position, const std::string& text) const
    {
        drawTick(position, look.tick, kNumberedWidth, 0.98);
        if (!text.empty()) drawNumber(dialAngle(position), text);
    }

    void drawNumber(double angle, const std::string& text) const
    {
        const Lettering lettering{.size = look.size,
                                  .colour = colour,
                                  .alpha = look.alpha,
                                  .face = look.font,
                                  .bold = true,
                                  .relief = face.relief};
        const double half = textWidth(cr, text, lettering) / 2;
        Spot spot = onCircle(x, y, look.numbers.value_or(look.radius + look.tick + 5.2), angle);
        // Wide numbers move out sideways, so that their nearer end keeps the distance.
        spot.x += (half - 2.2) * std::sin(angle * std::numbers::pi / 180.0) * 0.75;
        if (std::abs(angle) > kEndAngle) {
            const Spot end = onCircle(x, y, look.radius + look.tick, angle);
            spot = {end.x + std::copysign(half + 1.4, angle), end.y - 0.4};
        }
        spot.x = std::clamp(spot.x, half + 3, kPanelWidth - 3 - half);
        drawText(cr, text, spot.x, spot.y, lettering);
    }
};

} // namespace

void drawDialScale(cairo_t* cr, const UnitFace& face, double x, double y, const DialScale& scale,
                   const DialLook& look)
{
    const Dial dial{cr, face, x, y, look, look.colour.value_or(face.ink)};
    for (const double value : scale.fine)
        dial.drawTick(positionOf(scale.law, value), look.tick * kFineShare, kFineWidth, 0.75);
    for (const double value : scale.ticks) dial.drawNumbered(positionOf(scale.law, value), "");
    for (const double value : scale.numbers)
        dial.drawNumbered(positionOf(scale.law, value), scale.text(value));
    for (const DialScale::Mark& mark : scale.marks) dial.drawNumbered(mark.position, mark.text);
}

std::vector<double> steps(double from, double to, double step)
{
    std::vector<double> values;
    const int count = static_cast<int>(std::lround((to - from) / step));
    for (int index = 0; index <= count; ++index) values.push_back(from + index * step);
    return values;
}

} // namespace velmora::art
