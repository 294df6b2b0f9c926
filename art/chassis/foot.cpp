#include "art/chassis/chassis.h"
#include "art/chassis/metal.h"
#include "art/paint/gradient.h"
#include "art/paint/shape.h"
#include "art/parts/icon.h"
#include "art/parts/relief.h"
#include "art/parts/switches/button.h"
#include "art/parts/switches/frames.h"

#include <string_view>

namespace velmora::art {
namespace {

constexpr double kWidth = 152;
constexpr double kHeight = 68;

void drawGround(cairo_t* cr)
{
    useLinear(cr, 0, 0, kWidth, kHeight, {{0, hex(0x33373b)}, {0.5, kPanelMetal}, {1, hex(0x191b1d)}});
    fillRect(cr, 0, 0, kWidth, kHeight);
    paintGrain(cr, Grain::BrushedAcross, 0, 0, kWidth, kHeight, 0.05, 11);
    drawLine(cr, 0, 0.5, kWidth, 0.5, 1, kWhite, 0.22);
    drawLine(cr, 0.5, 0, 0.5, kHeight, 1, kWhite, 0.12);
    drawLine(cr, kWidth - 0.5, 0, kWidth - 0.5, kHeight, 1, kBlack, 0.6);
    drawLine(cr, 0, kHeight - 0.5, kWidth, kHeight - 0.5, 1, kBlack, 0.7);
}

/// Where the module's preset is chosen: the well and the two arrows.
void drawPresetWell(cairo_t* cr)
{
    constexpr double kX = 6;
    constexpr double kY = 49;
    constexpr double kWellWidth = 141;
    constexpr double kWellHeight = 16;
    constexpr Colour kArrow = hex(0xc9cdd1);
    constexpr double kMiddle = kY + kWellHeight / 2;
    useLinear(cr, 0, kY, 0, kY + kWellHeight, {{0, hex(0x0b0c0d)}, {1, hex(0x1a1c1e)}});
    fillRoundRect(cr, kX, kY, kWellWidth, kWellHeight, 3);
    drawLip(cr, kX - 0.5, kY - 0.5, kWellWidth + 1, kWellHeight + 1, 3.4, 0.8, 0.2);
    drawIcon(cr, Icon::Left, 14, kMiddle, 4, 6, kArrow, {.alpha = 0.9, .lineWidth = 1});
    drawIcon(cr, Icon::Right, 139, kMiddle, 4, 6, kArrow, {.alpha = 0.9, .lineWidth = 1});
}

void drawKeyPair(cairo_t* cr, double width, std::string_view text, double size, Colour light)
{
    drawFrames(cr, 2, width, 22, [=](cairo_t* frame, int on) {
        drawFootButton(frame, 0, 0, width, 22, text, size, on ? Light{light} : Light{});
    });
}

} // namespace

void drawFoot(cairo_t* cr)
{
    constexpr Lettering print{.size = 7, .colour = hex(0xaeb4b9), .bold = true, .spacing = 0.5};
    drawGround(cr);
    drawText(cr, "IN", 16, 29, print);
    drawText(cr, "OUT", 136, 29, print);
    drawPresetWell(cr);
}

void drawMuteButton(cairo_t* cr)
{
    drawKeyPair(cr, 22, "M", 10, kAmberLight);
}

void drawSoloButton(cairo_t* cr)
{
    drawKeyPair(cr, 22, "S", 10, hex(0xffe14d));
}

void drawSideChainButton(cairo_t* cr)
{
    drawKeyPair(cr, 41, "EXT SC", 7.5, hex(0x6db3ff));
}

void drawMonitorButton(cairo_t* cr)
{
    drawKeyPair(cr, 41, "MON", 7.5, kWarningRed);
}

void drawLevelLamp(cairo_t* cr)
{
    drawFrames(cr, 4, 20, 20, [](cairo_t* frame, int state) {
        drawRoundLamp(frame, 10, 10, 4.4, kLevelLights[static_cast<std::size_t>(state)], kDarkLens, 2.2);
    });
}

} // namespace velmora::art
