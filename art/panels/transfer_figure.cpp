#include "art/panels/transfer_figure.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"

#include <array>

namespace velmora::art {
namespace {

constexpr double kWidth = 72;
constexpr double kHeight = 46;
constexpr double kKneeX = 36;
constexpr double kLimitY = 13;

void drawGrid(cairo_t* cr)
{
    for (int column = 1; column < 6; ++column)
        drawLine(cr, 12 * column, 2, 12 * column, kHeight - 2, 0.6, kWhite, 0.1);
    for (int row = 1; row < 4; ++row) drawLine(cr, 2, 11.5 * row, kWidth - 2, 11.5 * row, 0.6, kWhite, 0.1);
}

/// Where levels would go without the limiter.
void drawUnlimited(cairo_t* cr)
{
    constexpr std::array dashes{2.0, 2.2};
    cairo_set_dash(cr, dashes.data(), dashes.size(), 0);
    drawLine(cr, kKneeX, kLimitY, kKneeX + 9.8, 4, 0.9, kWhite, 0.4);
    cairo_set_dash(cr, nullptr, 0, 0);
}

void drawCurve(cairo_t* cr, Colour colour)
{
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    cairo_move_to(cr, 4, kHeight - 5);
    cairo_line_to(cr, kKneeX, kLimitY);
    cairo_line_to(cr, kWidth - 4, kLimitY);
    useColour(cr, colour, 0.25);
    cairo_set_line_width(cr, 4);
    cairo_stroke_preserve(cr);
    useColour(cr, colour);
    cairo_set_line_width(cr, 2);
    cairo_stroke(cr);
}

} // namespace

void drawTransferFigure(cairo_t* cr, const UnitFace& face, double x, double y)
{
    cairo_save(cr);
    cairo_translate(cr, x, y);
    useLinear(cr, 0, 0, 0, kHeight, {{0, hex(0x0b0d0f)}, {1, hex(0x1c2024)}});
    fillRoundRect(cr, 0, 0, kWidth, kHeight, 3);
    drawLip(cr, -0.5, -0.5, kWidth + 1, kHeight + 1, 3.4, 0.5, 0.8);
    drawGrid(cr);
    drawUnlimited(cr);
    drawCurve(cr, face.accent);
    cairo_restore(cr);
}

} // namespace velmora::art
