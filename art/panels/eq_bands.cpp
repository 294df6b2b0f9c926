#include "art/panels/eq_bands.h"

#include "art/panels/trim_dial.h"
#include "art/parts/plate.h"
#include "params/laws/equalizer_laws.h"

namespace velmora::art {

const std::array<EqBand, 4>& eqBands()
{
    static const std::array<EqBand, 4> bands{{
        {"HIGH", equalizer::highHz, {1400, 4000, 6000, 8000, 10000, 14000, 28000}},
        {"HIGH MID", equalizer::highMidHz, {500, 800, 1500, 2500, 4000, 7000, 10000}},
        {"LOW MID", equalizer::lowMidHz, {100, 200, 300, 500, 800, 1300, 2000}},
        {"LOW", equalizer::lowHz, {20, 50, 70, 100, 140, 230, 400}},
    }};
    return bands;
}

const DialScale& eqGainScale()
{
    static const DialScale scale{.law = equalizer::gainDb,
                                 .numbers = {-18, -6, 0, 6, 18},
                                 .ticks = {-12, 12},
                                 .fine = steps(-15, 15, 6),
                                 .text = signedNumber};
    return scale;
}

void drawShapes(cairo_t* cr, const UnitFace& face, const EqShapes& shapes, double x, double y, double pitch,
                double width)
{
    double row = y - pitch;
    for (const Icon shape : shapes) {
        drawIcon(cr, shape, x, row, width, width * 0.6, face.ink, {.alpha = 0.95});
        row += pitch;
    }
}

void drawOutput(cairo_t* cr, const UnitFace& face)
{
    static const DialScale scale{.law = equalizer::gainDb, .ticks = steps(-18, 18, 6)};
    printTrim(cr, face, {39.5, 507.5, scale, "\u221218", "+18"});
    drawWindow(cr, face, 19, 521, 41, 15);
    drawLabel(cr, face, "OUT", 14, 501, {.size = 7.3});
}

} // namespace velmora::art
