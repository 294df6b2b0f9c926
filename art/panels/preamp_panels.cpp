#include "art/panels/preamp_faces.h"
#include "art/panels/printing.h"
#include "art/parts/icon.h"
#include "art/parts/switches/lamp.h"
#include "art/resource.h"
#include "params/laws/preamp_laws.h"

#include <array>

namespace velmora::art {
namespace {

/// Where the knobs have their centres and what stands around them: the heights of words are their capitals'
/// middles.
struct Layout {
    double ticks;   ///< radius where scales start
    double numbers; ///< radius of their numbers
    double rise;    ///< of knobs and windows above those of the 60-pixel knobs
    double windowX; ///< of gain and reference; drive and noise stand 22 px to the left
    double windowWidth;
    double gainWord, referenceWord, driveWord, noiseWord;
    double arrowsX, upDownArrow, downArrow;
    double rmsWord, peakWord;
    double noiseModesX;
    std::array<double, 3> noiseModes;
};

constexpr Layout kSlides{
    .ticks = 24.4,
    .numbers = 34,
    .rise = 0,
    .windowX = 46,
    .windowWidth = 60,
    .gainWord = 37.5,
    .referenceWord = 150.5,
    .driveWord = 317,
    .noiseWord = 419.5,
    .arrowsX = 38,
    .upDownArrow = 121,
    .downArrow = 157,
    .rmsWord = 207,
    .peakWord = 273,
    .noiseModesX = 118,
    .noiseModes = {403, 420, 437},
};
/// Domes are 58 pixels wide; bat levers take the places of slides and buttons.
constexpr Layout kLevers{
    .ticks = 26.2,
    .numbers = 35.2,
    .rise = 1,
    .windowX = 47,
    .windowWidth = 58,
    .gainWord = 34.5,
    .referenceWord = 146.5,
    .driveWord = 314,
    .noiseWord = 417,
    .arrowsX = 40,
    .upDownArrow = 140,
    .downArrow = 162,
    .rmsWord = 229,
    .peakWord = 276,
    .noiseModesX = 119,
    .noiseModes = {412, 431, 450},
};

struct Preamp {
    Unit unit;
    Layout layout;
    bool hasAnalogStage; ///< drive and noise
    void (*adorn)(cairo_t*, const UnitFace&, bool printed);
};

constexpr Preamp kGain{Unit::Gain, kSlides, false, adornGain};
constexpr Preamp kPre60s{Unit::Pre60s, kLevers, true, adornPre60s};
constexpr Preamp kPre70s{Unit::Pre70s, kSlides, true, adornPre70s};
constexpr Preamp kPre80s{Unit::Pre80s, kSlides, true, adornPre80s};
constexpr Preamp kAdc90s{Unit::Adc90s, kSlides, true, adornAdc90s};

constexpr double kLevelBarX = 115;
constexpr double kLevelBarY = 50;
constexpr double kLampWidth = 12;
constexpr double kLampPitch = 15;

const DialScale& gainScale()
{
    static const DialScale scale{.law = preamp::gainDb,
                                 .numbers = {-30, -10, 0, 10, 30},
                                 .ticks = {-20, 20},
                                 .fine = steps(-25, 25, 10),
                                 .text = signedNumber};
    return scale;
}

const DialScale& referenceScale()
{
    static const DialScale scale{
        .law = preamp::referenceDb, .numbers = steps(-30, 0, 5), .fine = steps(-27.5, -2.5, 5)};
    return scale;
}

const DialScale& driveScale()
{
    static const DialScale scale{.law = preampDriveDb,
                                 .numbers = steps(-30, 30, 10),
                                 .fine = steps(-25, 25, 10),
                                 .text = signedNumber};
    return scale;
}

const DialScale& noiseScale()
{
    static const DialScale scale{.law = preampNoiseDb,
                                 .numbers = {-120, -100, -90, -80, -60},
                                 .ticks = {-110, -70},
                                 .fine = steps(-115, -65, 10)};
    return scale;
}

void printLevelBar(cairo_t* cr, const UnitFace& face)
{
    constexpr std::array kDecibels{"0", "\u22123", "\u221210", "\u221220"};
    for (std::size_t lamp = 0; lamp < kDecibels.size(); ++lamp)
        drawLabel(cr, face, kDecibels[lamp], 131, kLevelBarY + 7 + kLampPitch * static_cast<double>(lamp),
                  {.size = 7, .align = Align::Left, .spacing = 0, .font = Face::Narrow});
}

void printInputStage(cairo_t* cr, const UnitFace& face, const Layout& at)
{
    const DialLook look{.radius = at.ticks, .numbers = at.numbers};
    printDials(cr, face,
               {{76, 81 - at.rise, gainScale(), look}, {76, 194 - at.rise, referenceScale(), look}});
    printWords(cr, face,
               {{"GAIN", 76, at.gainWord},
                {"REF LEVEL", 76, at.referenceWord, {.size = 7.5}},
                {"AGA", 22, 41, {.size = 7.5}},
                {"LEVEL", 121, 41, {.size = 7}},
                {"RMS", 22.5, at.rmsWord, {.size = 7.3}},
                {"PEAK", 22.5, at.peakWord, {.size = 7.3}},
                {"PHASE", 130, 267, {.size = 7.3}}});
    printLevelBar(cr, face);
    const IconLook arrow{.alpha = 0.95, .lineWidth = 0.6};
    drawIcon(cr, Icon::UpDown, at.arrowsX, at.upDownArrow, 6, 8, face.ink, arrow);
    drawIcon(cr, Icon::Down, at.arrowsX, at.downArrow, 6, 4, face.ink, arrow);
}

void printAnalogStage(cairo_t* cr, const UnitFace& face, const Layout& at)
{
    const DialLook look{.radius = at.ticks, .numbers = at.numbers};
    printDials(cr, face, {{54, 360 - at.rise, driveScale(), look}, {54, 463 - at.rise, noiseScale(), look}});
    const Label mode{.size = 7, .align = Align::Right, .spacing = 0.1};
    printWords(cr, face,
               {{"DRIVE", 54, at.driveWord},
                {"NOISE", 54, at.noiseWord},
                {"ON", at.noiseModesX, at.noiseModes[0], mode},
                {"AUTO", at.noiseModesX, at.noiseModes[1], mode},
                {"OFF", at.noiseModesX, at.noiseModes[2], mode},
                {"ANALOG", 130, 491.5, {.size = 7.3, .spacing = 0}}});
}

void drawWells(cairo_t* cr, const UnitFace& face, const Preamp& preamp)
{
    const Layout& at = preamp.layout;
    drawWindows(
        cr, face,
        {{at.windowX, 118 - at.rise, at.windowWidth, 15}, {at.windowX, 231 - at.rise, at.windowWidth, 15}});
    drawLampBarWell(cr, kLevelBarX, kLevelBarY, kLampWidth, 4 * kLampPitch);
    if (!preamp.hasAnalogStage) return;
    drawWindows(cr, face,
                {{at.windowX - 22, 397 - at.rise, at.windowWidth, 15},
                 {at.windowX - 22, 500 - at.rise, at.windowWidth, 15}});
    drawLampRing(cr, 78, 312, face.isLight());
}

template <const Preamp& preamp, bool printed>
void draw(cairo_t* cr)
{
    const UnitFace& face = faceOf(preamp.unit);
    drawFace(cr, face);
    preamp.adorn(cr, face, printed);
    drawWells(cr, face, preamp);
    if (printed) {
        printInputStage(cr, face, preamp.layout);
        if (preamp.hasAnalogStage) printAnalogStage(cr, face, preamp.layout);
    }
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

constexpr Resource kPanels[]{
    {31000, kPanelWidth, kPanelHeight, draw<kGain, false>},
    {31001, kPanelWidth, kPanelHeight, draw<kGain, true>},
    {31100, kPanelWidth, kPanelHeight, draw<kPre60s, false>},
    {31104, kPanelWidth, kPanelHeight, draw<kPre60s, true>},
    {31200, kPanelWidth, kPanelHeight, draw<kPre70s, false>},
    {31203, kPanelWidth, kPanelHeight, draw<kPre70s, true>},
    {31300, kPanelWidth, kPanelHeight, draw<kPre80s, false>},
    {31305, kPanelWidth, kPanelHeight, draw<kPre80s, true>},
    {31400, kPanelWidth, kPanelHeight, draw<kAdc90s, false>},
    {31401, kPanelWidth, kPanelHeight, draw<kAdc90s, true>},
};

} // namespace

std::span<const Resource> preampPanels()
{
    return kPanels;
}

} // namespace velmora::art
