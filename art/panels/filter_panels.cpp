#include "art/paint/gradient.h"
#include "art/panels/printing.h"
#include "art/panels/response_figure.h"
#include "art/parts/icon.h"
#include "art/parts/relief.h"
#include "art/parts/switches/lamp.h"
#include "art/resource.h"
#include "params/laws/filters_laws.h"

#include <array>

namespace velmora::art {
namespace {

constexpr DialLook kLarge{.radius = 24, .numbers = 33.5};
constexpr DialLook kSmall{.radius = 20, .numbers = 27.6, .size = 7.6, .tick = 3.6};

const DialScale& lowPassScale()
{
    static const DialScale scale{
        .law = filters::lowPassHz,
        .numbers = {300, 1000, 3000, 10000, 30000},
        .fine = {400, 500, 600, 700, 800, 900, 2000, 4000, 5000, 6000, 7000, 8000, 9000, 20000},
        .text = thousands};
    return scale;
}

const DialScale& highPassScale()
{
    static const DialScale scale{.law = filters::highPassHz,
                                 .numbers = {20, 50, 100, 500, 1000, 2000},
                                 .ticks = {200},
                                 .fine = {30, 40, 60, 70, 80, 90, 300, 400, 600, 700, 800, 900},
                                 .text = thousands};
    return scale;
}

const DialScale& parametricScale()
{
    static const DialScale scale{.law = filters::parametricHz,
                                 .numbers = {20, 50, 100, 200, 1000, 2000, 5000, 10000, 20000},
                                 .ticks = {500},
                                 .fine = {30, 40, 70, 300, 400, 700, 3000, 4000, 7000},
                                 .text = thousands};
    return scale;
}

const DialScale& parametricQScale()
{
    static const DialScale scale{.law = filters::parametricQ,
                                 .numbers = {0.05, 0.1, 0.5, 1, 2, 5, 10, 20},
                                 .ticks = {0.2},
                                 .fine = {0.07, 0.3, 0.7, 1.5, 3, 7, 15}};
    return scale;
}

const DialScale& parametricGainScale()
{
    static const DialScale scale{.law = filters::parametricGainDb,
                                 .numbers = {-24, -18, -6, 0, 6, 18, 24},
                                 .ticks = {-12, 12},
                                 .fine = steps(-21, 21, 6),
                                 .text = signedNumber};
    return scale;
}

void drawSection(cairo_t* cr, const UnitFace& face, double top, double bottom, Icon icon,
                 std::string_view name)
{
    drawWell(cr, 3, top, 146, bottom - top, {.radius = 6});
    drawIcon(cr, icon, 15, top + 10, 12, 7, face.accent, {.lineWidth = 1.4});
    drawLabel(cr, face, name, 25, top + 10.5, {.size = 7.5, .align = Align::Left});
}

void printIn(cairo_t* cr, const UnitFace& face, double buttonTop)
{
    drawLabel(cr, face, "IN", 131.5, buttonTop - 4, {.size = 7});
}

/// Beside the slope switch of 19 x 52 at (123, top).
void printSlopes(cairo_t* cr, const UnitFace& face, double top, const std::array<const char*, 3>& slopes)
{
    for (std::size_t position = 0; position < slopes.size(); ++position)
        drawLabel(cr, face, slopes[position], 119.5, top + 9 + 17 * static_cast<double>(position),
                  {.size = 7.3, .align = Align::Right, .spacing = 0.1, .font = Face::Narrow});
}

void drawLowPass(cairo_t* cr, const UnitFace& face)
{
    drawSection(cr, face, 29, 145, Icon::LowShelf, "LOW PASS");
    drawWindow(cr, face, 26, 123, 60, 15);
    drawDialScale(cr, face, 56, 87, lowPassScale(), kLarge);
    printIn(cr, face, 53);
    printSlopes(cr, face, 85, {"6", "12", "18"});
}

void drawHighPass(cairo_t* cr, const UnitFace& face)
{
    drawSection(cr, face, 421, 534, Icon::HighShelf, "HIGH PASS");
    drawWindow(cr, face, 26, 504, 60, 15);
    drawDialScale(cr, face, 56, 468, highPassScale(), kLarge);
    printIn(cr, face, 433);
    printSlopes(cr, face, 466, {"12", "18", "24"});
}

void drawParametric(cairo_t* cr, const UnitFace& face)
{
    drawSection(cr, face, 148, 418, Icon::Bell, "PARAMETRIC");
    drawWindows(cr, face, {{26, 235, 60, 15}, {91, 286, 50, 15}, {26, 347, 60, 15}});
    printDials(cr, face,
               {{56, 199, parametricScale(), kLarge},
                {116, 255, parametricQScale(), kSmall},
                {56, 311, parametricGainScale(), kLarge}});
    printIn(cr, face, 164);
    printWords(cr, face, {{"Q", 116, 216}, {"GAIN", 56, 265.5, {.size = 7.5}}});
}

void drawSideChainMark(cairo_t* cr)
{
    useColour(cr, light::kBlue);
    fillRect(cr, 3, 27, 146, 1.6);
}

void drawBasic(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Filters);
    drawFace(cr, face);
    drawLowPass(cr, face);
    drawResponseFigure(cr, face);
    drawHighPass(cr, face);
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

template <bool sideChain>
void drawPro(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Filters);
    drawFace(cr, face);
    drawLowPass(cr, face);
    drawParametric(cr, face);
    drawHighPass(cr, face);
    if (sideChain) drawSideChainMark(cr);
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

constexpr Resource kPanels[]{
    {32000, kPanelWidth, kPanelHeight, drawBasic},
    {32100, kPanelWidth, kPanelHeight, drawPro<false>},
    {32200, kPanelWidth, kPanelHeight, drawPro<true>},
};

} // namespace

std::span<const Resource> filterPanels()
{
    return kPanels;
}

} // namespace velmora::art
