#include "art/parts/icon.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"

#include <span>

namespace velmora::art {
namespace {

enum class Pen { Move, Line, Curve, Close };

/// A step of a figure in a field from -0.5 to 0.5; a curve has two control points before its end.
struct Step {
    Pen pen;
    double x = 0.0, y = 0.0;
    double x2 = 0.0, y2 = 0.0;
    double x3 = 0.0, y3 = 0.0;
};

using enum Pen;

constexpr double kL = -0.5; // left
constexpr double kR = 0.5;  // right
constexpr double kT = -0.5; // top
constexpr double kB = 0.5;  // bottom

// clang-format off
constexpr Step kLowShelf[] = {{Move, kL, kT}, {Curve, 0, kT, -0.1, kB, 0.12, kB}, {Line, kR, kB}};
constexpr Step kHighShelf[] = {{Move, kL, kB}, {Line, -0.12, kB}, {Curve, 0.1, kB, 0, kT, kR, kT}};
constexpr Step kSoftHigh[] = {{Move, kL, kB}, {Curve, 0, kB, 0, kT, kR, kT}};
constexpr Step kMediumHigh[] = {{Move, kL, kB}, {Line, -0.3, kB}, {Curve, 0, kB, 0, kT, 0.3, kT}, {Line, kR, kT}};
constexpr Step kSteepHigh[] = {{Move, kL, kB}, {Line, -0.12, kB}, {Curve, 0, kB, 0, kT, 0.12, kT}, {Line, kR, kT}};
constexpr Step kSoftLow[] = {{Move, kR, kB}, {Curve, 0, kB, 0, kT, kL, kT}};
constexpr Step kMediumLow[] = {{Move, kR, kB}, {Line, 0.3, kB}, {Curve, 0, kB, 0, kT, -0.3, kT}, {Line, kL, kT}};
constexpr Step kSteepLow[] = {{Move, kR, kB}, {Line, 0.12, kB}, {Curve, 0, kB, 0, kT, -0.12, kT}, {Line, kL, kT}};
constexpr Step kBell[] = {{Move, kL, kB}, {Curve, -0.2, kB, -0.22, kT, 0, kT}, {Curve, 0.22, kT, 0.2, kB, kR, kB}};
constexpr Step kWide[] = {{Move, kL, kB}, {Curve, -0.38, kB, -0.42, kT, 0, kT}, {Curve, 0.42, kT, 0.38, kB, kR, kB}};
constexpr Step kNarrow[] = {{Move, kL, kB}, {Line, -0.2, kB}, {Curve, -0.07, kB, -0.09, kT, 0, kT},
                            {Curve, 0.09, kT, 0.07, kB, 0.2, kB}, {Line, kR, kB}};
constexpr Step kPeak[] = {{Move, kL, kB}, {Line, -0.14, kB}, {Line, 0, kT}, {Line, 0.14, kB}, {Line, kR, kB}};
constexpr Step kNotch[] = {{Move, kL, kT}, {Line, -0.18, kT}, {Curve, -0.08, kT, -0.05, kB, 0, kB},
                           {Curve, 0.05, kB, 0.08, kT, 0.18, kT}, {Line, kR, kT}};
constexpr Step kFlat[] = {{Move, kL, 0}, {Line, kR, 0}};
constexpr Step kCross[] = {{Move, kL, kT}, {Curve, 0, kT, 0, kB, kR, kB}, {Move, kL, kB}, {Curve, 0, kB, 0, kT, kR, kT}};
constexpr Step kOffStroke[] = {{Move, -0.32, kB}, {Line, 0.32, kT}};
constexpr Step kDirect[] = {{Move, kL, kB}, {Curve, -0.2, kB, -0.22, kT, 0, kT}, {Curve, 0.22, kT, 0.2, kB, kR, kB}, {Close}};
constexpr Step kComplement[] = {{Move, kL, kB}, {Line, kL, kT}, {Line, kR, kT}, {Line, kR, kB},
                                {Curve, 0.2, kB, 0.22, -0.31, 0, -0.31}, {Curve, -0.22, -0.31, -0.2, kB, kL, kB}, {Close}};
constexpr Step kUp[] = {{Move, 0, kT}, {Line, kR, kB}, {Line, kL, kB}, {Close}};
constexpr Step kDown[] = {{Move, 0, kB}, {Line, kR, kT}, {Line, kL, kT}, {Close}};
constexpr Step kLeft[] = {{Move, kL, 0}, {Line, kR, kT}, {Line, kR, kB}, {Close}};
constexpr Step kRight[] = {{Move, kR, 0}, {Line, kL, kT}, {Line, kL, kB}, {Close}};
constexpr Step kUpDown[] = {{Move, 0, kT}, {Line, kR, -0.125}, {Line, kL, -0.125}, {Close},
                            {Move, 0, kB}, {Line, kR, 0.125}, {Line, kL, 0.125}, {Close}};
// clang-format on

struct Figure {
    std::span<const Step> steps;
    bool filled = false;
};

Figure figureOf(Icon icon)
{
    switch (icon) {
    case Icon::LowShelf:
        return {kLowShelf};
    case Icon::HighShelf:
        return {kHighShelf};
    case Icon::SoftHighShelf:
        return {kSoftHigh};
    case Icon::MediumHighShelf:
        return {kMediumHigh};
    case Icon::SteepHighShelf:
        return {kSteepHigh};
    case Icon::SoftLowShelf:
        return {kSoftLow};
    case Icon::MediumLowShelf:
        return {kMediumLow};
    case Icon::SteepLowShelf:
        return {kSteepLow};
    case Icon::Bell:
        return {kBell};
    case Icon::Wide:
        return {kWide};
    case Icon::Narrow:
        return {kNarrow};
    case Icon::Peak:
        return {kPeak};
    case Icon::Notch:
        return {kNotch};
    case Icon::Flat:
        return {kFlat};
    case Icon::Cross:
        return {kCross};
    case Icon::Off:
        return {kOffStroke};
    case Icon::Direct:
        return {kDirect, true};
    case Icon::Complement:
        return {kComplement, true};
    case Icon::Up:
        return {kUp, true};
    case Icon::Down:
        return {kDown, true};
    case Icon::Left:
        return {kLeft, true};
    case Icon::Right:
        return {kRight, true};
    case Icon::UpDown:
        return {kUpDown, true};
    }
    return {};
}

} // namespace

void drawIcon(cairo_t* cr, Icon icon, double x, double y, double width, double height, Colour colour,
              const IconLook& look)
{
    const auto px = [&](double share) { return x + width * share; };
    const auto py = [&](double share) { return y + height * share; };
    const Figure figure = figureOf(icon);
    cairo_save(cr);
    useColour(cr, colour, look.alpha);
    cairo_set_line_width(cr, look.lineWidth);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_new_path(cr);
    if (icon == Icon::Off) addCircle(cr, x, y, height / 2);
    for (const Step& step : figure.steps) {
        switch (step.pen) {
        case Move:
            cairo_move_to(cr, px(step.x), py(step.y));
            break;
        case Line:
            cairo_line_to(cr, px(step.x), py(step.y));
            break;
        case Curve:
            cairo_curve_to(cr, px(step.x), py(step.y), px(step.x2), py(step.y2), px(step.x3), py(step.y3));
            break;
        case Close:
            cairo_close_path(cr);
            break;
        }
    }
    if (figure.filled) cairo_fill_preserve(cr);
    cairo_stroke(cr);
    cairo_restore(cr);
}

} // namespace velmora::art
