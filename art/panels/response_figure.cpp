#include "art/panels/response_figure.h"

#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/law.h"
#include "art/parts/plate.h"
#include "art/parts/relief.h"

#include <array>
#include <cmath>

namespace velmora::art {
namespace {

constexpr double kLeft = 10;
constexpr double kTop = 226;
constexpr double kWidth = 132;
constexpr double kHeight = 116;

constexpr double kLowestHz = 20;
constexpr double kHighestHz = 30000;
constexpr double kHighestDb = 9;
constexpr double kLowestDb = -27;

constexpr double kHighPassHz = 90;
constexpr double kLowPassHz = 6500;

double frequencyX(double hertz)
{
    constexpr double kMargin = 8;
    const double share = std::log(hertz / kLowestHz) / std::log(kHighestHz / kLowestHz);
    return kLeft + kMargin + (kWidth - 2 * kMargin) * share;
}

double levelY(double decibels)
{
    return kTop + kHeight * (kHighestDb - decibels) / (kHighestDb - kLowestDb);
}

double responseDb(double hertz)
{
    const double below = std::pow(kHighPassHz / hertz, 4);
    const double above = std::pow(hertz / kLowPassHz, 4);
    return -10.0 * std::log10((1 + below) * (1 + above));
}

void drawGrid(cairo_t* cr)
{
    constexpr std::array kFineHz{50.0, 200.0, 500.0, 2000.0, 5000.0, 20000.0};
    constexpr std::array kDecadesHz{100.0, 1000.0, 10000.0};
    const auto across = [cr](double y, double alpha) {
        drawLine(cr, kLeft + 2, y, kLeft + kWidth - 2, y, 0.6, kWhite, alpha);
    };
    const auto down = [cr](double x, double alpha) {
        drawLine(cr, x, kTop + 2, x, kTop + kHeight - 2, 0.6, kWhite, alpha);
    };
    for (const double hertz : kFineHz) down(frequencyX(hertz), 0.06);
    for (const double hertz : kDecadesHz) down(frequencyX(hertz), 0.13);
    for (const double decibels : {6.0, -6.0, -12.0, -18.0, -24.0}) across(levelY(decibels), 0.06);
    across(levelY(0), 0.13);
}

void drawCurve(cairo_t* cr, Colour colour)
{
    cairo_save(cr);
    cairo_rectangle(cr, kLeft + 2, kTop + 2, kWidth - 4, kHeight - 4);
    cairo_clip(cr);
    useColour(cr, colour, 0.85);
    cairo_set_line_width(cr, 1.8);
    cairo_set_line_join(cr, CAIRO_LINE_JOIN_ROUND);
    constexpr int kPoints = 120;
    for (int point = 0; point <= kPoints; ++point) {
        const double hertz =
            kLowestHz * std::pow(kHighestHz / kLowestHz, static_cast<double>(point) / kPoints);
        cairo_line_to(cr, frequencyX(hertz), levelY(responseDb(hertz)));
    }
    cairo_stroke(cr);
    cairo_restore(cr);
}

void printFrequencies(cairo_t* cr, const UnitFace& face)
{
    for (const double hertz : {20.0, 100.0, 1000.0, 10000.0, 30000.0})
        drawLabel(cr, face, thousands(hertz), frequencyX(hertz), kTop + kHeight + 7,
                  {.size = 7, .spacing = 0.1, .font = Face::Narrow});
}

} // namespace

void drawResponseFigure(cairo_t* cr, const UnitFace& face)
{
    drawWell(cr, kLeft, kTop, kWidth, kHeight,
             {.radius = 5, .darkening = 0.35, .upperDark = 0.6, .lowerLight = 0.2});
    drawGrid(cr);
    drawCurve(cr, face.accent);
    printFrequencies(cr, face);
}

} // namespace velmora::art
