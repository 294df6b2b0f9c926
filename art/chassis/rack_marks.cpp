#include "art/chassis/chassis.h"
#include "art/chassis/metal.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/icon.h"
#include "art/parts/plate.h"

#include <numbers>

namespace velmora::art {
namespace {

constexpr double kWidth = kPanelWidth;
constexpr double kHeight = kPanelHeight;
constexpr double kMarkX = kWidth / 2;
constexpr double kMarkY = 262;
constexpr Colour kGrey = hex(0xa0a0a0);

void drawStroke(cairo_t* cr, double degrees, double reach, double width, Colour colour, double alpha)
{
    const Spot end = onCircle(kMarkX, kMarkY, reach, degrees);
    const Spot start = onCircle(kMarkX, kMarkY, -reach, degrees);
    drawLine(cr, start.x, start.y, end.x, end.y, width, colour, alpha, CAIRO_LINE_CAP_ROUND);
}

void drawDarkSlot(cairo_t* cr)
{
    useLinear(cr, 0, 0, 0, kHeight, {{0, hex(0x17191b)}, {0.5, hex(0x131416)}, {1, hex(0x0e0f10)}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, Grain::BrushedDown, 0, 0, kWidth, kHeight, 0.035, 21);
    useLinear(cr, 0, 0, 0, 26, {{0, kBlack, 0.6}, {1, kBlack, 0}});
    fillRect(cr, 0, 0, kWidth, 26);
    useLinear(cr, 0, 0, 14, 0, {{0, kBlack, 0.5}, {1, kBlack, 0}});
    fillRect(cr, 0, 0, 14, kHeight);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kWhite, 0.10);
    drawLine(cr, kWidth - 0.5, 0, kWidth - 0.5, kHeight, 1, kWhite, 0.08);
    for (const double x : {14.0, 132.0}) {
        useColour(cr, kBlack, 0.5);
        fillRoundRect(cr, x, 44, 6, 470, 3);
        drawLine(cr, x + 6.5, 46, x + 6.5, 512, 1, kWhite, 0.07);
    }
}

/// A dashed ring with a plus.
void drawInvitation(cairo_t* cr)
{
    constexpr double kRadius = 27;
    constexpr int kDashes = 18;
    constexpr double kPeriod = 360.0 / kDashes;
    constexpr double kDegree = std::numbers::pi / 180;
    useColour(cr, kWhite, 0.24);
    cairo_set_line_width(cr, 1.4);
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
    for (int dash = 0; dash < kDashes; ++dash) {
        const double start = (dash - 0.27) * kPeriod * kDegree;
        cairo_new_sub_path(cr);
        cairo_arc(cr, kMarkX, kMarkY, kRadius, start, start + 0.54 * kPeriod * kDegree);
    }
    cairo_stroke(cr);
    drawStroke(cr, 0, 10, 2, kWhite, 0.34);
    drawStroke(cr, 90, 10, 2, kWhite, 0.34);

    drawText(cr, "EMPTY SLOT", kMarkX, 308,
             {.size = 8.5, .colour = kGrey, .alpha = 0.75, .bold = true, .spacing = 1.4});
    drawText(cr, "click the name above", kMarkX, 323, {.size = 9, .colour = kGrey, .alpha = 0.6});
    drawText(cr, "to choose a module", kMarkX, 335, {.size = 9, .colour = kGrey, .alpha = 0.6});
}

} // namespace

void drawEmptyModule(cairo_t* cr)
{
    drawDarkSlot(cr);
    drawInvitation(cr);
    // There's nothing to step through, only a menu to open.
    drawTitlePlate(cr, 0.24, kGrey, 0.0);
    drawIcon(cr, Icon::Down, 138, 15, 7, 4, kGrey, {.alpha = 0.7, .lineWidth = 1.0});
}

void drawRemoveMark(cairo_t* cr)
{
    useColour(cr, hex(0x0a0a0a), 0.62);
    fillRect(cr, 0, 0, kWidth, kHeight);
    useColour(cr, kWarningRed, 0.9);
    strokeRoundRect(cr, 2, 1, 1, kWidth - 2, kHeight - 2, 0);
    drawSoftDisc(cr, kMarkX + 1, kMarkY + 4, 42, 0.5, 0.6);
    useColour(cr, hex(0x2a0c0b), 0.92);
    fillCircle(cr, kMarkX, kMarkY, 30);
    useColour(cr, kWarningRed);
    strokeCircle(cr, 3, kMarkX, kMarkY, 30);
    drawStroke(cr, 45, 12.5, 4, kWarningRed, 1);
    drawStroke(cr, 135, 12.5, 4, kWarningRed, 1);
    useColour(cr, hex(0x2a0c0b), 0.92);
    fillRoundRect(cr, kMarkX - 34, 303, 68, 18, 9);
    drawText(cr, "REMOVE", kMarkX, 312,
             {.size = 10, .colour = hex(0xffb3ae), .bold = true, .spacing = 2, .relief = Relief::LightInk});
}

/// The picture lies above the panel, 27 to the left and 47 higher, so it leaves the panel itself clear.
void drawDragShadow(cairo_t* cr)
{
    constexpr double kLeft = 27;
    constexpr double kTop = 47;
    cairo_save(cr);
    cairo_rectangle(cr, 0, 0, 208, 644);
    cairo_rectangle(cr, kLeft, kTop, kWidth, kHeight);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_EVEN_ODD);
    cairo_clip(cr);
    cairo_set_fill_rule(cr, CAIRO_FILL_RULE_WINDING);
    drawSoftRect(cr, kLeft + 7, kTop + 26, kWidth - 4, kHeight, 6, 26, 0.62);
    drawSoftRect(cr, kLeft + 9, kTop + 14, kWidth - 2, kHeight, 4, 14, 0.50);
    drawSoftRect(cr, kLeft + 3, kTop + 4, kWidth - 1, kHeight, 3, 4, 0.40);
    cairo_restore(cr);
    useColour(cr, kWhite, 0.35);
    strokeRoundRect(cr, 1, kLeft + 0.5, kTop + 0.5, kWidth - 1, kHeight - 1, 0);
}

} // namespace velmora::art
