#include "art/parts/law.h"
#include "tests/art/picture_probe.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <numbers>

namespace velmora::art {
namespace {

struct Strip {
    std::uint32_t id;
    int frames;
};

constexpr std::array kSwitchStrips{
    Strip{31102, 2}, Strip{31103, 2}, Strip{31202, 2}, Strip{31302, 2}, Strip{31303, 2}, Strip{32003, 3},
    Strip{32004, 2}, Strip{32105, 5}, Strip{34005, 2}, Strip{34104, 2}, Strip{34204, 2}, Strip{35003, 3},
    Strip{35004, 2}, Strip{35102, 2}, Strip{35104, 2}, Strip{35106, 3}, Strip{35204, 3}, Strip{35205, 2},
    Strip{35206, 2}, Strip{36103, 2}, Strip{37006, 2}, Strip{38001, 2}, Strip{38201, 3}, Strip{38203, 2},
};

/// Where the light or the thumb of a frame is: the mean row of what the frame alone has.
double meanRowOfBrightness(const PictureProbe& picture, int top, int rows)
{
    double sum = 0.0;
    double weight = 0.0;
    for (int y = 0; y < rows; ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const int brightness = picture.at(x, top + y).brightness();
            sum += static_cast<double>(y) * brightness;
            weight += brightness;
        }
    }
    return sum / weight;
}

TEST(SwitchPictures, StatesOfASwitchLookDifferent)
{
    for (const Strip& strip : kSwitchStrips) {
        const PictureProbe picture(strip.id);
        ASSERT_EQ(picture.height() % strip.frames, 0) << strip.id;
        const int rows = picture.height() / strip.frames;
        for (int frame = 1; frame < strip.frames; ++frame)
            EXPECT_GT(picture.difference(0, 0, 0, frame * rows, picture.width(), rows), 1.0)
                << strip.id << ", frame " << frame;
    }
}

TEST(SwitchPictures, LeversAndThumbsStandWhereTheStateSays)
{
    // Lower frame engaged: lever and thumb up. Positions count from the top.
    for (const std::uint32_t id : {31102u, 31303u, 34005u, 35205u}) {
        const PictureProbe picture(id);
        const int rows = picture.height() / 2;
        EXPECT_LT(meanRowOfBrightness(picture, rows, rows), meanRowOfBrightness(picture, 0, rows) - 2) << id;
    }
    for (const std::uint32_t id : {32003u, 35003u, 35106u, 35204u}) {
        const PictureProbe picture(id);
        const int rows = picture.height() / 3;
        for (int frame = 1; frame < 3; ++frame)
            EXPECT_GT(meanRowOfBrightness(picture, frame * rows, rows),
                      meanRowOfBrightness(picture, (frame - 1) * rows, rows) + 2)
                << id;
    }
}

TEST(SwitchPictures, ShadowsEndInsideTheFrame)
{
    constexpr int kFaint = 32;
    for (const std::uint32_t id :
         {31102u, 31303u, 32003u, 32004u, 34005u, 35003u, 35105u, 35106u, 35204u, 35205u, 37002u, 38201u}) {
        const PictureProbe picture(id);
        int strongest = 0;
        for (int y = 0; y < picture.height(); ++y)
            strongest =
                std::max({strongest, picture.at(0, y).alpha, picture.at(picture.width() - 1, y).alpha});
        for (int x = 0; x < picture.width(); ++x)
            strongest =
                std::max({strongest, picture.at(x, 0).alpha, picture.at(x, picture.height() - 1).alpha});
        EXPECT_LT(strongest, kFaint) << id;
    }
}

TEST(MeterPictures, GlassLeavesTheNeedleFreeAndTheLipHidesItsPivot)
{
    struct Dial {
        std::uint32_t id;
        int pivotY, length, firstAngle;
    };
    for (const Dial& dial : {Dial{34004, 91, 59, 45}, Dial{34103, 86, 61, 45}, Dial{34203, 98, 80, 57}}) {
        const PictureProbe picture(dial.id);
        const int front = picture.height() / 2;
        EXPECT_EQ(picture.at(68, front + dial.pivotY).alpha, 255) << dial.id;
        for (int angle = dial.firstAngle; angle <= 180 - dial.firstAngle; ++angle) {
            const double radians = angle * std::numbers::pi / 180;
            const int x = static_cast<int>(68.5 - dial.length * std::cos(radians));
            const int y = static_cast<int>(dial.pivotY - dial.length * std::sin(radians));
            EXPECT_LT(picture.at(x, front + y).alpha, 90) << dial.id << " at " << angle;
            EXPECT_EQ(picture.at(x, y).alpha, 255) << dial.id << " at " << angle;
        }
    }
}

TEST(MeterPictures, FramesCountUpFromRestInTheOrderOfTheFilm)
{
    // Thirteen lamps: each frame lights one more.
    const PictureProbe lamps(36104);
    for (int frame = 1; frame < 14; ++frame) {
        double lit = 0.0;
        for (int y = 18; y < 38; ++y)
            for (int x = 0; x < 133; ++x)
                lit +=
                    lamps.at(x, frame * 71 + y).brightness() - lamps.at(x, (frame - 1) * 71 + y).brightness();
        EXPECT_GT(lit / (20 * 6), 200) << frame;
    }
    // The eye closes frame by frame, down a column first.
    const PictureProbe eye(36302);
    double darkest = 1e9;
    for (int frame = 0; frame < 110; ++frame) {
        double dark = 0.0;
        for (int y = 34; y < 60; ++y)
            for (int x = 6; x < 60; ++x) dark += eye.at(frame / 11 * 66 + x, frame % 11 * 66 + y).green < 90;
        EXPECT_LE(dark, darkest + 1) << frame;
        darkest = dark;
    }
    EXPECT_GT(eye.difference(0, 0, 9 * 66, 10 * 66, 66, 66), 5.0);
}

TEST(MeterPictures, OutputBarsCarryTheColoursOfTheFadersLaw)
{
    const PictureProbe lit(37003);
    const PictureProbe dark(37004);
    const auto rowOf = [](double decibels) {
        return 3 * static_cast<int>(105 * (1 - art::positionOf(art::faderDb, decibels)));
    };
    const auto isRed = [](const Pixel& p) { return p.red > 2 * p.green; };
    const auto isGreen = [](const Pixel& p) { return p.green > p.red + 40; };
    EXPECT_TRUE(isRed(lit.at(4, rowOf(1))));
    EXPECT_FALSE(isRed(lit.at(4, rowOf(-1))));
    EXPECT_FALSE(isGreen(lit.at(4, rowOf(-8))));
    EXPECT_TRUE(isGreen(lit.at(4, rowOf(-10))));
    for (int y = 0; y < 315; ++y)
        EXPECT_EQ(lit.at(4, y).alpha > 200, dark.at(3, y).alpha > 200) << "row " << y;
}

TEST(MeterPictures, LampsBurnBrighterThanTheirDarkLenses)
{
    for (const std::uint32_t id : {31301u, 33101u}) {
        const PictureProbe picture(id);
        for (int state = 1; state < 4; ++state)
            EXPECT_GT(picture.at(6, 14 * state + 7).brightness(), picture.at(6, 7).brightness() + 300)
                << id << ", frame " << state;
    }
}

} // namespace
} // namespace velmora::art
