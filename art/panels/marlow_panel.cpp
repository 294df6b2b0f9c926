#include "art/panels/printing.h"
#include "art/panels/row_tick.h"
#include "art/panels/special_fields.h"
#include "art/panels/special_panels.h"
#include "art/panels/trim_dial.h"
#include "art/parts/switches/bar_meter.h"
#include "art/parts/switches/lamp.h"
#include "params/laws/special_laws.h"

#include <array>

namespace velmora::art {
namespace {

constexpr DialLook kLarge{.radius = 24.2, .numbers = 32.8, .tick = 3.5};
constexpr DialLook kSmall{.radius = 20, .numbers = 28.2, .size = 7, .tick = 3.4};
constexpr Label kName{.size = 7.3, .spacing = 0.2};

constexpr double kBarX = 108;
constexpr double kBarY = 212;

void drawWells(cairo_t* cr, const UnitFace& face)
{
    constexpr std::array windows{Window{16, 116, 60, 15}, Window{106, 116, 26, 15}, Window{15, 257, 50, 15},
                                 Window{15, 349, 50, 15}, Window{16, 457, 60, 15},  Window{106, 392, 26, 15},
                                 Window{106, 457, 26, 15}};
    for (const Window& window : windows)
        drawWindow(cr, face, window.x, window.y, window.width, window.height, WindowStyle::Dark);
    drawLampRing(cr, 60, 187, face.isLight());
    drawLampRing(cr, 60, 279, face.isLight());
    drawGainBarWell(cr, kBarX, kBarY);
}

void printGainBar(cairo_t* cr, const UnitFace& face)
{
    constexpr double kMiddle = kBarY + 64;
    constexpr double kPixelsPerDb = 63.0 / 24;
    for (const double decibels : {24, 12, 0, -12, -24}) {
        const double y = kMiddle - decibels * kPixelsPerDb;
        drawRowTick(cr, kBarX - 6, kBarX - 2.5, y, {face.ink});
        drawLabel(cr, face, signedNumber(decibels), kBarX - 8, y,
                  {.size = 7, .align = Align::Right, .spacing = 0, .font = Face::Narrow});
    }
    drawLabel(cr, face, "GAIN dB", 119.5, 348, {.size = 7, .spacing = 0});
}

/// Above the three positions of a slide of 78 x 42 at (37, top), and its name beside it.
void printSlide(cairo_t* cr, const UnitFace& face, std::string_view name, double top,
                const std::array<Icon, 3>& signs)
{
    double x = 50;
    for (const Icon sign : signs) {
        drawIcon(cr, sign, x, top + 9.5, 15, 8, face.ink, {.alpha = 0.95, .lineWidth = 1.4});
        x += 26;
    }
    drawLabel(cr, face, name, 21, top + 28.5, {.size = 7.3});
}

void printKnobs(cairo_t* cr, const UnitFace& face)
{
    const DialScale threshold{.law = marlow::thresholdDb,
                              .numbers = steps(-80, 20, 20),
                              .fine = steps(-70, 10, 20),
                              .text = signedNumber};
    const DialScale gain{.law = marlow::gainDb,
                         .numbers = steps(-24, 24, 12),
                         .fine = steps(-18, 18, 12),
                         .text = signedNumber};
    const DialScale frequency{.law = marlow::frequencyHz,
                              .numbers = {20, 100, 1000, 10000, 20000},
                              .ticks = {50, 200, 500, 2000, 5000},
                              .fine = {30, 40, 70, 300, 400, 700, 3000, 4000, 7000},
                              .text = thousands};
    printDials(cr, face,
               {{46, 86, threshold, kLarge},
                {40, 231, gain, kSmall},
                {40, 323, gain, kSmall},
                {46, 426, frequency, kLarge}});

    const DialScale time{.law = marlow::timeFactor, .ticks = {0.1, 0.2, 0.5, 1, 2, 5, 10}};
    const DialScale transition{.ticks = steps(0, 1, 1.0 / 6)};
    const DialScale q{.law = marlow::peakQ, .ticks = {0.1, 0.2, 0.5, 1, 2, 5, 10}};
    printTrim(cr, face, {119.5, 101.5, time, "0.1", "10"});
    printTrim(cr, face, {119.5, 377.5, transition, "0", "24"});
    printTrim(cr, face, {119.5, 442.5, q, "0.1", "10"});
}

} // namespace

void drawMarlowPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Special);
    drawFace(cr, face);
    drawField(cr, 29, 106);
    drawField(cr, 185, 292);
    drawGroove(cr, face, 9, 368, 98);
    drawWells(cr, face);
    printKnobs(cr, face);
    printGainBar(cr, face);
    printSlide(cr, face, "TYPE", 146, {Icon::LowShelf, Icon::Bell, Icon::HighShelf});
    printSlide(cr, face, "KEY", 480, {Icon::Off, Icon::Direct, Icon::Complement});
    printWords(cr, face,
               {{"THRESHOLD", 46, 39.5, {.size = 7.5, .spacing = 0.2}},
                {"TIME", 119.5, 83, kName},
                {"ABOVE", 55, 194.5, {.size = 7.3, .align = Align::Right, .spacing = 0.2}},
                {"BELOW", 55, 286.5, {.size = 7.3, .align = Align::Right, .spacing = 0.2}},
                {"FREQ Hz", 46, 380.5, {.size = 7.5}},
                {"TRANS", 119.5, 359.5, {.size = 7, .spacing = 0.2}},
                {"Q", 119.5, 423, {}}});
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

} // namespace velmora::art
