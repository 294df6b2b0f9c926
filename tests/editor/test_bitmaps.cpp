#include "editor/engine/toolkit/draw/bitmap.h"
#include "tests/editor/canvas.h"
#include "tests/editor/png_bytes.h"

#include <cmath>
#include <gtest/gtest.h>
#include <optional>
#include <thread>

namespace velmora::Qorvane {
namespace {

using namespace velmora::test;

constexpr Rgba kVeil{200, 100, 50, 128};

/// Every pixel another colour; the last column see-through.
Rgba gridColour(int x, int y)
{
    return {static_cast<std::uint8_t>(x * 10), static_cast<std::uint8_t>(y * 10), 77,
            static_cast<std::uint8_t>(x == 7 ? 0 : 255)};
}

std::uint32_t opaquePixel(Rgba colour)
{
    return 0xFF000000u | std::uint32_t{colour.red} << 16 | std::uint32_t{colour.green} << 8 | colour.blue;
}

/// Pictures: 1 a grid of 8 x 12, 2 one see-through colour, 3 broken in its middle, 4 no picture, 5 opaque.
class Bitmaps : public testing::Test {
protected:
    Bitmaps()
    {
        add(1, pngBytes(8, 12, gridColour));
        add(2, pngBytes(6, 6, [](int, int) { return kVeil; }));
        auto broken = pngBytes(6, 6, gridColour);
        broken[60] ^= 0xFF;
        add(3, broken);
        add(4, std::vector<std::uint8_t>(100, 7));
        add(5, pngBytes(16, 16, [](int x, int y) { return (x / 8 + y / 8) % 2 ? kRed : kBlue; }));
        table.emplace(rows, file.data());
    }

    void add(std::uint32_t id, const std::vector<std::uint8_t>& png)
    {
        rows.push_back({id, static_cast<std::uint32_t>(file.size()), static_cast<std::uint32_t>(png.size())});
        file.insert(file.end(), png.begin(), png.end());
    }

    ResourceRef<CQORBitmap> bitmap(std::uint32_t id)
    {
        return ResourceRef<CQORBitmap>::adopt(new CQORBitmap(id, *table));
    }

