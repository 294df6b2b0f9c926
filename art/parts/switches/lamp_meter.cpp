#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/parts/relief.h"
#include "art/parts/switches/lamp.h"
#include "art/parts/switches/limiter_meter.h"

#include <array>
#include <string_view>

namespace velmora::art {
namespace {

constexpr std::array<std::string_view, kLampMeterLamps> kLabels{".3", "1", "2", "",   "4", "",  "6",
                                                                "",   "9", "",  "14", "",  "28"};
constexpr double kPitch = 8.7;
constexpr int kFirstAmber = 8;
constexpr int kFirstRed = 11;

Colour lampColour(int lamp)
{
    return lamp < kFirstAmber ? light::kBlue : lamp < kFirstRed ? light::kAmber : light::kRed;
}

void drawCase(cairo_t* cr)
{
    drawSoftRect(cr, 2, 3, 129, 65, 5, 3, 0.5);
    useLinear(cr, 0, 0, 133, 71, {{0, hex(0x5d6268)}, {1, hex(0x101214)}});
    fillRoundRect(cr, 0, 0, 133, 70, 6);
    useLinear(cr, 0, 0, 50, 70, {{0, kWhite, 0.45}, {0.5, kWhite, 0.08}, {1, kBlack, 0.4}});
    strokeRoundRect(cr, 1, 0.5, 0.5, 132, 69, 5.6);
    useColour(cr, hex(0x06080a));
    fillRoundRect(cr, 5, 5, 123, 60, 4);
    drawLip(cr, 4.5, 4.5, 124, 61, 4.5, 1, 0.25);
}

void drawLamp(cairo_t* cr, double x, Colour colour, bool lit)
{
    if (lit) {
        drawSoftRect(cr, x - 3, 18, 6, 20, 1.4, 2.2, 0.35, colour);
        useLinear(cr, 0, 18, 0, 38,
                  {{0, lighter(colour, 0.65)}, {0.5, lighter(colour, 0.15)}, {1, darker(colour, 0.1)}});
    } else {
        useLinear(cr, 0, 18, 0, 38,
                  {{0, mix(hex(0x232a31), colour, 0.1)}, {1, mix(hex(0x161b20), colour, 0.06)}});
    }
    fillRoundRect(cr, x - 3, 18, 6, 20, 1.4);
    if (lit) {
        useColour(cr, kWhite, 0.4);
        fillRoundRect(cr, x - 2, 19, 4, 1.4, 0.7);
    }
}

void drawGlass(cairo_t* cr)
{
    cairo_save(cr);
    addRoundRect(cr, 5, 5, 123, 60, 4);
    cairo_clip(cr);
    cairo_move_to(cr, 5, 5);
    cairo_line_to(cr, 80, 5);
    cairo_line_to(cr, 46, 65);
    cairo_line_to(cr, 5, 65);
    cairo_close_path(cr);
    useLinear(cr, 0, 0, 60, 66, {{0, kWhite, 0.14}, {1, kWhite, 0.01}});
    cairo_fill(cr);
    cairo_restore(cr);
}

} // namespace

void drawLampMeter133x71(cairo_t* cr, int lit)
{
    drawCase(cr);
    for (int lamp = 0; lamp < kLampMeterLamps; ++lamp) {
        const double x = 118.5 - lamp * kPitch;
        drawLamp(cr, x, lampColour(lamp), lamp < lit);
        drawText(cr, kLabels[static_cast<std::size_t>(lamp)], x, 46,
                 {.size = 7, .colour = hex(0xb9c4cd), .alpha = 0.95, .face = Face::Narrow, .bold = true});
    }
    drawText(cr, "GAIN REDUCTION  dB", 66.5, 57.5,
             {.size = 7, .colour = hex(0x8fa1ae), .bold = true, .spacing = 0.5});
    drawGlass(cr);
}

} // namespace velmora::art
