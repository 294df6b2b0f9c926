#include "art/paint/gradient.h"
#include "art/panels/printing.h"
#include "art/panels/reduction_bar.h"
#include "art/resource.h"
#include "params/laws/dynamics_laws.h"

namespace velmora::art {
namespace {

/// Panels differ in their accent and in the knob at the left: ratio or hold.
struct Kind {
    Colour accent;
    std::string_view knob;
    const DialScale& (*scale)();
};

constexpr DialLook kLarge{.radius = 24.5, .numbers = 34};
constexpr DialLook kSmall{.radius = 19.5, .numbers = 28};
constexpr DialLook kTrim{.radius = 10.6, .tick = 2.4};

const DialScale& attackScale()
{
    static const DialScale scale{
        .law = dynamics::attackMs, .numbers = {0.1, 1, 10, 100, 250}, .fine = {0.2, 0.5, 2, 5, 20, 50}};
    return scale;
}

const DialScale& releaseScale()
{
    static const DialScale scale{.law = dynamics::releaseMs,
                                 .numbers = {10, 30, 100, 300, 1000, 3000},
                                 .fine = {20, 50, 70, 200, 500, 700, 2000},
                                 .text = thousands};
    return scale;
}

const DialScale& ratioScale()
{
    static const DialScale scale = [] {
        DialScale stepped;
        const auto& ratios = dynamics::kShownRatios;
        for (std::size_t index = 0; index < ratios.size(); ++index)
            stepped.marks.push_back(
                {static_cast<double>(index) / (ratios.size() - 1), plainNumber(ratios[index])});
        return stepped;
    }();
    return scale;
}

const DialScale& holdScale()
{
    static const DialScale scale{.law = dynamics::holdMs,
                                 .numbers = {0, 10, 25, 50, 100, 200, 300, 400},
                                 .fine = {5, 75, 150, 250, 350}};
    return scale;
}

const DialScale& thresholdScale()
{
    static const DialScale scale{
        .law = dynamics::thresholdDb, .numbers = steps(-60, 0, 10), .fine = steps(-55, -5, 10)};
    return scale;
}

const DialScale& shapeScale()
{
    static const DialScale scale{.law = dynamicsShape,
                                 .numbers = steps(-100, 100, 50),
                                 .fine = steps(-75, 75, 50),
                                 .text = signedNumber};
    return scale;
}

const DialScale& rangeScale()
{
    static const DialScale scale{.law = dynamicsRangeDb,
                                 .numbers = {-40, -20, -10, -6, -3, 0},
                                 .fine = {-30, -15, -1.5},
                                 .marks = {{0.0, "\u221e"}}};
    return scale;
}

const DialScale& keyHighPassScale()
{
    static const DialScale scale{.law = dynamics::keyHighPassHz, .ticks = {20, 70, 200, 700, 2000, 8000}};
    return scale;
}

const DialScale& keyLowPassScale()
{
    static const DialScale scale{.law = dynamics::keyLowPassHz, .ticks = {50, 200, 500, 2000, 5000, 20000}};
    return scale;
}

void drawEnvelope(cairo_t* cr, const UnitFace& face)
{
    drawWindows(cr, face, {{16, 109, 47, 15}, {91, 109, 47, 15}});
    printDials(cr, face, {{39.5, 82.5, attackScale(), kSmall}, {114.5, 82.5, releaseScale(), kSmall}});
    printWords(cr, face, {{"ATTACK", 39.5, 42, {.size = 7.5}}, {"RELEASE", 114.5, 42, {.size = 7.5}}});
}

void drawLevels(cairo_t* cr, const UnitFace& face, const Kind& kind)
{
    drawWindows(cr, face, {{17, 220, 60, 15}, {17, 333, 60, 15}});
    printDials(cr, face, {{47, 187, kind.scale(), kLarge}, {47, 300, thresholdScale(), kLarge}});
    printWords(cr, face, {{kind.knob, 47, 142}, {"THRESHOLD", 47, 254.5}});
    drawReductionBar(cr, face, 117, 157, 142);
}

void drawCurveKnobs(cairo_t* cr, const UnitFace& face)
{
    drawWindows(cr, face, {{16, 432, 47, 15}, {91, 432, 47, 15}});
    printDials(cr, face, {{39.5, 405.5, shapeScale(), kSmall}, {114.5, 405.5, rangeScale(), kSmall}});
    printWords(cr, face, {{"SHAPE", 39.5, 366, {.size = 7.5}}, {"RANGE", 114.5, 366, {.size = 7.5}}});
}

void drawKeyFilter(cairo_t* cr, const UnitFace& face)
{
    drawWindows(cr, face, {{33, 461, 35, 13}, {84, 461, 35, 13}});
    printDials(cr, face,
               {{50.5, 487.5, keyHighPassScale(), kTrim}, {101.5, 487.5, keyLowPassScale(), kTrim}});
    const Label end{.size = 6.5, .spacing = 0, .font = Face::Narrow};
    printWords(cr, face,
               {{"20", 37.5, 502, end},
                {"8k", 63.5, 502, end},
                {"50", 88.5, 502, end},
                {"20k", 115.5, 502, end},
                {"HPF", 50.5, 510, {.size = 7.5}},
                {"LPF", 101.5, 510, {.size = 7.5}},
                {"KEY FILTER", 76, 524, {.size = 7, .alpha = 0.75}}});
}

constexpr Kind kExpander{hex(0x35a79c), "RATIO", ratioScale};
constexpr Kind kGate{hex(0xd79a35), "HOLD", holdScale};
constexpr Kind kDucker{hex(0x8a6fd0), "HOLD", holdScale};

template <const Kind& kind>
void draw(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Dynamics);
    drawFace(cr, face);
    useColour(cr, kind.accent, 0.95);
    fillRect(cr, 6, 28.5, 140, 2);
    for (const double y : {130.0, 357.0, 452.0}) drawGroove(cr, face, 6, y, 146);
    drawEnvelope(cr, face);
    drawLevels(cr, face, kind);
    drawCurveKnobs(cr, face);
    drawKeyFilter(cr, face);
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

constexpr Resource kPanels[]{
    {33000, kPanelWidth, kPanelHeight, draw<kExpander>},
    {33100, kPanelWidth, kPanelHeight, draw<kGate>},
    {33200, kPanelWidth, kPanelHeight, draw<kDucker>},
};

} // namespace

std::span<const Resource> dynamicsPanels()
{
    return kPanels;
}

} // namespace velmora::art
