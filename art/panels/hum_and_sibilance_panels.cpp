#include "art/paint/gradient.h"
#include "art/panels/printing.h"
#include "art/panels/reduction_bar.h"
#include "art/panels/special_fields.h"
#include "art/panels/special_panels.h"
#include "params/laws/special_laws.h"

#include <array>

namespace velmora::art {
namespace {

// De-esser and De-hummer share their arrangement: two large knobs beside the reduction bar, small ones above
// and below.

constexpr DialLook kSmall{.radius = 20, .numbers = 28.8, .tick = 3.6};
constexpr DialLook kLarge{.radius = 24.2, .numbers = 33.4, .tick = 3.6};
constexpr Label kName{.size = 7.5};
constexpr Label kLongName{.size = 7.5, .spacing = 0.2};

void drawGround(cairo_t* cr, const UnitFace& face)
{
    drawFace(cr, face);
    drawField(cr, 29, 106);
    drawField(cr, 139, 220);
    drawField(cr, 363, 169);
    drawReductionBar(cr, face, 118, 156, 147.5);
    drawWindows(cr, face, {{24, 224, 60, 15}, {24, 337, 60, 15}});
}

void finish(cairo_t* cr, const UnitFace& face, std::string_view wordmark)
{
    drawWordmark(cr, face, wordmark, 447);
    drawEdge(cr, face);
    drawTitlePlate(cr, face);
}

const DialScale& percentScale()
{
    static const DialScale scale{.law = percent, .numbers = steps(0, 100, 20), .fine = steps(5, 95, 5)};
    return scale;
}

/// The odd harmonics of a hum stand out in colour.
void drawHarmonics(cairo_t* cr, const UnitFace& face)
{
    constexpr std::array heights{30.0, 24.6, 21.0, 17.4, 14.1, 11.1, 8.4, 6.0, 4.2};
    constexpr double ground = 112;
    double x = 97;
    bool odd = true;
    for (const double height : heights) {
        drawLine(cr, x, ground, x, ground - height, 2, odd ? face.accent : face.ink, odd ? 0.8 : 0.45);
        odd = !odd;
        x += 5;
    }
    drawLine(cr, 94, ground + 0.5, 141, ground + 0.5, 1, face.ink, 0.7);
    drawLabel(cr, face, "HARMONICS", 117.5, 121, {.size = 6.5, .spacing = 0.1});
}

} // namespace

void drawDeesserPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Special);
    const DialScale frequency{.law = deesser::frequencyHz,
                              .numbers = {500, 1000, 2000, 4000, 8000, 16000},
                              .fine = {700, 1500, 3000, 6000, 12000},
                              .text = thousands};
    const DialScale q{.law = deesser::q, .numbers = {0.5, 1, 2, 4, 8, 16}, .fine = {0.7, 1.5, 3, 6, 12}};
    const DialScale range{.law = deesser::rangeDb,
                          .numbers = {-24, -12, -9, -6, -3, 0},
                          .fine = {-18, -15, -10.5, -7.5, -4.5, -1.5}};
    drawGround(cr, face);
    drawWindows(cr, face, {{14, 114, 50, 15}, {89, 114, 50, 15}});
    printDials(cr, face,
               {{39, 82, frequency, kSmall},
                {114, 82, q, kSmall},
                {54, 187, percentScale(), kLarge},
                {54, 300, range, kLarge}});
    printWords(cr, face,
               {{"FREQ", 39, 41, kName},
                {"Q", 114, 41},
                {"SENSITIVITY", 54, 147.5, kLongName},
                {"RANGE dB", 54, 258, kName}});
    printRocker(cr, face, "RATIO", 400, {"2:1", "4:1"});
    printRocker(cr, face, "BAND", 473, {Icon::Flat, Icon::Cross});
    finish(cr, face, "de-esser");
}

void drawDehummerPanel(cairo_t* cr)
{
    const UnitFace& face = faceOf(Unit::Special);
    const DialScale balance{.fine = steps(0, 1, 0.1), .marks = {{0.0, "ODD"}, {0.5, "="}, {1.0, "EVEN"}}};
    const DialScale attenuation{.law = dehummer::attenuationDb,
                                .numbers = {-48, -24, -18, -12, -6, 0},
                                .fine = {-36, -30, -21, -15, -9, -3}};
    const DialScale offset{
        .law = balanceOffset, .numbers = steps(-10, 10, 5), .fine = steps(-9, 9, 1), .text = signedNumber};
    drawGround(cr, face);
    drawWindows(cr, face, {{29, 114, 50, 15}, {29, 514, 50, 15}});
    drawHarmonics(cr, face);
    printDials(cr, face,
               {{54, 82, balance, kSmall},
                {54, 187, percentScale(), kLarge},
                {54, 300, attenuation, kLarge},
                {54, 482, offset, kSmall}});
    printWords(cr, face,
               {{"ODD / EVEN", 54, 41, kName},
                {"BRIGHTNESS", 54, 147.5, kLongName},
                {"ATTENUATION", 54, 258, kLongName},
                {"OFFSET Hz", 54, 443, kName}});
    printRocker(cr, face, "FREQUENCY Hz", 400, {"50", "60"});
    finish(cr, face, "de-hummer");
}

} // namespace velmora::art
