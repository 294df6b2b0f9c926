#include "art/parts/icon.h"
#include "art/parts/plate.h"
#include "art/parts/relief.h"
#include "art/parts/scale.h"
#include "tests/art/raster.h"

#include "params/laws/filters_laws.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <vector>

namespace velmora::art {
namespace {

/// Where the ink lies from a centre, in degrees clockwise from the top.
double bearingOfInk(const Raster& pixels, double x, double y)
{
    double across = 0.0;
    double down = 0.0;
    pixels.forEach([&](int px, int py) {
        across += pixels.alpha(px, py) * (px + 0.5 - x);
        down += pixels.alpha(px, py) * (py + 0.5 - y);
    });
    return std::atan2(across, -down) * 180.0 / std::numbers::pi;
}

TEST(DialScales, MarkWhereTheKnobPoints)
{
    for (const double hertz : {300.0, 1000.0, 5000.0, 30000.0}) {
        const Canvas canvas(152, 152);
        drawDialScale(canvas.cr(), faceOf(Unit::Filters), 76, 76,
                      {.law = filters::lowPassHz, .ticks = {hertz}}, {.radius = 40});
        const double position = std::log(hertz / 300) / std::log(100);
        EXPECT_NEAR(bearingOfInk(canvas.pixels(), 76, 76), -150 + 300 * position, 0.6) << hertz;
    }
}

TEST(DialScales, KeepNumbersOnThePanelAndOffTheKnob)
{
    for (const double x : {30.0, 76.0, 122.0}) {
        const Canvas canvas(kPanelWidth, 100);
        drawDialScale(
            canvas.cr(), faceOf(Unit::Filters), x, 50,
            {.law = filters::lowPassHz, .numbers = {300, 1000, 3000, 10000, 30000}, .text = thousands},
            {.radius = 17});
        const Raster pixels = canvas.pixels();
        EXPECT_LE(pixels.greatestAlphaOnBorder(), 0) << x;
        pixels.forEach([&](int px, int py) {
            if (std::hypot(px + 0.5 - x, py + 0.5 - 50) < 16) {
                EXPECT_EQ(pixels.alpha(px, py), 0) << x << ": " << px << ' ' << py;
            }
        });
    }
}

TEST(Icons, StayInTheirFieldsAndDiffer)
{
    std::vector<Canvas> drawn;
    for (int icon = 0; icon <= static_cast<int>(Icon::UpDown); ++icon) {
        Canvas canvas(40, 30);
        drawIcon(canvas.cr(), static_cast<Icon>(icon), 20, 15, 24, 14, kBlack);
        const Ink ink = inkOf(canvas.pixels());
        EXPECT_GT(ink.count, 15) << icon;
        EXPECT_GE(ink.left, 7) << icon;
        EXPECT_LE(ink.right, 32) << icon;
        EXPECT_GE(ink.top, 7) << icon;
        EXPECT_LE(ink.bottom, 22) << icon;
        for (const Canvas& other : drawn) EXPECT_FALSE(canvas.pixels().sameAs(other.pixels())) << icon;
        drawn.push_back(std::move(canvas));
    }
}

TEST(Plates, FacesAreLitFromTheTopLeft)
{
    for (int unit = 0; unit <= static_cast<int>(Unit::Special); ++unit) {
        const UnitFace& face = faceOf(static_cast<Unit>(unit));
        const Canvas canvas(kPanelWidth, kPanelHeight);
        drawFace(canvas.cr(), face);
        const Raster pixels = canvas.pixels();
        EXPECT_EQ(pixels.leastAlpha(), 255);
        double lit = 0.0;
        double far = 0.0;
        for (int y = 0; y < 100; ++y)
            for (int x = 0; x < 60; ++x) {
                lit += pixels.brightness(x, y) / 6000;
                far += pixels.brightness(kPanelWidth - 1 - x, kPanelHeight - 1 - y) / 6000;
            }
        EXPECT_GT(lit, far + 5) << unit;
        // Ink must be read on it.
        const double ink = (face.ink.red + face.ink.green + face.ink.blue) / 3 * 255;
        EXPECT_GT(std::abs(ink - (lit + far) / 2), 90) << unit;
    }
}

TEST(Plates, ReliefIsLitFromTheTopLeft)
{
    const Canvas disc(60, 60);
    fillShadedDisc(disc.cr(), 30, 30, 25, hex(0x808080), hex(0x202020));
    drawRim(disc.cr(), 30, 30, 25, {.width = 2});
    EXPECT_GT(disc.pixels().brightness(14, 14), disc.pixels().brightness(46, 46) + 60);

    // A sunken field is dark inside its upper edge.
    const Canvas well(60, 60);
    drawWell(well.cr(), 10, 10, 40, 40);
    EXPECT_LT(well.pixels().brightness(30, 10), well.pixels().brightness(30, 49));
    EXPECT_EQ(litAt(-45), 1.0);
    EXPECT_NEAR(litAt(135), -1.0, 1e-12);
}

TEST(Plates, TitlePlatesAndWindowsLeaveRoomForTheirText)
{
    const UnitFace& face = faceOf(Unit::Opto);
    const Canvas canvas(kPanelWidth, 60);
    drawTitlePlate(canvas.cr(), face);
    drawWindow(canvas.cr(), face, 20, 35, 60, 15);
    const Raster pixels = canvas.pixels();
    for (int x = 30; x < 122; ++x) EXPECT_LT(pixels.brightness(x, 15), 60) << x;
    for (int x = 22; x < 78; ++x) EXPECT_EQ(pixels.alpha(x, 43), 255) << x;
    EXPECT_EQ(pixels.alpha(100, 43), 0);
}

} // namespace
} // namespace velmora::art
