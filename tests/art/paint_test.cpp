#include "art/paint/gradient.h"
#include "art/paint/lettering.h"
#include "art/paint/shape.h"
#include "art/paint/texture.h"
#include "tests/art/raster.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace velmora::art {
namespace {

constexpr Face kFaces[] = {Face::Sans, Face::Narrow, Face::Gothic, Face::Serif, Face::Mono, Face::Bookman};

TEST(Lettering, FindsItsFonts)
{
    EXPECT_EQ(missingFamilies(), "");
}

TEST(Lettering, LiesAroundThePlaceItIsGiven)
{
    for (const Face face : kFaces)
        for (const double spacing : {0.0, 2.0}) {
            const Canvas canvas(400, 100);
            const Lettering lettering{.size = 30, .face = face, .bold = true, .spacing = spacing};
            const double width = drawText(canvas.cr(), "HEIGHT", 200, 50, lettering);
            const Ink ink = inkOf(canvas.pixels());
            EXPECT_NEAR((ink.top + ink.bottom + 1) / 2.0, 50, 1.6) << static_cast<int>(face);
            EXPECT_NEAR((ink.left + ink.right + 1) / 2.0, 200, 3) << static_cast<int>(face);
            EXPECT_NEAR(ink.right - ink.left, width, 8) << static_cast<int>(face);
        }
}

TEST(Lettering, AlignsToItsSides)
{
    for (const Face face : kFaces) {
        const Canvas left(300, 60);
        drawText(left.cr(), "MUTE", 100, 30, {.size = 20, .face = face, .align = Align::Left});
        EXPECT_NEAR(inkOf(left.pixels()).left, 100, 3);
        const Canvas right(300, 60);
        drawText(right.cr(), "MUTE", 200, 30, {.size = 20, .face = face, .align = Align::Right});
        EXPECT_NEAR(inkOf(right.pixels()).right, 200, 3);
    }
}

TEST(Lettering, TakesLettersNotBytesApart)
{
    const Canvas canvas(10, 10);
    const Lettering spaced{.size = 20, .spacing = 5};
    const double one = textWidth(canvas.cr(), "\u2212", spaced);
    EXPECT_NEAR(textWidth(canvas.cr(), "\u2212\u2212", spaced), 2 * one + 5, 1e-9);
    EXPECT_EQ(textWidth(canvas.cr(), "", spaced), 0.0);
}

TEST(Lettering, RelievesDarkInkBelowAndLightInkAbove)
{
    const Canvas dark(80, 40);
    drawText(dark.cr(), "H", 40, 20, {.size = 24, .colour = kBlack, .relief = Relief::DarkInk});
    const Ink ink = inkOf(dark.pixels());
    EXPECT_GT(dark.pixels().brightness(ink.left + 1, ink.bottom), 150);

    const Canvas light(80, 40);
    drawText(light.cr(), "H", 40, 20, {.size = 24, .colour = kWhite, .relief = Relief::LightInk});
    const Ink above = inkOf(light.pixels());
    EXPECT_LT(light.pixels().brightness(above.left + 1, above.top), 200);
}

TEST(Shapes, DialsTurnFromLowerLeftToLowerRight)
{
    EXPECT_EQ(dialAngle(0), -150.0);
    EXPECT_EQ(dialAngle(0.5), 0.0);
    EXPECT_EQ(dialAngle(1), 150.0);
    const Spot top = onCircle(10, 10, 5, 0);
    EXPECT_NEAR(top.x, 10, 1e-12);
    EXPECT_NEAR(top.y, 5, 1e-12);
    EXPECT_GT(onCircle(10, 10, 5, 90).x, 14.9);
}

TEST(Shapes, ShadowsFadeOutwards)
{
    const Canvas canvas(80, 80);
    drawSoftRect(canvas.cr(), 20, 20, 40, 40, 4, 6, 0.6);
    const Raster pixels = canvas.pixels();
    EXPECT_NEAR(pixels.alpha(40, 40), 0.6 * 255, 4);
    EXPECT_NEAR(pixels.alpha(20, 40), 0.3 * 255, 40);
    EXPECT_EQ(pixels.alpha(12, 40), 0);
    for (int x = 13; x < 40; ++x) EXPECT_GE(pixels.alpha(x, 40), pixels.alpha(x - 1, 40));

    const Canvas disc(80, 80);
    drawSoftDisc(disc.cr(), 40, 40, 30, 0.5);
    for (int x = 11; x < 40; ++x) EXPECT_GE(disc.pixels().alpha(x, 40), disc.pixels().alpha(x - 1, 40));
    EXPECT_EQ(disc.pixels().alpha(9, 40), 0);
}

TEST(Gradients, ConesCoverTheirDiscAndStartAtTheTop)
{
    const Canvas canvas(101, 101);
    fillConic(canvas.cr(), 50.5, 50.5, 50, {{0.0, kBlack}, {0.5, kWhite}, {1.0, kBlack}});
    const Raster pixels = canvas.pixels();
    pixels.forEach([&](int x, int y) {
        if (std::hypot(x - 50, y - 50) < 48) {
            EXPECT_EQ(pixels.alpha(x, y), 255) << x << ' ' << y;
        }
    });
    EXPECT_LT(pixels.brightness(50, 10), 10);
    EXPECT_GT(pixels.brightness(50, 90), 245);
    EXPECT_NEAR(pixels.brightness(90, 50), pixels.brightness(10, 50), 8);
}

TEST(Texture, IsFaintAndStaysInItsRectangle)
{
    const Canvas canvas(60, 60);
    paintGrain(canvas.cr(), Grain::Hammer, 10, 10, 40, 40, 0.05);
    const Raster pixels = canvas.pixels();
    const Ink ink = inkOf(pixels, 1);
    EXPECT_GE(ink.left, 10);
    EXPECT_LE(ink.right, 49);
    EXPECT_GT(ink.count, 700);
    EXPECT_LE(pixels.greatestAlpha(), 0.05 * 1.4 * 255 + 1);
}

} // namespace
} // namespace velmora::art
