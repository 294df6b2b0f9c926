#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/law.h"
#include "art/parts/switches/limiter_meter.h"
#include "art/parts/switches/meter_scale.h"

namespace velmora::art {
namespace {

constexpr double kWidth = 138;
constexpr double kHeight = 67;
constexpr double kWindowX = 6;
constexpr double kWindowY = 5;
constexpr double kWindowWidth = kWidth - 12;
constexpr double kWindowHeight = 38;
constexpr double kScaleY = kWindowY + 20;
constexpr Colour kInk = hex(0x2b2413);

// Where the mark stands; it rests at the right.
double markX(double deflection)
{
    return 120 - deflection * 102;
}

void clipToWindow(cairo_t* cr)
{
    addRoundRect(cr, kWindowX, kWindowY, kWindowWidth, kWindowHeight, 3);
    cairo_clip(cr);
}

void drawCase(cairo_t* cr)
{
    drawSoftRect(cr, 2, 2, kWidth - 4, kHeight - 5, 5, 2.8, 0.45);
    useLinear(cr, 0, 0, kWidth, kHeight, {{0, hex(0x7d8078)}, {1, hex(0x23241f)}});
    fillRoundRect(cr, 0, 0, kWidth, kHeight - 1, 6);
    useLinear(cr, 0, 0, 0, kHeight, {{0, kWhite, 0.55}, {1, kBlack, 0.4}});
    strokeRoundRect(cr, 1, 0.5, 0.5, kWidth - 1, kHeight - 2, 5.5);
    useColour(cr, kBlack);
    fillRoundRect(cr, kWindowX - 1, kWindowY - 1, kWindowWidth + 2, kWindowHeight + 2, 4);
}

void drawStripScale(cairo_t* cr)
{
    drawLine(cr, markX(0), kScaleY + 0.5, markX(1), kScaleY + 0.5, 1, kInk, 0.95);
    for (const MeterMark& mark : kStripMarks) {
        const double x = markX(reductionDeflection(mark.decibels));
        drawLine(cr, x, kScaleY, x, kScaleY + (mark.numbered ? 5 : 3.4), mark.numbered ? 1.1 : 0.8, kInk,
                 0.95);
        if (mark.numbered)
            drawText(cr, plainNumber(mark.decibels), x, kScaleY + 10,
                     {.size = 7.5, .colour = kInk, .face = Face::Narrow, .bold = true});
    }
}

void fillGlassWedge(cairo_t* cr, double strength)
{
    cairo_move_to(cr, kWindowX, kWindowY);
    cairo_line_to(cr, kWindowX + kWindowWidth * 0.55, kWindowY);
    cairo_line_to(cr, kWindowX + kWindowWidth * 0.35, kWindowY + kWindowHeight);
    cairo_line_to(cr, kWindowX, kWindowY + kWindowHeight);
    cairo_close_path(cr);
    useLinear(cr, 0, kWindowY, 0, kWindowY + kWindowHeight,
              {{0, kWhite, 0.3 * strength}, {1, kWhite, 0.03 * strength}});
    cairo_fill(cr);
}

} // namespace

void drawStripMeter138x67(cairo_t* cr)
{
    drawCase(cr);
    cairo_save(cr);
    clipToWindow(cr);
    useRadial(cr, kWidth / 2, kWindowY + kWindowHeight + 6, 8, kWidth / 2, kWindowY + kWindowHeight * 0.5, 74,
              {{0, hex(0xfff6d2)}, {0.5, hex(0xf2dfa2)}, {1, hex(0xb89a54)}});
    cairo_paint(cr);
    // The track in which the mark runs.
    useLinear(cr, 0, kWindowY + 2, 0, kScaleY, {{0, kBlack, 0.16}, {0.7, kBlack, 0.06}, {1, kBlack, 0.02}});
    fillRect(cr, kWindowX, kWindowY + 2, kWindowWidth, kScaleY - kWindowY - 2);
    drawStripScale(cr);
    fillGlassWedge(cr, 0.75);
    useLinear(cr, 0, kWindowY, 0, kWindowY + 9, {{0, kBlack, 0.4}, {1, kBlack, 0}});
    fillRect(cr, kWindowX, kWindowY, kWindowWidth, 9);
    cairo_restore(cr);
    drawText(cr, "GAIN REDUCTION  dB", kWidth / 2, 54.5,
             {.size = 7.5, .colour = hex(0xf2f0e6), .alpha = 0.95, .bold = true, .spacing = 0.5});
}

void drawStripGlass138x67(cairo_t* cr)
{
    cairo_save(cr);
    clipToWindow(cr);
    fillGlassWedge(cr, 0.4);
    useLinear(cr, 0, kWindowY, 0, kWindowY + 7, {{0, kBlack, 0.3}, {1, kBlack, 0}});
    fillRect(cr, kWindowX, kWindowY, kWindowWidth, 7);
    cairo_restore(cr);
}

} // namespace velmora::art
