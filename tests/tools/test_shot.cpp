#include "tests/support/picture_gap.h"
#include "tools/host/private_home.h"
#include "tools/shot/png_file.h"
#include "tools/shot/shot.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <string>

namespace velmora::test {
namespace {

// Another version of a library may move the edge of a letter; a part that is missing or has moved shows more.
constexpr double kMeanGap = 0.25;
constexpr double kWorstGap = 6.0;

const std::string kKept = VELMORA_KEPT_PICTURES "/full.png";

Pixels pixelsOf(shot::Picture picture)
{
    return {picture.width, picture.height, std::move(picture.pixels)};
}

class Shot : public ::testing::Test {
protected:
    void expectAlike(const Pixels& shown, const Pixels& kept, double mean, double worst)
    {
        ASSERT_EQ(shown.width, kept.width);
        ASSERT_EQ(shown.height, kept.height);
        const PictureGap gap = pictureGap(shown, kept);
        RecordProperty("mean_gap", std::to_string(gap.mean));
        std::printf("difference: mean %.4f, one pixel in 20,000 beyond %.3f\n", gap.mean, gap.worst);
        EXPECT_LE(gap.mean, mean);
        EXPECT_LE(gap.worst, worst);
    }

    host::PrivateHome home;
};

TEST_F(Shot, FullViewLooksAsKept)
{
    const shot::Picture picture = shot::takeShot({});
    const auto fresh = std::filesystem::temp_directory_path() / "velmora-full.png";
    const Pixels kept = pixelsOf(shot::readPng(kKept));
    expectAlike(pixelsOf(picture), kept, kMeanGap, kWorstGap);
    if (!HasFailure()) return;
    shot::writePng(picture, fresh.string());
    std::printf("%s is what it looks like now; if that is right, keep it as %s\n", fresh.c_str(),
                kKept.c_str());
}

// Enlarged, the same things stand at the same places, only sharper.
TEST_F(Shot, DoubleScaleIsTheSamePicture)
{
    const Pixels plain = pixelsOf(shot::takeShot({}));
    const Pixels large = pixelsOf(shot::takeShot({.preset = "HiFi Vocal", .scale = 2.0}));
    EXPECT_EQ(large.width, 2 * plain.width);
    expectAlike(shrunk(large, 2), plain, 1.0, 12.0);
}

TEST_F(Shot, MovedPartsShow)
{
    const Pixels plain = pixelsOf(shot::takeShot({}));
    Pixels moved = plain;
    for (int y = 685; y < 705; ++y) // the name plate's lettering, two pixels to the right
        for (int x = 830; x > 690; --x)
            moved.words[static_cast<std::size_t>(y * moved.width + x)] =
                plain.words[static_cast<std::size_t>(y * plain.width + x - 2)];
    EXPECT_GT(pictureGap(plain, moved).worst, kWorstGap);
}

TEST_F(Shot, RefusesWhatIsNoPreset)
{
    EXPECT_ANY_THROW(shot::takeShot({.preset = "no such preset"}));
    EXPECT_ANY_THROW(shot::takeShot({.preset = "/dev/null/x.qor"}));
}

} // namespace
} // namespace velmora::test