    std::vector<ResourceTable::Row> rows;
    std::vector<std::uint8_t> file;
    std::optional<ResourceTable> table;
};

TEST_F(Bitmaps, KnowTheirSizeAndAreNothingWithoutAnImage)
{
    EXPECT_EQ(bitmap(1)->getWidth(), 8);
    EXPECT_EQ(bitmap(1)->getHeight(), 12);
    EXPECT_FALSE(bitmap(1)->isOpaque());
    EXPECT_TRUE(bitmap(5)->isOpaque());
    Canvas canvas(10, 10);
    for (const std::uint32_t id : {3u, 4u, 99u}) {
        const auto none = bitmap(id);
        canvas.context.drawBitmap(none.get(), rectAt(0, 0, 10, 10), {0, 0}, 1.0);
        EXPECT_EQ(none->getWidth(), 0) << id;
        EXPECT_EQ(none->getHeight(), 0) << id;
        EXPECT_EQ(none->getPixelAccess(), nullptr) << id;
        EXPECT_FALSE(none->isOpaque()) << id;
    }
    EXPECT_EQ(canvas.inked(), Rect{});
}

TEST_F(Bitmaps, AreDrawnPixelByPixelFromAnOffset)
{
    Canvas canvas(20, 20);
    canvas.context.drawBitmap(bitmap(1).get(), rectAt(3, 4, 5, 6), {2, 3}, 1.0);
    for (int y = 0; y < 6; ++y)
        for (int x = 0; x < 5; ++x)
            EXPECT_EQ(canvas.at(3 + x, 4 + y), opaquePixel(gridColour(2 + x, 3 + y))) << x << ',' << y;
    EXPECT_EQ(canvas.inked(), rectAt(3, 4, 5, 6));

    // What the bitmap hasn't stays blank.
    Canvas edge(20, 20);
    edge.context.drawBitmap(bitmap(5).get(), rectAt(3, 4, 10, 10), {-4, 12}, 1.0);
    EXPECT_EQ(edge.inked(), rectAt(7, 4, 6, 4));
    edge.context.drawBitmap(bitmap(5).get(), rectAt(0, 0, 10, 10), {16, 0}, 1.0);
    edge.context.drawBitmap(bitmap(5).get(), rectAt(0, 0, 10, 10), {0, -10}, 1.0);
    EXPECT_EQ(edge.inked(), rectAt(7, 4, 6, 4));
}

TEST_F(Bitmaps, MixByTheirAlpha)
{
    Canvas canvas(10, 10);
    canvas.context.drawBitmap(bitmap(2).get(), rectAt(0, 0, 6, 6), {0, 0}, 1.0);
    EXPECT_EQ(canvas.at(2, 2), 0x80643219u); // premultiplied, rounded
    canvas.context.setFillColor(kBlue);
    canvas.context.drawRect(rectAt(0, 0, 10, 10), DrawStyle::Filled);
    canvas.context.drawBitmap(bitmap(5).get(), rectAt(0, 0, 10, 10), {8, 0}, 0.5);
    EXPECT_NEAR(canvas.at(2, 2) >> 16 & 0xFF, 128, 1);
    EXPECT_NEAR(canvas.at(2, 2) & 0xFF, 128, 1);
    canvas.context.drawBitmap(bitmap(1).get(), rectAt(0, 0, 10, 10), {0, 0}, 0.0);
    EXPECT_NEAR(canvas.at(2, 2) & 0xFF, 128, 1);
}

TEST_F(Bitmaps, KeepNeighbouringFramesOutWhenZoomed)
{
    for (const double zoom : {0.7, 1.25, 2.0, 4.0}) {
        const int side = static_cast<int>(40 * zoom);
        Canvas canvas(side, side, zoom);
        canvas.context.drawBitmap(bitmap(5).get(), rectAt(10, 10, 8, 8), {8, 0}, 1.0);
        const Rect bounds = canvas.inked();
        EXPECT_EQ(bounds, (Rect{std::round(10 * zoom), std::round(10 * zoom), std::round(18 * zoom),
                                std::round(18 * zoom)}));
        for (int y = static_cast<int>(bounds.top); y < bounds.bottom; ++y)
            for (int x = static_cast<int>(bounds.left); x < bounds.right; ++x)
                ASSERT_EQ(canvas.at(x, y), kRedPixel) << zoom << ": " << x << ',' << y;
    }
}

TEST_F(Bitmaps, AreReadAndWrittenPixelByPixel)
{
    const auto picture = bitmap(2);
    const auto twin = bitmap(2);
    const auto pixel = ResourceRef<QORBitmapPixelAcces>::adopt(picture->getPixelAccess());
    EXPECT_FALSE(pixel->retreat());
    int count = 1;
    while (pixel->advance()) ++count;
    EXPECT_EQ(count, 36);
    EXPECT_EQ(pixel->getX(), 5);
    EXPECT_EQ(pixel->getY(), 5);
    EXPECT_FALSE(pixel->setPosition(6, 0));
    EXPECT_FALSE(pixel->setPosition(0, -1));
    EXPECT_EQ(pixel->getX(), 5);

    Rgba colour;
    pixel->getColor(colour);
    EXPECT_NEAR(colour.red, kVeil.red, 1);
    EXPECT_EQ(colour.alpha, kVeil.alpha);
    pixel->setColor({250, 0, 100, 100});
    pixel->getColor(colour);
    EXPECT_NEAR(colour.red, 250, 2);
    EXPECT_NEAR(colour.blue, 100, 2);
    ASSERT_TRUE(pixel->retreat());
    EXPECT_EQ(pixel->getX(), 4);

    const auto other = ResourceRef<QORBitmapPixelAcces>::adopt(twin->getPixelAccess());
    other->setPosition(5, 5);
    other->getColor(colour);
    EXPECT_NEAR(colour.red, kVeil.red, 1); // the twin's pixels are what they were
}

TEST_F(Bitmaps, AreDecodedOnceForAllThreads)
{
    const auto shared = bitmap(5);
    std::vector<const void*> found(8);
    std::vector<std::thread> threads;
    for (auto& place : found) threads.emplace_back([&] { place = bitmap(5)->pixels(); });
    for (auto& thread : threads) thread.join();
    for (const void* const place : found) EXPECT_EQ(place, shared->pixels());
}

} // namespace
} // namespace velmora::Qorvane
