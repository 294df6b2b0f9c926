#include "art/paint/gradient.h"
#include "art/panels/eq_bands.h"
#include "art/panels/eq_panels.h"
#include "art/panels/printing.h"

#include <array>

namespace velmora::art {
namespace {

constexpr double kPitch = 112;
constexpr double kMiddleX = 77; // of the double knobs, whose rings show the frequency
constexpr DialLook kRing{.radius = 29.4, .numbers = 37.4, .size = 6.8, .tick = 2.8};

/// From pale to burnt, as the bands fall.
constexpr std::array kStripes{hex(0xe9b48c), hex(0xd98f68), hex(0xc06f50), hex(0xa3543c)};

constexpr std::array<EqShapes, 4> kShapes{{
    {Icon::SoftHighShelf, Icon::SteepHighShelf, Icon::Bell},
    kBellWidths,
    kBellWidths,
    {Icon::SoftLowShelf, Icon::SteepLowShelf, Icon::Bell},
}};

/// At the right of a band, above its stripe; two words on two lines.
void printName(cairo_t* cr, const UnitFace& face, std::string_view name, double top)
{
    const std::size_t gap = name.find(' ');
    if (gap != std::string_view::npos) drawLabel(cr, face, name.substr(0, gap), 132, top + 118.5);
    drawLabel(cr, face, gap == std::string_view::npos ? name : name.substr(gap + 1), 132, top + 128.5);
}

void drawBand(cairo_t* cr, const UnitFace& face, std::size_t index, double top)
{
    const EqBand& band = eqBands()[index];
    // The upper one leaves a pixel to the ring's topmost number.
    drawWindows(cr, face, {{44, 38 + top, 66, 14}, {44, 132 + top, 66, 15}});
    drawDialScale(cr, face, kMiddleX, 93 + top,
                  {.law = band.frequency, .numbers = band.printed, .text = thousands}, kRing);
    drawShapes(cr, face, kShapes[index], 10.5, 93.5 + top, 21, 10.5);
    printName(cr, face, band.name, top);
    useColour(cr, kStripes[index]);
    fillRoundRect(cr, 121, 137 + top, 22, 2.4, 1.2);
}

} // namespace

void drawSorrelPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Sorrel);
    drawFace(cr, face);
    for (std::size_t index = 0; index < kStripes.size(); ++index)
        drawBand(cr, face, index, kPitch * static_cast<double>(index));
    for (const double y : {148, 260, 372, 484}) drawGroove(cr, face, 5, y, 147);
    for (const double y : {42.5, 153.5, 265.5, 377.5}) drawLabel(cr, face, "IN", 131.5, y, {.size = 7});
    drawOutput(cr, face);
    drawLabel(cr, face, "SAT", 131.5, 491.5, {.size = 7});
    drawText(cr, "Sorrel", 89.5, 511,
             {.size = 15,
              .colour = hex(0xe9c3a6),
              .alpha = 0.95,
              .face = Face::Serif,
              .italic = true,
              .relief = face.relief});
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

} // namespace velmora::art
