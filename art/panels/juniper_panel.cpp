#include "art/paint/gradient.h"
#include "art/panels/eq_bands.h"
#include "art/panels/eq_panels.h"
#include "art/panels/printing.h"
#include "art/panels/row_tick.h"

#include <array>

namespace velmora::art {
namespace {

constexpr double kPitch = 116;
constexpr DialLook kGain{.radius = 22.5, .numbers = 31.5, .size = 7};

// Middle of the slot, and of the slider's cap at its ends.
constexpr double kSlotX = 19;
constexpr double kCapHigh = 44;
constexpr double kCapLow = 126;
constexpr double kSlotBeyond = 10;

constexpr std::array<EqShapes, 4> kShapes{{
    {Icon::SoftHighShelf, Icon::MediumHighShelf, Icon::SteepHighShelf},
    kBellWidths,
    kBellWidths,
    {Icon::SoftLowShelf, Icon::MediumLowShelf, Icon::SteepLowShelf},
}};

void drawSlot(cairo_t* cr, double top)
{
    const double y = kCapHigh - kSlotBeyond + top;
    constexpr double height = kCapLow - kCapHigh + 2 * kSlotBeyond;
    useLinear(cr, kSlotX - 3, 0, kSlotX + 3, 0, {{0, hex(0x0d1512)}, {1, hex(0x3d4a45)}});
    fillRoundRect(cr, kSlotX - 3, y, 6, height, 3);
    useLinear(cr, kSlotX - 3, 0, kSlotX + 3, 0, {{0, kBlack, 0.6}, {1, kWhite, 0.8}});
    strokeRoundRect(cr, 0.9, kSlotX - 3.5, y - 0.5, 7, height + 1, 3.4);
}

void printSlider(cairo_t* cr, const UnitFace& face, const EqBand& band, double top)
{
    for (const double frequency : band.printed) {
        const double y = top + kCapLow - (kCapLow - kCapHigh) * positionOf(band.frequency, frequency);
        drawRowTick(cr, kSlotX + 6, kSlotX + 12, y, {face.ink});
        drawLabel(cr, face, thousands(frequency), kSlotX + 14.5, y,
                  {.size = 6.8, .align = Align::Left, .spacing = 0, .font = Face::Narrow});
    }
}

void drawBand(cairo_t* cr, const UnitFace& face, const EqBand& band, const EqShapes& shapes, double top)
{
    printWords(cr, face,
               {{band.name, 79, 36 + top, {.colour = face.accent}},
                {"dB", 79, 118 + top, {.size = 7}},
                {"IN", 117, 46 + top, {.size = 7, .align = Align::Right}}});
    drawSlot(cr, top);
    printSlider(cr, face, band, top);
    drawDialScale(cr, face, 79, 88 + top, eqGainScale(), kGain);
    drawShapes(cr, face, shapes, 144, 107 + top, 14, 7.2);
}

} // namespace

void drawJuniperPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Juniper);
    drawFace(cr, face);
    for (std::size_t index = 0; index < kShapes.size(); ++index)
        drawBand(cr, face, eqBands()[index], kShapes[index], kPitch * static_cast<double>(index));
    for (const double y : {141, 257, 373, 489}) drawGroove(cr, face, 5, y, 147);
    drawOutput(cr, face);
    drawLabel(cr, face, "Juniper", 89.5, 511,
              {.size = 12, .spacing = 0, .font = Face::Serif, .colour = face.accent});
    drawLabel(cr, face, "SAT", 118.5, 527, {.size = 7, .align = Align::Right, .spacing = 0.1});
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

} // namespace velmora::art
