#include "art/paint/shape.h"
#include "tests/art/embedded_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <vector>

namespace velmora::art {
namespace {

struct KnobUnderTest {
    std::uint32_t id;
    Spot shaft;   ///< in the frame
    double inner; ///< between these radii the pointer is the only thing that isn't round
    double outer;
};

// clang-format off
constexpr std::array kKnobs{
    KnobUnderTest{31101, {29, 29}, 8.5, 16},     KnobUnderTest{31201, {30, 30}, 4, 13.5},
    KnobUnderTest{32001, {25, 25}, 6, 14},       KnobUnderTest{32002, {30, 30}, 7, 17},
    KnobUnderTest{33001, {30, 30}, 6, 15.5},     KnobUnderTest{33002, {22.5, 22.5}, 5, 11.5},
    KnobUnderTest{33003, {23.5, 23.5}, 5, 12},   KnobUnderTest{33004, {30, 30}, 6, 15.5},
    KnobUnderTest{33005, {30, 30}, 6, 15.5},     KnobUnderTest{34001, {25, 25}, 3, 11},
    KnobUnderTest{34002, {39, 39}, 5, 18},       KnobUnderTest{34101, {25, 25}, 6, 14.5},
    KnobUnderTest{34102, {39, 39}, 10, 24},      KnobUnderTest{34201, {25, 25}, 7, 11.5},
    KnobUnderTest{34202, {39, 39}, 11, 19.5},    KnobUnderTest{35001, {33, 33}, 20, 24},
    KnobUnderTest{35002, {33, 33}, 3, 11},       KnobUnderTest{35101, {33, 33}, 6, 13.5},
    KnobUnderTest{35201, {72, 62}, 4, 16},       KnobUnderTest{36001, {36.5, 34}, 4, 12},
    KnobUnderTest{36002, {54.5, 52}, 5, 20},     KnobUnderTest{36005, {12.5, 12.5}, 2, 6.5},
};
// clang-format on

std::vector<Raster> framesOf(cairo_surface_t* surface, const PictureUse& use, int step)
{
    std::vector<Raster> frames;
    for (int frame = 0; frame < use.frames; frame += step) frames.push_back(frameOf(surface, use, frame));
    return frames;
}

// What a pixel is in most frames: the knob without its pointer.
double median(const std::vector<Raster>& frames, int x, int y)
{
    std::vector<double> values;
    for (const Raster& frame : frames) values.push_back(frame.brightness(x, y));
    std::ranges::nth_element(values, values.begin() + std::ssize(values) / 2);
    return values[values.size() / 2];
}

struct Still {
    int x;
    int y;
    double brightness;
};

std::vector<Still> stillRing(const KnobUnderTest& knob, const std::vector<Raster>& frames)
{
    std::vector<Still> ring;
    frames.front().forEach([&](int x, int y) {
        const double radius = std::hypot(x + 0.5 - knob.shaft.x, y + 0.5 - knob.shaft.y);
        if (radius > knob.inner && radius < knob.outer) ring.push_back({x, y, median(frames, x, y)});
    });
    return ring;
}

// The way from the shaft to what the frame shows beside the still knob, degrees clockwise from 12 o'clock.
double pointerAngle(const KnobUnderTest& knob, const std::vector<Still>& ring, const Raster& frame)
{
    double right = 0.0;
    double down = 0.0;
    for (const Still& still : ring) {
        const double change = frame.brightness(still.x, still.y) - still.brightness;
        right += change * change * (still.x + 0.5 - knob.shaft.x);
        down += change * change * (still.y + 0.5 - knob.shaft.y);
    }
    return std::atan2(right, -down) * 180.0 / std::numbers::pi;
}

TEST(KnobStrips, PointerStandsAtTheAngleOfTheValue)
{
    constexpr int kStep = 10;
    for (const KnobUnderTest& knob : kKnobs) {
        const auto row = std::ranges::find(pictureRows(), knob.id, &PictureRow::id);
        ASSERT_NE(row, pictureRows().end()) << knob.id;
        const SurfacePtr surface = decode(*row);
        const PictureUse use = useOf(knob.id);
        const std::vector<Raster> frames = framesOf(surface.get(), use, kStep);
        const std::vector<Still> ring = stillRing(knob, frames);
        double furthest = 0.0;
        for (std::size_t i = 0; i < frames.size(); ++i) {
            const double value = static_cast<double>(i * kStep) / (use.frames - 1);
            const double off = pointerAngle(knob, ring, frames[i]) - dialAngle(value);
            furthest = std::max(furthest, std::abs(std::remainder(off, 360.0)));
        }
        std::printf("%u at most %.2f degrees off\n", knob.id, furthest);
        EXPECT_LT(furthest, 1.5) << knob.id;
    }
}

TEST(KnobStrips, GripLeavesTheNotchOfItsRingFree)
{
    constexpr double kNotch = 18.0; // where it begins, pixels from the shaft
    const auto row = std::ranges::find(pictureRows(), 35002u, &PictureRow::id);
    const SurfacePtr surface = decode(*row);
    for (const Raster& frame : framesOf(surface.get(), useOf(row->id), 20)) {
        int greatest = 0;
        frame.forEach([&](int x, int y) {
            const double radius = std::hypot(x + 0.5 - 33, y + 0.5 - 33);
            if (radius > kNotch) greatest = std::max(greatest, frame.alpha(x, y));
        });
        EXPECT_LT(greatest, 200); // no more than shadow
    }
}

} // namespace
} // namespace velmora::art
