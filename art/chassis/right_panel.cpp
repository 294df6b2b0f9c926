#include "art/chassis/chassis.h"
#include "art/chassis/metal.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"

namespace velmora::art {
namespace {

constexpr double kWidth = 94;
constexpr double kHeight = 629;
constexpr double kEar = 60; ///< left edge of the rack ear

void drawSheet(cairo_t* cr)
{
    drawMetal(cr, kWidth, kHeight, kPanelMetal, {Grain::BrushedDown, 0.045, 17});
    useLinear(cr, 0, 0, kWidth, 0,
              {{0, kBlack, 0.25},
               {0.06, kWhite, 0.03},
               {0.62, kWhite, 0.0},
               {0.63, kBlack, 0.25},
               {0.66, kWhite, 0.05},
               {1, kWhite, 0.08}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    drawLine(cr, 0.5, 0, 0.5, kHeight, 1, kWhite, 0.16);
    drawLine(cr, kEar - 0.5, 0, kEar - 0.5, kHeight, 1, kBlack, 0.6);
    drawLine(cr, kEar + 0.5, 0, kEar + 0.5, kHeight, 1, kWhite, 0.10);
    drawLine(cr, 0, 0.5, kWidth, 0.5, 1, kWhite, 0.2);
    drawLine(cr, kWidth - 0.5, 1, kWidth - 0.5, kHeight, 1, kBlack, 0.45);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kBlack, 0.5);
}

/// The name, cut into the sheet.
void drawWordmark(cairo_t* cr)
{
    Lettering cut{.size = 34, .colour = kBlack, .alpha = 0.55, .face = Face::Gothic, .spacing = 5};
    drawUpward(cr, "Velmora", 30, 325, cut);
    cut.colour = kWhite;
    cut.alpha = 0.13;
    drawUpward(cr, "Velmora", 31, 324.2, cut);
}

void drawCaption(cairo_t* cr, std::string_view text, double x, double y)
{
    drawText(cr, text, x, y,
             {.size = 7.5,
              .colour = kPrint,
              .alpha = 0.9,
              .bold = true,
              .spacing = 0.6,
              .relief = Relief::LightInk});
}

} // namespace

void drawRightPanel(cairo_t* cr)
{
    drawSheet(cr);
    drawRackHole(cr, 77, 24, 52);
    drawRackHole(cr, 77, 586, 28);
    drawCaption(cr, "VIEW", 28, 24);
    drawCaption(cr, "MODULE", 29, 77);
    drawCaption(cr, "POWER", 30, 538);
    drawCut(cr, 6, 122, 53, 0.55, 0.12);
    drawCut(cr, 6, 527, 53, 0.55, 0.12);
    drawWordmark(cr);
}

} // namespace velmora::art
