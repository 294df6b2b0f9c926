#include "art/paint/gradient.h"
#include "art/panels/eq_bands.h"
#include "art/panels/eq_panels.h"
#include "art/panels/printing.h"
#include "art/panels/row_tick.h"
#include "art/parts/relief.h"

namespace velmora::art {
namespace {

constexpr double kPitch = 112;
constexpr DialLook kGain{.radius = 26.5, .numbers = 34.4, .size = 7, .tick = 3};

// The slider's cap, 24 x 16, hides the ticks it passes; the numbers stand clear of it.
constexpr double kSlotX = 23;
constexpr double kSlotTop = 68;
constexpr double kSlotHeight = 72;
constexpr double kCapLow = 129;
constexpr double kCapTravel = 50;
constexpr double kNumbersX = 36.5;
constexpr double kNumberGap = 7.4;
constexpr Label kNumber{.size = 6.4, .align = Align::Left, .spacing = 0, .font = Face::Narrow};

void drawSlot(cairo_t* cr, double top)
{
    useLinear(cr, kSlotX - 3, 0, kSlotX + 3, 0, {{0, kBlack}, {1, hex(0x3a3631)}});
    fillRoundRect(cr, kSlotX - 3, kSlotTop + top, 6, kSlotHeight, 3);
    useLinear(cr, kSlotX - 3, 0, kSlotX + 3, 0, {{0, kBlack, 0.8}, {1, kWhite, 0.3}});
    strokeRoundRect(cr, 0.8, kSlotX - 3.4, kSlotTop + top - 0.4, 6.8, kSlotHeight + 0.8, 3.2);
}

/// A tick for each frequency, and a number where there is room: always at the ends.
void printSlider(cairo_t* cr, const UnitFace& face, const EqBand& band, double top)
{
    const auto placeOf = [&](double frequency) {
        return top + kCapLow - kCapTravel * positionOf(band.frequency, frequency);
    };
    const double highest = placeOf(band.printed.back());
    double last = placeOf(band.printed.front()) + 2 * kNumberGap;
    for (const double frequency : band.printed) {
        const double y = placeOf(frequency);
        for (const double x : {kSlotX - 11, kSlotX + 5.5}) drawRowTick(cr, x, x + 5.5, y, {face.ink, 0.85});
        if (last - y < kNumberGap || (y != highest && y - highest < kNumberGap)) continue;
        drawLabel(cr, face, thousands(frequency), kNumbersX, y, kNumber);
        last = y;
    }
}

void drawBand(cairo_t* cr, const UnitFace& face, const EqBand& band, double top)
{
    drawWell(cr, 4, 39 + top, 144, 110,
             {.radius = 4, .darkening = 0.25, .upperDark = 0.6, .lowerLight = 0.15});
    drawLabel(cr, face, band.name, 8, 47.5 + top,
              {.size = 7.6, .align = Align::Left, .spacing = 0.1, .font = Face::Narrow, .colour = face.tint});
    drawSlot(cr, top);
    printSlider(cr, face, band, top);
    drawWindows(cr, face, {{43, 42 + top, 66, 15}, {43, 133 + top, 66, 15}});
    drawDialScale(cr, face, 76, 95 + top, eqGainScale(), kGain);
    drawShapes(cr, face, kBellWidths, 139.5, 107.5 + top, 13.5, 10);
}

} // namespace

void drawTamarinPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Tamarin);
    drawFace(cr, face);
    double top = 0;
    for (const EqBand& band : eqBands()) {
        drawBand(cr, face, band, top);
        top += kPitch;
    }
    drawOutput(cr, face);
    drawLabel(
        cr, face, "Tamarin", 88.5, 510,
        {.size = 12, .alpha = 0.95, .spacing = 0, .font = Face::Gothic, .bold = false, .colour = face.tint});
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

} // namespace velmora::art
