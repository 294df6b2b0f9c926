#include "art/parts/switches/bar_meter.h"
#include "art/parts/switches/frames.h"
#include "art/parts/switches/lamp.h"
#include "art/parts/switches/limiter_meter.h"
#include "art/parts/switches/magic_eye.h"
#include "art/parts/switches/needle_meter.h"
#include "art/resource.h"

#include <array>

namespace velmora::art {
namespace {

void drawLevelLamps(cairo_t* cr)
{
    drawFrames(cr, 4, 12, 14, [](cairo_t* frame, int level) {
        drawLampCell(frame, 0, 0, 12, 14, kLevelLights[static_cast<std::size_t>(level)], kDarkLevelCell);
    });
}

void drawReductionLamps(cairo_t* cr)
{
    drawFrames(cr, 4, 12, 14, [](cairo_t* frame, int level) {
        drawLampCell(frame, 0, 0, 12, 14, kReductionLights[static_cast<std::size_t>(level)],
                     kDarkReductionCell);
    });
}

template <const NeedleDial& kDial>
void drawNeedleMeter(cairo_t* cr)
{
    drawFrames(cr, 2, 138, 114, [](cairo_t* frame, int front) {
        front == 0 ? drawNeedleFace(frame, kDial) : drawNeedleFront(frame, kDial);
    });
}

void drawStripMeter(cairo_t* cr)
{
    drawFrames(cr, 2, 138, 67, [](cairo_t* frame, int front) {
        front == 0 ? drawStripMeter138x67(frame) : drawStripGlass138x67(frame);
    });
}

void drawLampMeter(cairo_t* cr)
{
    drawFrames(cr, kLampMeterLamps + 1, 133, 71, drawLampMeter133x71);
}

void drawLitBrickMeter(cairo_t* cr)
{
    drawBrickMeter(cr, 0, 0, true);
}

// 110 frames in 10 columns of 11, each column read downwards.
void drawEyeTargets(cairo_t* cr)
{
    constexpr int kFrames = 110;
    constexpr int kRows = 11;
    drawFrames(cr, kFrames, kRows, 66, 66,
               [](cairo_t* frame, int step) { drawEyeTarget66x66(frame, step / (kFrames - 1.0)); });
}

constexpr auto kMeters = std::to_array<Resource>({
    {31301, 12, 56, drawLevelLamps},
    {33101, 12, 56, drawReductionLamps},
    {34004, 138, 228, drawNeedleMeter<kOptoDial>},
    {34103, 138, 228, drawNeedleMeter<kFetDial>},
    {34203, 138, 228, drawNeedleMeter<kVcaDial>},
    {36003, 138, 134, drawStripMeter},
    {36104, 133, 994, drawLampMeter},
    {36202, 126, 22, drawLitBrickMeter},
    {36302, 660, 726, drawEyeTargets},
    {36303, 66, 66, drawEyeFront66x66},
    {37003, 8, 316, drawOutputBarLit8x316},
    {37004, 6, 315, drawOutputBarDark6x315},
    {37005, 6, 9, drawPeakMark6x9},
    {38202, 23, 129, drawGainBarLit23x129},
});

} // namespace

std::span<const Resource> meters()
{
    return kMeters;
}

} // namespace velmora::art
