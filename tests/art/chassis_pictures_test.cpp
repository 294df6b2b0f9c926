#include "tests/art/picture_probe.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace velmora::art {
namespace {

/// Mean brightness of one row between two columns, 0..765.
double rowBrightness(const PictureProbe& picture, int y, int left, int right)
{
    double sum = 0.0;
    for (int x = left; x < right; ++x) sum += picture.at(x, y).brightness();
    return sum / (right - left);
}

TEST(ChassisPictures, LevelLampGoesFromDarkOverGreenAndAmberToRed)
{
    const PictureProbe lamp(30124);
    std::array<Pixel, 4> lens{};
    for (int state = 0; state < 4; ++state)
        lens[static_cast<std::size_t>(state)] = lamp.at(12, 20 * state + 12);
    for (int state = 1; state < 4; ++state)
        EXPECT_GT(lens[static_cast<std::size_t>(state)].brightness(), 2 * lens[0].brightness());
    EXPECT_GT(lens[1].green, lens[1].red);
    EXPECT_GT(lens[2].red, lens[2].green);
    EXPECT_GT(lens[2].green, 2 * lens[2].blue);
    EXPECT_GT(lens[3].red, 2 * lens[3].green);
}

TEST(ChassisPictures, StripsLetNothingThrough)
{
    std::vector<std::uint32_t> grounds{30200, 30201, 90000};
    for (std::uint32_t strip = 30060; strip <= 30068; ++strip) grounds.push_back(strip);
    for (const std::uint32_t id : grounds) {
        const PictureProbe picture(id);
        int holes = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x) holes += picture.at(x, y).alpha != 255;
        EXPECT_EQ(holes, 0) << id;
    }
}

// The window may end at any module.
TEST(ChassisPictures, BackgroundIsTheSameAtEveryModule)
{
    const PictureProbe picture(30000);
    double worst = 0.0;
    for (int seat = 1; seat < 9; ++seat) {
        const int left = 44 + 153 * seat;
        for (int y = 0; y < picture.height(); ++y) {
            const double first = rowBrightness(picture, y, 197, 349); // the leftmost has the rail's beginning
            const double here = rowBrightness(picture, y, left, left + 152);
            worst = std::max(worst, std::abs(here - first));
        }
    }
    RecordProperty("worst row of 0..765", std::to_string(worst));
    EXPECT_LT(worst, 24.0); // grain; a cut that ends makes twice as much
}

// It is shown above the panel it belongs to, 27 to the left and 47 higher.
TEST(ChassisPictures, DragShadowSparesThePanelAndFadesBeforeItsEdges)
{
    const PictureProbe shadow(30051);
    int veiled = 0;
    for (int y = 48; y < 584; ++y)
        for (int x = 28; x < 178; ++x) veiled += shadow.at(x, y).alpha != 0;
    EXPECT_EQ(veiled, 0);
    for (int x = 0; x < shadow.width(); ++x) {
        EXPECT_LT(shadow.at(x, 0).alpha, 3) << x;
        EXPECT_LT(shadow.at(x, shadow.height() - 1).alpha, 3) << x;
    }
    for (int y = 0; y < shadow.height(); ++y) {
        EXPECT_LT(shadow.at(0, y).alpha, 3) << y;
        EXPECT_LT(shadow.at(shadow.width() - 1, y).alpha, 3) << y;
    }
    EXPECT_GT(shadow.at(184, 300).alpha, 2 * shadow.at(21, 300).alpha);
    EXPECT_GT(shadow.at(100, 591).alpha, 60);
    EXPECT_LT(shadow.at(100, 40).alpha, 6);
}

TEST(ChassisPictures, WarningsRepeatWithoutASeam)
{
    const PictureProbe foot(30200);
    EXPECT_LT(foot.difference(151, 0, 0, 0, 1, 68), 1.5 * foot.difference(70, 0, 71, 0, 1, 68) + 1.0);
    const PictureProbe mini(30201);
    EXPECT_LT(mini.difference(0, 66, 0, 0, 152, 1), 1.5 * mini.difference(0, 30, 0, 31, 152, 1) + 1.0);
}

TEST(ChassisPictures, InsertsShareOneStripAndOthersHaveTheirOwn)
{
    std::vector<PictureProbe> strips;
    for (std::uint32_t id = 30060; id <= 30068; ++id) strips.emplace_back(id);
    const auto differs = [&](std::size_t a, std::size_t b) {
        for (int x = 0; x < 152; ++x) {
            const Pixel one = strips[a].at(x, 4); // above the name's well
            const Pixel other = strips[b].at(x, 4);
            if (std::abs(one.red - other.red) + std::abs(one.blue - other.blue) > 24) return true;
        }
        return false;
    };
    for (std::size_t a = 0; a < strips.size(); ++a)
        for (std::size_t b = 0; b < a; ++b) EXPECT_EQ(differs(a, b), !(a == 8 && b == 7)) << a << ", " << b;
}

TEST(Portraits, EveryStudioHasAnEmblemThatEndsInsideItsFrame)
{
    std::vector<PictureProbe> emblems;
    for (std::uint32_t id = 90001; id <= 90023; ++id) emblems.emplace_back(id);
    for (std::size_t a = 0; a < emblems.size(); ++a) {
        EXPECT_LT(emblems[a].at(0, 0).alpha, 128) << "corners are round, " << a;
        EXPECT_EQ(emblems[a].at(60, 60).alpha, 255) << a;
        // Nothing of the drawing or of the name touches the sides: neighbours there are all but alike.
        for (const int x : {3, 115}) {
            for (int y = 6; y < 114; ++y)
                EXPECT_LT(std::abs(emblems[a].at(x, y).brightness() - emblems[a].at(x + 1, y).brightness()),
                          40)
                    << a << ": " << x << ", " << y;
        }
        for (std::size_t b = 0; b < a; ++b) {
            int other = 0;
            for (int y = 0; y < 90; ++y)
                for (int x = 0; x < 120; ++x)
                    other +=
                        std::abs(emblems[a].at(x, y).brightness() - emblems[b].at(x, y).brightness()) > 90;
            EXPECT_GT(other, 600) << a << ", " << b;
        }
    }
}

} // namespace
} // namespace velmora::art
