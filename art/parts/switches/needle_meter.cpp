#include "art/parts/switches/needle_meter.h"

#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/law.h"
#include "art/parts/relief.h"
#include "art/parts/switches/meter_scale.h"

#include <cmath>
#include <numbers>

namespace velmora::art {

const NeedleDial kOptoDial{.pivotY = 91.5,
                           .length = 59,
                           .firstAngle = 45,
                           .sweep = 90,
                           .glow = hex(0xffe9b4),
                           .middle = hex(0xf6cf84),
                           .corner = hex(0xc98a3c),
                           .ink = hex(0x3a2412),
                           .bezelLight = hex(0x5a4a3e),
                           .bezelDark = hex(0x17110d),
                           .lipLight = hex(0xd9c48e),
                           .lipDark = hex(0x8c7240),
                           .lipInk = hex(0x2a1c0d)};

const NeedleDial kFetDial{.pivotY = 86.5,
                          .length = 61,
                          .firstAngle = 45,
                          .sweep = 90,
                          .glow = hex(0xffc658),
                          .middle = hex(0xf59a26),
                          .corner = hex(0x9c4a08),
                          .ink = hex(0x241003),
                          .bezelLight = hex(0x4b4e52),
                          .bezelDark = hex(0x08090a),
                          .lipLight = hex(0x2e3033),
                          .lipDark = hex(0x141517),
                          .lipInk = hex(0xe8eaec)};

const NeedleDial kVcaDial{.pivotY = 98.5,
                          .length = 80,
                          .firstAngle = 57,
                          .sweep = 66,
                          .glow = hex(0xc9d8e4),
                          .middle = hex(0x9fb4c6),
                          .corner = hex(0x5a7186),
                          .ink = hex(0x101a22),
                          .bezelLight = hex(0x6a6f75),
                          .bezelDark = hex(0x17191b),
                          .lipLight = hex(0x3d4247),
                          .lipDark = hex(0x202327),
                          .lipInk = hex(0xdfe6ec)};

namespace {

constexpr double kPivotX = 68.5;
constexpr double kWindowX = 7;
constexpr double kWindowY = 7;
constexpr double kWindowWidth = 124;
constexpr double kWindowHeight = 77;
constexpr double kWindowRadius = 4.5;
constexpr double kLipTop = 84;
constexpr double kRedFrom = 0.9; // of the deflection: 20 dB

double radians(double degrees)
{
    return degrees * std::numbers::pi / 180.0;
}

Spot onDial(const NeedleDial& dial, double deflection, double radius)
{
    const double angle = radians(dial.firstAngle + dial.sweep * deflection);
    return {kPivotX - radius * std::cos(angle), dial.pivotY - radius * std::sin(angle)};
}

void drawBezel(cairo_t* cr, const NeedleDial& dial)
{
    drawSoftRect(cr, 3, 4, 132, 106, 7, 3, 0.5);
    useLinear(cr, 0, 0, 138, 114, {{0, dial.bezelLight}, {1, dial.bezelDark}});
    fillRoundRect(cr, 1, 1, 136, 110, 8);
    useLinear(cr, 0, 0, 60, 114, {{0, kWhite, 0.5}, {0.5, kWhite, 0.08}, {1, kBlack, 0.5}});
    strokeRoundRect(cr, 1, 1.5, 1.5, 135, 109, 7.5);
    useColour(cr, kBlack, 0.85);
    fillRoundRect(cr, kWindowX - 1.5, kWindowY - 1.5, kWindowWidth + 3, kWindowHeight + 3, 5.5);
}

void clipToWindow(cairo_t* cr)
{
    addRoundRect(cr, kWindowX, kWindowY, kWindowWidth, kWindowHeight, kWindowRadius);
    cairo_clip(cr);
}

void drawArc(cairo_t* cr, const NeedleDial& dial, double radius, double from, double to)
{
    constexpr double kPi = std::numbers::pi;
    cairo_new_path(cr);
    cairo_arc(cr, kPivotX, dial.pivotY, radius, kPi + radians(dial.firstAngle + dial.sweep * from),
              kPi + radians(dial.firstAngle + dial.sweep * to));
    cairo_stroke(cr);
}

void drawDialScale(cairo_t* cr, const NeedleDial& dial)
{
    const double radius = dial.length - 3;
    useColour(cr, dial.ink, 0.95);
    cairo_set_line_width(cr, 1.3);
    drawArc(cr, dial, radius, 0, kRedFrom);
    useColour(cr, hex(0xb3200f), 0.95);
    cairo_set_line_width(cr, 2.6);
    drawArc(cr, dial, radius, kRedFrom, 1);

    for (const MeterMark& mark : kNeedleMarks) {
        const double deflection = reductionDeflection(mark.decibels);
        const Spot from = onDial(dial, deflection, radius);
        const Spot to = onDial(dial, deflection, radius + (mark.numbered ? 5 : 3.2));
        drawLine(cr, from.x, from.y, to.x, to.y, mark.numbered ? 1.2 : 0.8, dial.ink, 0.95);
        if (!mark.numbered) continue;
        const Spot number = onDial(dial, deflection + mark.nudge, radius + 10.2);
        drawText(cr, plainNumber(mark.decibels), number.x, number.y,
                 {.size = 7.5, .colour = dial.ink, .face = Face::Narrow, .bold = true});
    }
}

void addLip(cairo_t* cr)
{
    constexpr double kLeft = kWindowX;
    constexpr double kRight = kWindowX + kWindowWidth;
    constexpr double kBottom = kLipTop + 23;
    cairo_new_path(cr);
    cairo_move_to(cr, kLeft, kBottom - 5);
    cairo_line_to(cr, kLeft, kLipTop);
    cairo_line_to(cr, kPivotX - 20, kLipTop); // a hump over the pivot
    cairo_curve_to(cr, kPivotX - 14, kLipTop, kPivotX - 12, kLipTop - 8, kPivotX, kLipTop - 8);
    cairo_curve_to(cr, kPivotX + 12, kLipTop - 8, kPivotX + 14, kLipTop, kPivotX + 20, kLipTop);
    cairo_line_to(cr, kRight, kLipTop);
    cairo_line_to(cr, kRight, kBottom - 5);
    cairo_curve_to(cr, kRight, kBottom - 1, kRight - 2, kBottom, kRight - 5, kBottom);
    cairo_line_to(cr, kLeft + 5, kBottom);
    cairo_curve_to(cr, kLeft + 2, kBottom, kLeft, kBottom - 1, kLeft, kBottom - 5);
    cairo_close_path(cr);
}

void drawGlass(cairo_t* cr)
{
    cairo_save(cr);
    clipToWindow(cr);
    cairo_move_to(cr, kWindowX, kWindowY);
    cairo_line_to(cr, kWindowX + kWindowWidth * 0.62, kWindowY);
    cairo_line_to(cr, kWindowX + kWindowWidth * 0.3, kWindowY + kWindowHeight);
    cairo_line_to(cr, kWindowX, kWindowY + kWindowHeight);
    cairo_close_path(cr);
    useLinear(cr, kWindowX, kWindowY, kWindowX + kWindowWidth * 0.4, kWindowY + kWindowHeight,
              {{0, kWhite, 0.26}, {0.6, kWhite, 0.05}, {1, kWhite, 0.02}});
    cairo_fill(cr);
    cairo_restore(cr);
    useLinear(cr, 0, kWindowY, 0, kWindowY + kWindowHeight, {{0, kBlack, 0.8}, {1, kBlack, 0.2}});
    strokeRoundRect(cr, 1.2, kWindowX + 0.3, kWindowY + 0.3, kWindowWidth - 0.6, kWindowHeight - 0.6,
                    kWindowRadius);
}

void drawPivotScrew(cairo_t* cr)
{
    constexpr double kY = kLipTop + 0.5;
    drawSoftDisc(cr, kPivotX + 0.5, kY + 0.9, 4.9, 0.4, 0.6);
    fillShadedDisc(cr, kPivotX, kY, 3.6, hex(0xf0f0ee), hex(0x4a4c4e));
    drawLine(cr, kPivotX - 2.4, kY + 1.4, kPivotX + 2.4, kY - 1.4, 1.1, kBlack, 0.7);
}

} // namespace

void drawNeedleFace(cairo_t* cr, const NeedleDial& dial)
{
    drawBezel(cr, dial);
    cairo_save(cr);
    clipToWindow(cr);
    useRadial(cr, kPivotX, kWindowY + kWindowHeight * 0.95, 6, kPivotX, kWindowY + kWindowHeight * 0.62, 88,
              {{0, dial.glow}, {0.45, dial.middle}, {1, dial.corner}});
    cairo_paint(cr);
    useLinear(cr, 0, kWindowY, 0, kWindowY + 16, {{0, kBlack, 0.45}, {1, kBlack, 0}}); // shade of the bezel
    fillRect(cr, kWindowX, kWindowY, kWindowWidth, 16);
    useLinear(cr, kWindowX, 0, kWindowX + 7, 0, {{0, kBlack, 0.22}, {1, kBlack, 0}});
    fillRect(cr, kWindowX, kWindowY, 7, kWindowHeight);
    drawDialScale(cr, dial);
    drawText(cr, "dB", kWindowX + kWindowWidth - 15, kWindowY + kWindowHeight - 11,
             {.size = 8.5, .colour = dial.ink, .alpha = 0.85, .bold = true});
    cairo_restore(cr);
}

void drawNeedleFront(cairo_t* cr, const NeedleDial& dial)
{
    drawGlass(cr);
    addLip(cr);
    useLinear(cr, 0, kLipTop - 8, 0, kLipTop + 23,
              {{0, lighter(dial.lipLight, 0.15)}, {0.3, dial.lipLight}, {1, dial.lipDark}});
    cairo_fill_preserve(cr);
    useColour(cr, kBlack, 0.5);
    cairo_set_line_width(cr, 0.8);
    cairo_stroke(cr);
    drawLine(cr, kWindowX + 1, kLipTop + 0.9, kPivotX - 19, kLipTop + 0.9, 0.8, kWhite, 0.35);
    drawLine(cr, kPivotX + 19, kLipTop + 0.9, kWindowX + kWindowWidth - 1, kLipTop + 0.9, 0.8, kWhite, 0.35);
    drawPivotScrew(cr);
    drawText(cr, "GAIN REDUCTION", kPivotX, kLipTop + 13.5,
             {.size = 7.5, .colour = dial.lipInk, .alpha = 0.95, .bold = true, .spacing = 0.7});
}

} // namespace velmora::art
