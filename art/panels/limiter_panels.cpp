#include "art/paint/gradient.h"
#include "art/panels/limiter_dials.h"
#include "art/panels/printing.h"
#include "art/panels/transfer_figure.h"
#include "art/parts/law.h"
#include "art/parts/relief.h"
#include "art/parts/switches/limiter_meter.h"
#include "art/resource.h"

#include <array>
#include <cstdlib>
#include <numbers>

namespace velmora::art {
namespace {

// Every limiter has wells and rules, which its bare panel has too, and print.

constexpr Label kSmallName{.size = 7.5};

/// Where the meters at the top stand proud of the face.
void drawMeterShadow(cairo_t* cr, double x, double y, double width, double height)
{
    drawSoftRect(cr, x + 5, y + 5, width - 4, height - 4, 6, 5, 0.45);
}

void drawRules(cairo_t* cr, const UnitFace& face, std::initializer_list<double> rows)
{
    for (const double y : rows) drawGroove(cr, face, 8, y, 144);
}

/// The four windows that all but one limiter have.
void drawFourWindows(cairo_t* cr, const UnitFace& face)
{
    drawWindows(cr, face, {{15, 181, 46, 15}, {90, 181, 46, 15}, {46, 307, 60, 15}, {46, 440, 60, 15}});
}

// Opto Lim

void layOptoLimiter(cairo_t* cr, const UnitFace& face)
{
    drawMeterShadow(cr, 6, 29, 138, 67);
    drawWindows(cr, face, {{17, 183, 43, 15}, {92, 183, 43, 15}, {48, 317.5, 57, 13}, {48, 450.5, 57, 13}});
    drawKeyFilterWindow(cr, face);
    drawGroove(cr, face, 6, 474, 146);
}

void printOptoLimiter(cairo_t* cr, const UnitFace& face)
{
    constexpr DialLook small{.radius = 26, .numbers = 36, .size = 7.5};
    constexpr DialLook large{.radius = 42, .numbers = 52, .size = 8.2, .tick = 4.6};
    printDials(cr, face,
               {{38.5, 152, limiterAttack(), small},
                {113.5, 152, limiterReleaseNarrow(), small},
                {76.5, 270, limiterCeilingLarge(), large},
                {76.5, 403, limiterOutputLarge(), large}});
    printWords(cr, face,
               {{"ATTACK", 38.5, 106},
                {"RELEASE", 113.5, 106},
                {"CEILING", 76.5, 211, {.size = 8.5}},
                {"OUTPUT", 76.5, 340, {.size = 8.5}},
                {"SOFT", 115.5, 486, kSmallName}});
    printKeyFilter(cr, face);
}

// VCA Lim

void layVcaLimiter(cairo_t* cr, const UnitFace& face)
{
    drawMeterShadow(cr, 10, 30, 133, 71);
    drawFourWindows(cr, face);
    drawKeyFilterWindow(cr, face);
    drawRules(cr, face, {205, 338, 470});
}

void printVcaLimiter(cairo_t* cr, const UnitFace& face)
{
    constexpr DialLook small{.radius = 19.5, .numbers = 28.8, .tick = 3.6};
    constexpr DialLook large{.radius = 24.5, .numbers = 34};
    printDials(cr, face,
               {{38, 149, limiterAttack(), small},
                {113, 149, limiterRelease(), small},
                {76, 266, limiterCeiling(), large},
                {76, 399, limiterOutput(), large}});
    printWords(cr, face,
               {{"ATTACK", 38, 111.5, kSmallName},
                {"RELEASE", 113, 111.5, kSmallName},
                {"CEILING", 76, 218},
                {"OUTPUT", 76, 351},
                {"SOFT", 118, 484.5, kSmallName}});
    printKeyFilter(cr, face);
}

// BrickWall

constexpr double kBrickMeterX = 13;
constexpr double kBrickMeterY = 50;

void layBrickWall(cairo_t* cr, const UnitFace& face)
{
    drawBrickMeter(cr, kBrickMeterX, kBrickMeterY, false);
    drawLip(cr, kBrickMeterX - 0.5, kBrickMeterY - 0.5, 127, 23, 3, 0.55, 0.8);
    drawFourWindows(cr, face);
    drawRules(cr, face, {93, 205, 338, 470});
    drawTransferFigure(cr, face, 14, 482);
}

/// The modes take up only the start of their knob's travel.
void drawModeArc(cairo_t* cr, double x, double y, double radius, Colour colour)
{
    const auto radians = [](double position) { return (dialAngle(position) - 90) * std::numbers::pi / 180; };
    useColour(cr, colour, 0.8);
    cairo_set_line_width(cr, 1);
    cairo_new_path(cr);
    cairo_arc(cr, x, y, radius, radians(0.0), radians(0.2));
    cairo_stroke(cr);
}

/// Below the bar, which runs left from its 122nd column over 118.
void printBrickMeter(cairo_t* cr, const UnitFace& face)
{
    struct Mark {
        double decibels;
        bool numbered;
    };
    constexpr std::array marks{Mark{0, true},  Mark{1, true},   Mark{2, true},  Mark{3, true},
                               Mark{4, false}, Mark{5, true},   Mark{6, false}, Mark{8, false},
                               Mark{10, true}, Mark{15, false}, Mark{20, true}};
    for (const Mark& mark : marks) {
        const double x = kBrickMeterX + 122 - 118 * reductionDeflection(mark.decibels);
        drawLine(cr, x, 74, x, mark.numbered ? 77.5 : 76.3, 1, face.ink, 0.9);
        if (mark.numbered)
            drawLabel(cr, face, plainNumber(mark.decibels), x, 82,
                      {.size = 7.2, .spacing = 0, .font = Face::Narrow});
    }
}

void printBrickWall(cairo_t* cr, const UnitFace& face)
{
    constexpr DialLook small{.radius = 20, .numbers = 29.5, .tick = 3.6};
    constexpr DialLook large{.radius = 24.2, .numbers = 34};
    printBrickMeter(cr, face);
    const DialScale modes{.marks = {{0.0, "1"}, {0.1, "2"}, {0.2, "3"}}};
    drawModeArc(cr, 39, 150, small.radius, face.ink);
    printDials(cr, face,
               {{39, 150, modes, {.radius = 20, .numbers = 29, .size = 8}},
                {114, 150, limiterRelease(), small},
                {76, 267, limiterCeiling(), large},
                {76, 400, limiterOutput(), large}});
    printWords(cr, face,
               {{"GAIN REDUCTION", 76, 38, {.size = 7.5, .spacing = 0.6}},
                {"MODE", 39, 108, kSmallName},
                {"RELEASE", 114, 108, kSmallName},
                {"CEILING", 76, 219},
                {"OUTPUT", 76, 352},
                {"SOFT", 117.5, 486.5, kSmallName}});
}

// Saturator

/// Rungs at either side of the eye, the middle ones brightest.
void drawRungs(cairo_t* cr, Colour colour)
{
    for (const double x : {12.0, 140.0})
        for (int rung = -3; rung <= 3; ++rung)
            drawLine(cr, x - 5, 66 + 8 * rung, x + 5, 66 + 8 * rung, 1.2, colour,
                     0.75 - 0.08 * std::abs(rung));
}

void laySaturator(cairo_t* cr, const UnitFace& face)
{
    drawRungs(cr, face.accent);
    drawSoftDisc(cr, 77.5, 69, 35, 0.5, 0.75);
    drawFourWindows(cr, face);
    drawKeyFilterWindow(cr, face);
    drawRules(cr, face, {204, 336, 469});
}

void printSaturator(cairo_t* cr, const UnitFace& face)
{
    constexpr DialLook large{.radius = 32.5, .numbers = 41};
    const DialScale smooth{.law = percentage, .numbers = steps(0, 100, 25), .fine = steps(5, 95, 5)};
    const DialScale shapes{
        .marks = {{0.0, "V1"}, {0.1, "V2"}, {0.2, "T1"}, {0.3, "T2"}, {0.4, "SC"}, {0.5, "HC"}}};
    printDials(cr, face,
               {{38, 147, smooth, {.radius = 20, .numbers = 29, .tick = 3.6}},
                {114, 147, shapes, {.radius = 20, .numbers = 30.2, .tick = 3.6}},
                {76, 266, limiterCeilingLarge(), large},
                {76, 399, limiterOutputLarge(), large}});
    printWords(cr, face,
               {{"SMOOTH", 38, 106, kSmallName},
                {"SHAPE", 114, 106, kSmallName},
                {"CEILING", 76, 215},
                {"OUTPUT", 76, 347},
                {"SOFT", 115.5, 484, kSmallName}});
    printKeyFilter(cr, face);
}

using Draw = void (*)(cairo_t*, const UnitFace&);

template <Unit unit, Draw lay, Draw print>
void drawPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(unit);
    drawFace(cr, face);
    lay(cr, face);
    if constexpr (print != nullptr) print(cr, face);
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

constexpr Resource panel(std::uint32_t id, void (*draw)(cairo_t*))
{
    return {id, kPanelWidth, kPanelHeight, draw};
}

constexpr std::array kPanels{
    panel(36000, drawPanel<Unit::OptoLimiter, layOptoLimiter, nullptr>),
    panel(36006, drawPanel<Unit::OptoLimiter, layOptoLimiter, printOptoLimiter>),
    panel(36100, drawPanel<Unit::VcaLimiter, layVcaLimiter, nullptr>),
    panel(36101, drawPanel<Unit::VcaLimiter, layVcaLimiter, printVcaLimiter>),
    panel(36200, drawPanel<Unit::BrickWall, layBrickWall, nullptr>),
    panel(36201, drawPanel<Unit::BrickWall, layBrickWall, printBrickWall>),
    panel(36300, drawPanel<Unit::Saturator, laySaturator, nullptr>),
    panel(36301, drawPanel<Unit::Saturator, laySaturator, printSaturator>),
};

} // namespace

std::span<const Resource> limiterPanels()
{
    return kPanels;
}

} // namespace velmora::art
