#include "art/chassis/chassis.h"
#include "art/chassis/metal.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/face.h"

namespace velmora::art {
namespace {

constexpr double kWidth = 1515;
constexpr double kHeight = 660;
constexpr double kEar = 42; ///< width of the ear; the bay begins behind it
constexpr double kBayTop = 8;
constexpr double kBayBottom = 618;
constexpr int kSeats = 9;
constexpr double kSeatTop = 10;
constexpr double kFootTop = 548;
constexpr double kFootBottom = 616;

void drawBay(cairo_t* cr)
{
    const double height = kBayBottom - kBayTop;
    useColour(cr, hex(0x08090a));
    fillRect(cr, kEar, kBayTop, kWidth - kEar, height);
    paintGrain(cr, Grain::BrushedDown, kEar, kBayTop, kWidth - kEar, height, 0.02, 5);
    useLinear(cr, 0, kBayTop, 0, kBayTop + 20, {{0, kBlack, 0.9}, {1, kBlack, 0}});
    fillRect(cr, kEar, kBayTop, kWidth - kEar, 20);
}

void drawGuideRail(cairo_t* cr, double x)
{
    useColour(cr, kBlack, 0.55);
    fillRoundRect(cr, x, 46, 6, 478, 3);
    drawLine(cr, x + 6.5, 48, x + 6.5, 522, 1, kWhite, 0.06);
}

void drawSeat(cairo_t* cr, double x)
{
    useLinear(cr, 0, kSeatTop, 0, kFootTop, {{0, hex(0x0d0e0f)}, {1, hex(0x131416)}});
    fillRect(cr, x, kSeatTop, kPanelWidth, kPanelHeight);
    useLinear(cr, 0, kSeatTop, 0, 40, {{0, kBlack, 0.75}, {1, kBlack, 0}});
    fillRect(cr, x, kSeatTop, kPanelWidth, 30);
    drawGuideRail(cr, x + 14);
    drawGuideRail(cr, x + 132);
    useColour(cr, kWhite, 0.045);
    strokeRoundRect(cr, 1, x + 0.5, kSeatTop + 0.5, kPanelWidth - 1, kPanelHeight - 1, 0);

    // The foot's own seat, with the contacts it plugs into.
    useLinear(cr, 0, kFootTop + 1, 0, kFootBottom, {{0, hex(0x0b0c0d)}, {1, hex(0x121315)}});
    fillRect(cr, x, kFootTop + 1, kPanelWidth, kFootBottom - kFootTop - 1);
    useColour(cr, kWhite, 0.05);
    strokeRoundRect(cr, 1, x + 0.5, kFootTop + 1.5, kPanelWidth - 1, kFootBottom - kFootTop - 2, 0);
    useColour(cr, kBlack, 0.6);
    fillRoundRect(cr, x + 46, 576, 60, 12, 2);
    drawLine(cr, x + 47, 588.5, x + 105, 588.5, 1, kWhite, 0.07);
    for (int contact = 0; contact < 9; ++contact)
        drawLine(cr, x + 52.5 + 6 * contact, 579, x + 52.5 + 6 * contact, 585, 2, hex(0x9a7b3e), 0.35);
}

void drawBayEdges(cairo_t* cr)
{
    drawLine(cr, kEar - 0.5, kBayTop, kEar - 0.5, kBayBottom, 1, kBlack, 0.9);
    drawLine(cr, kEar - 1.5, kBayTop, kEar - 1.5, kBayBottom, 1, kWhite, 0.12);
    drawLine(cr, kEar, kBayTop - 0.5, kWidth, kBayTop - 0.5, 1, kBlack, 0.9);
    drawLine(cr, kEar, kBayBottom + 0.5, kWidth, kBayBottom + 0.5, 1, kWhite, 0.18);
}

void drawEar(cairo_t* cr)
{
    useLinear(cr, 0, 0, kEar, 0, {{0, kWhite, 0.09}, {0.3, kWhite, 0.02}, {1, kBlack, 0.18}});
    fillRect(cr, 0, 0, kEar - 1, kHeight);
    drawLine(cr, 0.5, 0, 0.5, kHeight, 1, kWhite, 0.10);
    drawRackHole(cr, 20, 34, 45);
    drawRackHole(cr, 20, 596, 63);
    drawUpward(cr, "MONO  CHANNEL  STRIP", 20.5, 315,
               {.size = 8.5, .colour = hex(0xaeb4ba), .alpha = 0.55, .bold = true, .spacing = 3.2});
    for (const double y : {130.0, 440.0}) {
        drawLine(cr, 20.5, y, 20.5, y + 60, 1, kBlack, 0.45);
        drawLine(cr, 21.5, y, 21.5, y + 60, 1, kWhite, 0.10);
    }
}

/// The rail below the bay. Its cuts run through to the right, so that it looks the same at every width of the
/// window and wherever the name plate stands on it.
void drawRail(cairo_t* cr)
{
    constexpr double kLeft = 58;
    for (int cut = 0; cut < 3; ++cut) drawCut(cr, kLeft, 639 + 5 * cut, kWidth, 0.55, 0.06);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kBlack, 0.5);
}

/// The pixel that the right panel leaves free in the full window.
void drawRightEdge(cairo_t* cr)
{
    drawLine(cr, kWidth - 0.5, 0, kWidth - 0.5, kHeight, 1, hex(0x0d0e0f), 1);
}

} // namespace

void drawMainBackground(cairo_t* cr)
{
    drawMetal(cr, kWidth, kHeight, kChassisMetal, {});
    drawBay(cr);
    for (int seat = 0; seat < kSeats; ++seat) drawSeat(cr, 44 + 153.0 * seat);
    drawBayEdges(cr);
    drawLine(cr, 0, 0.5, kWidth, 0.5, 1, kWhite, 0.12);
    drawEar(cr);
    drawRail(cr);
    drawRightEdge(cr);
}

} // namespace velmora::art
