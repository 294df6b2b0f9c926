#include "art/pack/picture.h"
#include "art/resource_list.h"
#include "tests/art/embedded_pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

namespace velmora::art {
namespace {

bool isBackground(const PictureRow& row)
{
    const SurfacePtr picture = decode(row);
    return cairo_image_surface_get_width(picture.get()) == kPanelWidth &&
           cairo_image_surface_get_height(picture.get()) == kPanelHeight && row.id != 30050;
}

/// Knobs and sliders, whose frames follow a value.
bool isFilm(const PictureRow& row)
{
    return useOf(row.id).frames > 100;
}

TEST(Pictures, ShowSomething)
{
    for (const PictureRow& row : pictureRows()) {
        const SurfacePtr surface = decode(row);
        const PictureUse use = useOf(row.id);
        for (int frame = 0; frame < use.frames; ++frame) {
            const Raster pixels = frameOf(surface.get(), use, frame);
            std::set<std::uint32_t> colours;
            pixels.forEach([&](int x, int y) { colours.insert(pixels.at(x, y)); });
            ASSERT_GE(colours.size(), 4u) << row.id << " frame " << frame;
        }
    }
}

TEST(Pictures, BackgroundsCoverTheirPanel)
{
    for (const PictureRow& row : pictureRows()) {
        if (!isBackground(row) && row.id != 30000 && row.id != 30001 && row.id != 30120) continue;
        EXPECT_EQ(Raster(decode(row).get()).leastAlpha(), 255) << row.id;
    }
}

TEST(Pictures, FilmsAreClearAtTheEdgesOfTheirFrames)
{
    for (const PictureRow& row : pictureRows()) {
        if (!isFilm(row) || row.id == 36302) continue;
        const SurfacePtr surface = decode(row);
        const PictureUse use = useOf(row.id);
        int greatest = 0;
        for (int frame = 0; frame < use.frames; ++frame)
            greatest = std::max(greatest, frameOf(surface.get(), use, frame).greatestAlphaOnBorder());
        // The outline of the slider's cap touches the edge; shadows that are cut show more.
        EXPECT_LE(greatest, row.id == 35203 ? 64 : 20) << row.id;
        for (int cell = use.frames; cell < use.rows() * use.columns; ++cell)
            EXPECT_EQ(frameOf(surface.get(), use, cell).greatestAlpha(), 0) << row.id << " cell " << cell;
    }
}

TEST(Pictures, FilmsMoveAtEveryStep)
{
    constexpr int kStep = 5;
    for (const PictureRow& row : pictureRows()) {
        if (!isFilm(row)) continue;
        const SurfacePtr surface = decode(row);
        const PictureUse use = useOf(row.id);
        for (int frame = kStep; frame < use.frames; frame += kStep)
            EXPECT_FALSE(
                frameOf(surface.get(), use, frame).sameAs(frameOf(surface.get(), use, frame - kStep)))
                << row.id << " frame " << frame;
    }
}

TEST(Pictures, StatesOfSwitchesDiffer)
{
    for (const PictureRow& row : pictureRows()) {
        const PictureUse use = useOf(row.id);
        if (use.frames < 2 || isFilm(row)) continue;
        const SurfacePtr surface = decode(row);
        for (int frame = 1; frame < use.frames; ++frame)
            EXPECT_FALSE(frameOf(surface.get(), use, frame).sameAs(frameOf(surface.get(), use, frame - 1)))
                << row.id << " frame " << frame;
    }
}

/// Brightness of the ring between two radii, above left less below right of the frame's middle.
double slopeOfLight(const Raster& pixels)
{
    double sum = 0.0;
    int count = 0;
    const double radius = std::min(pixels.width, pixels.height) * 0.34;
    pixels.forEach([&](int x, int y) {
        const double across = x + 0.5 - pixels.width / 2.0;
        const double down = y + 0.5 - pixels.height / 2.0;
        if (std::hypot(across, down) > radius || pixels.alpha(x, y) < 255) return;
        if (across < 0 && down < 0) sum += pixels.brightness(x, y), ++count;
        if (across > 0 && down > 0) sum -= pixels.brightness(x, y), ++count;
    });
    return sum / std::max(1, count);
}

TEST(Pictures, LightStaysWhileKnobsTurn)
{
    for (const PictureRow& row : pictureRows()) {
        // The trim is too small to measure, the dish of the brown cap faces away.
        const PictureUse use = useOf(row.id);
        if (use.frames != 301 || row.id == 35201) continue;
        const SurfacePtr surface = decode(row);
        double sum = 0.0;
        for (int frame = 0; frame < use.frames; frame += 10)
            sum += slopeOfLight(frameOf(surface.get(), use, frame));
        std::printf("%u %.2f\n", row.id, sum / 31);
        EXPECT_GT(sum, 0.0) << row.id;
    }
}

TEST(Pictures, ComeOutAlikeEveryTime)
{
    // Of every family those that are quickly drawn, in another order and on another number of threads.
    std::vector<Resource> some;
    for (const Family& family : families())
        for (const Resource& resource : family.list())
            if (resource.width * resource.height < 152 * 600) some.push_back(resource);
    std::ranges::reverse(some);
    const std::vector<Picture> again = drawPictures(some, 3);
    for (const Picture& picture : again) {
        const auto row = std::ranges::find(pictureRows(), picture.id, &PictureRow::id);
        ASSERT_NE(row, pictureRows().end()) << picture.id;
        EXPECT_TRUE(std::ranges::equal(picture.png, row->png())) << picture.id;
    }
}

} // namespace
} // namespace velmora::art
