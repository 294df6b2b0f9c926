#include "art/panels/compressor_plates.h"
#include "art/panels/printing.h"
#include "art/parts/relief.h"
#include "art/resource.h"
#include "params/laws/compressor_laws.h"

namespace velmora::art {
namespace {

struct Compressor {
    Unit unit;
    void (*frame)(cairo_t*, const UnitFace&);
    void (*badge)(cairo_t*, const UnitFace&, bool printed);
};

constexpr Compressor kOpto{Unit::Opto, drawOptoFrame, drawOptoBadge};
constexpr Compressor kFet{Unit::Fet, drawFetFrame, drawFetBadge};
constexpr Compressor kVca{Unit::Vca, drawVcaFrame, drawVcaBadge};

constexpr DialLook kSmall{.radius = 20, .numbers = 27.6, .size = 7.6, .tick = 3.7};
constexpr DialLook kLarge{.radius = 32.5, .numbers = 41.5, .size = 8.2};
constexpr DialLook kTrim{.radius = 10.8, .tick = 2.4};

const DialScale& attackScale()
{
    static const DialScale scale{.law = compressor::attackMs,
                                 .numbers = {0.1, 1, 10, 100},
                                 .fine = {0.2, 0.3, 0.5, 0.7, 2, 3, 5, 7, 20, 30, 50, 70}};
    return scale;
}

const DialScale& releaseScale()
{
    static const DialScale scale{.law = compressor::releaseMs,
                                 .numbers = {25, 100, 500, 1000, 2500},
                                 .ticks = {250},
                                 .fine = {50, 75, 150, 200, 350, 700, 1500},
                                 .text = thousands};
    return scale;
}

const DialScale& thresholdScale()
{
    static const DialScale scale{.law = compressor::thresholdDb,
                                 .numbers = steps(-40, 10, 10),
                                 .fine = steps(-40, 10, 2),
                                 .text = signedNumber};
    return scale;
}

const DialScale& ratioScale()
{
    static const DialScale scale{.law = compressor::ratio,
                                 .numbers = {1, 2, 3, 4, 6, 10, 20},
                                 .fine = {1.5, 5, 8, 15, 40},
                                 .marks = {{1.0, "\u221e"}}};
    return scale;
}

const DialScale& mixScale()
{
    static const DialScale scale{.law = percentage, .numbers = steps(0, 100, 25), .fine = steps(0, 100, 5)};
    return scale;
}

const DialScale& makeupScale()
{
    static const DialScale scale{
        .law = compressor::makeupDb, .numbers = steps(0, 20, 4), .fine = steps(0, 20, 1)};
    return scale;
}

const DialScale& highPassScale()
{
    static const DialScale scale{.law = compressor::highPassHz, .ticks = {10, 20, 50, 100, 200, 500, 1000}};
    return scale;
}

void drawWells(cairo_t* cr, const UnitFace& face)
{
    drawWindows(cr, face,
                {{20, 206, 38, 12},
                 {95, 206, 38, 12},
                 {58, 305, 38, 12},
                 {21, 374, 36, 12},
                 {96, 374, 36, 12},
                 {57, 473, 40, 12},
                 {27, 521, 25, 12}});
}

void print(cairo_t* cr, const UnitFace& face)
{
    printDials(cr, face,
               {{39, 180, attackScale(), kSmall},
                {114, 180, releaseScale(), kSmall},
                {77, 265, thresholdScale(), kLarge},
                {39, 348, ratioScale(), kSmall},
                {114, 348, mixScale(), kSmall},
                {77, 433, makeupScale(), kLarge},
                {39.5, 507.5, highPassScale(), kTrim}});
    const Label small{.size = 7.5, .spacing = 0.3};
    const Label end{.size = 6.8, .spacing = 0, .font = Face::Narrow};
    printWords(cr, face,
               {{"ATTACK", 39, 152, small},
                {"RELEASE", 114, 152, small},
                {"THRESHOLD", 77, 221.5, {.size = 7, .spacing = 0, .font = Face::Narrow}},
                {"RATIO", 39, 311.5, small},
                {"MIX %", 114, 311.5, small},
                {"MAKEUP", 77, 391, {.size = 7, .spacing = 0, .font = Face::Narrow}},
                {"HPF", 17.5, 503, {.size = 7.3, .spacing = 0.1}},
                {"OFF", 21, 515.5, end},
                {"1k", 56.5, 515.5, end}});
}

template <const Compressor& compressor, bool printed>
void draw(cairo_t* cr)
{
    const UnitFace& face = faceOf(compressor.unit);
    drawFace(cr, face);
    compressor.frame(cr, face);
    drawMeterRecess(cr, face);
    drawWells(cr, face);
    if (printed) print(cr, face);
    compressor.badge(cr, face, printed);
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

constexpr Resource kPanels[]{
    {34000, kPanelWidth, kPanelHeight, draw<kOpto, false>},
    {34006, kPanelWidth, kPanelHeight, draw<kOpto, true>},
    {34100, kPanelWidth, kPanelHeight, draw<kFet, false>},
    {34105, kPanelWidth, kPanelHeight, draw<kFet, true>},
    {34200, kPanelWidth, kPanelHeight, draw<kVca, false>},
    {34205, kPanelWidth, kPanelHeight, draw<kVca, true>},
};

} // namespace

std::span<const Resource> compressorPanels()
{
    return kPanels;
}

} // namespace velmora::art
