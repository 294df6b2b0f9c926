#include "art/paint/gradient.h"
#include "art/panels/printing.h"
#include "art/panels/row_tick.h"
#include "art/parts/law.h"
#include "art/parts/relief.h"
#include "art/resource.h"

#include <array>

namespace velmora::art {
namespace {

/// Levels with a number; the infinite one stands at the fader's very end.
constexpr std::array kNumberedDb{10, 5, 0, -5, -10, -15, -20, -30, -40, -60};
constexpr std::array kFineDb{9, 8, 7, 6, 4, 3, 2, 1, -1, -2, -3, -4, -6, -7, -8, -9, -12, -18, -25, -35, -50};

constexpr double kFaderX = 39;
constexpr double kFaderHigh = 123; // middle of the cap at +10 dB
constexpr double kFaderTravel = 316;
constexpr double kSlotTop = 84;
constexpr double kSlotHeight = 376;

constexpr double kMeterX = 84;
constexpr double kMeterY = 92;
constexpr double kMeterWidth = 58;
constexpr double kMeterHeight = 341;
constexpr double kMeterMiddle = kMeterX + kMeterWidth / 2;
constexpr double kBarTop = 111;
constexpr double kBarHeight = 315;
constexpr double kBarWidth = 6;
constexpr std::array kBarsX{90.0, 130.0}; // peak and RMS
constexpr double kLampsY = 98;
constexpr double kLampWidth = 8;
constexpr double kLampHeight = 6;
constexpr Colour kMeterInk = hex(0xc9ced2);

double faderY(double decibels)
{
    return kFaderHigh + kFaderTravel * (1 - positionOf(faderDb, decibels));
}

double meterY(double decibels)
{
    return kBarTop + kBarHeight * (1 - positionOf(faderDb, decibels));
}

void drawScrews(cairo_t* cr)
{
    drawScrew(cr, 10, 40, 3.6, 20);
    drawScrew(cr, 142, 40, 3.6, 65);
    drawScrew(cr, 10, 524, 3.6, 80);
    drawScrew(cr, 142, 524, 3.6, 10);
}

void drawFaderSlot(cairo_t* cr)
{
    useLinear(cr, kFaderX - 4, 0, kFaderX + 4, 0, {{0, kBlack}, {0.5, hex(0x070809)}, {1, hex(0x2f3235)}});
    fillRoundRect(cr, kFaderX - 3.5, kSlotTop, 7, kSlotHeight, 3.5);
    useLinear(cr, kFaderX - 4, 0, kFaderX + 4, 0, {{0, kBlack, 0.9}, {1, kWhite, 0.32}});
    strokeRoundRect(cr, 1, kFaderX - 4, kSlotTop - 0.5, 8, kSlotHeight + 1, 4);
}

/// A tick on either side of the fader.
void drawFaderTicks(cairo_t* cr, double y, double outer, const RowTick& tick)
{
    for (const double side : {-1.0, 1.0})
        drawRowTick(cr, kFaderX + side * 9, kFaderX + side * outer, y, tick);
}

void printFader(cairo_t* cr, const UnitFace& face)
{
    Label number{.size = 7.2, .align = Align::Right, .spacing = 0, .font = Face::Narrow};
    for (const int decibels : kFineDb) drawFaderTicks(cr, faderY(decibels), 13, {face.ink, 0.5});
    for (const int decibels : kNumberedDb) {
        const double y = faderY(decibels);
        drawFaderTicks(cr, y, decibels == 0 ? 19 : 17, {face.ink, 0.95});
        drawLabel(cr, face, signedNumber(decibels), 72, y, number);
    }
    number.size = 9;
    number.font = Face::Sans;
    drawLabel(cr, face, "\u221e", 72, kFaderHigh + kFaderTravel, number);
    drawFaderTicks(cr, kFaderHigh + kFaderTravel, 17, {face.ink, 0.95});
}

void drawMeterWell(cairo_t* cr)
{
    useColour(cr, hex(0x08090a));
    fillRoundRect(cr, kMeterX, kMeterY, kMeterWidth, kMeterHeight, 4);
    drawLip(cr, kMeterX - 0.5, kMeterY - 0.5, kMeterWidth + 1, kMeterHeight + 1, 4.5, 1, 0.28);
    for (const double x : kBarsX) {
        useColour(cr, kBlack);
        fillRoundRect(cr, x - 1, kBarTop - 1, kBarWidth + 2, kBarHeight + 2, 1.5);
        drawLip(cr, x - 1.5, kBarTop - 1.5, kBarWidth + 3, kBarHeight + 3, 2, 0.8, 0.14);
    }
    // The glass in front of it catches light along its left edge.
    useLinear(cr, kMeterX, 0, kMeterX + kMeterWidth, 0,
              {{0, kWhite, 0.08}, {0.4, kWhite, 0.02}, {0.4, kWhite, 0}});
    fillRoundRect(cr, kMeterX, kMeterY, kMeterWidth, kMeterHeight, 4);
}

void printMeter(cairo_t* cr)
{
    const Lettering lettering{.size = 7.2, .colour = kMeterInk, .face = Face::Narrow, .bold = true};
    for (const int decibels : kNumberedDb) {
        const double y = meterY(decibels);
        drawText(cr, signedNumber(decibels), kMeterMiddle, y, lettering);
        for (const double x : {kMeterX + 15, kMeterX + 39}) drawRowTick(cr, x, x + 4, y, {kMeterInk, 0.5});
    }
    drawText(cr, "CLIP", kMeterMiddle, kLampsY + kLampHeight / 2,
             {.size = 6.8, .colour = hex(0x9aa0a5), .bold = true, .spacing = 0.3});
}

/// The dark lamps above the bars, which light when the output overloads.
void drawOverloadLamps(cairo_t* cr)
{
    for (const double bar : kBarsX) {
        const double x = bar + (kBarWidth - kLampWidth) / 2;
        useLinear(cr, 0, kLampsY, 0, kLampsY + kLampHeight, {{0, hex(0x2c0d0b)}, {1, hex(0x42160f)}});
        fillRoundRect(cr, x, kLampsY, kLampWidth, kLampHeight, 1.5);
        drawLip(cr, x - 0.5, kLampsY - 0.5, kLampWidth + 1, kLampHeight + 1, 2, 0.8, 0.16);
    }
}

/// Where the held levels are written, one above the other.
void drawHoldWindow(cairo_t* cr)
{
    constexpr double x = 98;
    constexpr double y = 435;
    constexpr double width = 30;
    constexpr double height = 27;
    useColour(cr, hex(0x08090a));
    fillRoundRect(cr, x, y, width, height, 2.5);
    drawLip(cr, x - 0.5, y - 0.5, width + 1, height + 1, 3, 1, 0.22);
}

void printHolds(cairo_t* cr, const UnitFace& face)
{
    const Label name{.size = 7.2, .align = Align::Right, .spacing = 0.2, .font = Face::Narrow};
    const Label unit{.size = 7, .align = Align::Left, .spacing = 0.2};
    printWords(cr, face, {{"PK", 94.5, 441.5, name}, {"RMS", 94.5, 455.5, name}});
    printWords(cr, face, {{"dB", 131.5, 441.5, unit}, {"dB", 131.5, 455.5, unit}});
}

template <bool printed>
void drawMaster(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Master);
    drawFace(cr, face);
    drawScrews(cr);
    if (printed) printFader(cr, face);
    drawFaderSlot(cr);
    drawWindow(cr, face, 16, 465, 46, 16);
    drawMeterWell(cr);
    drawOverloadLamps(cr);
    drawHoldWindow(cr);
    if (printed) {
        printMeter(cr);
        printHolds(cr, face);
        printWords(cr, face,
                   {{"LEVEL", kFaderX, 62},
                    {"METER", kMeterMiddle, 62},
                    {"MEASURE", kMeterMiddle, 491, {.size = 7, .alpha = 0.9}},
                    {"OUTPUT", 76, 512, {.size = 9, .alpha = 0.55, .spacing = 4}}});
    }
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

constexpr auto kPanels = std::to_array<Resource>({
    {37000, kPanelWidth, kPanelHeight, drawMaster<false>},
    {37001, kPanelWidth, kPanelHeight, drawMaster<true>},
});

} // namespace

std::span<const Resource> masterPanels()
{
    return kPanels;
}

} // namespace velmora::art
