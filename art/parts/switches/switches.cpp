#include "art/parts/switches/button.h"
#include "art/parts/switches/fader.h"
#include "art/parts/switches/frames.h"
#include "art/parts/switches/lever.h"
#include "art/parts/switches/selector.h"
#include "art/parts/switches/slide.h"
#include "art/resource.h"

#include <array>

namespace velmora::art {
namespace {

// Two-state pictures: the lower frame is the engaged one.

template <void (*kDraw)(cairo_t*, bool), int kWidth, int kHeight>
void drawTwoStates(cairo_t* cr)
{
    drawFrames(cr, 2, kWidth, kHeight, [](cairo_t* frame, int on) { kDraw(frame, on == 1); });
}

void drawInButtons(cairo_t* cr)
{
    drawFrames(cr, 2, 27, 34, [](cairo_t* frame, int on) { drawInButton27x34(frame, on == 1); });
}

void drawSaturationButtons(cairo_t* cr)
{
    drawFrames(cr, 2, 27, 34,
               [](cairo_t* frame, int on) { drawInButton27x34(frame, on == 1, light::kAmber); });
}

// The soft knee button of the VCA limiter: an in button with room round it.
void drawSoftButtons(cairo_t* cr)
{
    drawFrames(cr, 2, 30, 38, [](cairo_t* frame, int on) {
        cairo_translate(frame, 1.5, 1);
        drawInButton27x34(frame, on == 1, light::kBlue);
    });
}

void drawInRockers(cairo_t* cr)
{
    drawFrames(cr, 2, 32, 42, [](cairo_t* frame, int on) { drawBarRocker32x42(frame, "IN", on == 1); });
}

void drawSaturationRockers(cairo_t* cr)
{
    drawFrames(cr, 2, 32, 42, [](cairo_t* frame, int on) { drawBarRocker32x42(frame, "SAT", on == 1); });
}

template <const LeverFinish& kFinish, int kWidth, int kHeight>
void drawTwoStateLevers(cairo_t* cr)
{
    drawFrames(cr, 2, kWidth, kHeight, [](cairo_t* frame, int on) {
        drawLever(frame, kWidth / 2.0, kHeight / 2.0, on == 1 ? LeverPosition::Up : LeverPosition::Down, 1.0,
                  kFinish);
    });
}

// 39 x 49, of which the panel shows the upper part.
void drawSoftLevers(cairo_t* cr)
{
    drawFrames(cr, 2, 39, 49, [](cairo_t* frame, int on) {
        drawLever(frame, 19.5, 19.5, on == 1 ? LeverPosition::Up : LeverPosition::Down, 1.1);
    });
}

constexpr double kTallLever = 1.08;

void drawTallLevers(cairo_t* cr)
{
    drawFrames(cr, 2, 27, 54, [](cairo_t* frame, int on) {
        drawLever(frame, 13.5, 27, on == 1 ? LeverPosition::Up : LeverPosition::Down, kTallLever);
    });
}

void drawThreeStateLevers(cairo_t* cr)
{
    drawFrames(cr, 3, 27, 54, [](cairo_t* frame, int position) {
        drawLever(frame, 13.5, 27, static_cast<LeverPosition>(position), kTallLever);
    });
}

void drawTwoStateSlides(cairo_t* cr)
{
    drawFrames(cr, 2, 19, 52,
               [](cairo_t* frame, int on) { drawSlideDown(frame, {.positions = 2}, on == 1 ? 0 : 1); });
}

void drawThreeStateSlides(cairo_t* cr)
{
    drawFrames(cr, 3, 19, 52,
               [](cairo_t* frame, int position) { drawSlideDown(frame, {.positions = 3}, position); });
}

// The slot stands below the head of its frame, in line with the three signs beside it.
constexpr Slide kBandSlide{.x = 4,
                           .y = 25,
                           .height = 61,
                           .positions = 3,
                           .thumb = hex(0xb3b0ac),
                           .slotWidth = 6,
                           .thumbLength = 13,
                           .thumbWidth = 13};

void drawShapeSlides(cairo_t* cr)
{
    drawFrames(cr, 3, 23, 111,
               [](cairo_t* frame, int position) { drawSlideDown(frame, kBandSlide, position); });
}

constexpr Slide kShortBandSlide{.x = 3,
                                .width = 17,
                                .height = 41,
                                .positions = 3,
                                .thumb = hex(0xd0c8bb),
                                .slotWidth = 6,
                                .thumbLength = 12,
                                .thumbWidth = 14};

void drawShortShapeSlides(cairo_t* cr)
{
    drawFrames(cr, 3, 34, 60,
               [](cairo_t* frame, int position) { drawSlideDown(frame, kShortBandSlide, position); });
}

// A slide across with the signs of its three positions printed above, on the panel.
constexpr Slide kTypeSlide{
    .y = 18, .width = 78, .height = 20, .positions = 3, .thumb = hex(0xc9cdd6), .thumbLength = 22};

void drawTypeSlides(cairo_t* cr)
{
    drawFrames(cr, 3, 78, 42,
               [](cairo_t* frame, int position) { drawSlideAcross(frame, kTypeSlide, position); });
}

constexpr Slide kTwoWaySlide{
    .width = 78, .height = 18, .thumb = hex(0xc9cdd6), .thumbLength = 22, .thumbWidth = 13};

void drawTwoWaySlides(cairo_t* cr)
{
    drawFrames(cr, 2, 78, 18,
               [](cairo_t* frame, int position) { drawSlideAcross(frame, kTwoWaySlide, position); });
}

void drawShapeSelectors(cairo_t* cr)
{
    drawFrames(cr, 5, 130, 42, [](cairo_t* frame, int chosen) { drawShapeKeys130x42(frame, chosen); });
}

constexpr auto kSwitches = std::to_array<Resource>({
    {31102, 27, 108, drawTallLevers},
    {31103, 26, 62, drawTwoStates<drawRoundPhaseButton26x31, 26, 31>},
    {31202, 22, 62, drawTwoStates<drawSquareButton22x31, 22, 31>},
    {31302, 23, 60, drawTwoStates<drawPhaseButton23x30, 23, 30>},
    {31303, 19, 104, drawTwoStateSlides},
    {32003, 19, 156, drawThreeStateSlides},
    {32004, 27, 68, drawInButtons},
    {32105, 130, 210, drawShapeSelectors},
    {32201, 41, 22, drawBlindPlate41x22},
    {34005, 39, 98, drawSoftLevers},
    {34104, 39, 78, drawTwoStateLevers<kBlackNutLever, 39, 39>},
    {34204, 39, 78, drawTwoStateLevers<kBlueLever, 39, 39>},
    {35003, 23, 333, drawShapeSlides},
    {35004, 27, 68, drawSaturationButtons},
    {35102, 32, 84, drawInRockers},
    {35104, 32, 84, drawSaturationRockers},
    {35105, 34, 34, drawSliderCap34x34},
    {35106, 34, 180, drawShortShapeSlides},
    {35204, 27, 162, drawThreeStateLevers},
    {35205, 32, 78, drawTwoStateLevers<kChromeLever, 32, 39>},
    {35206, 32, 78, drawTwoStateLevers<kAmberLever, 32, 39>},
    {36103, 30, 76, drawSoftButtons},
    {37002, 38, 92, drawFaderCap38x92},
    {37006, 47, 36, drawTwoStates<drawMeasureKeys47x18, 47, 18>},
    {38001, 55, 60, drawTwoStates<drawTwoWayRocker55x30, 55, 30>},
    {38002, 41, 22, drawBlindPlate41x22},
    {38101, 41, 22, drawBlindPlate41x22},
    {38201, 78, 126, drawTypeSlides},
    {38203, 78, 36, drawTwoWaySlides},
});

} // namespace

std::span<const Resource> switches()
{
    return kSwitches;
}

} // namespace velmora::art
