// Merging of dirty rectangles: nothing is lost, few are handed out, little is drawn without need.

#include "editor/engine/toolkit/view/damage.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <limits>
#include <random>

namespace velmora::test {
namespace {

constexpr int kSide = 160;
constexpr std::size_t kFew = 64;

using Grid = std::array<std::array<bool, kSide>, kSide>;

void mark(Grid& grid, const Rect& rect)
{
    for (int y = static_cast<int>(rect.top); y < static_cast<int>(rect.bottom); ++y)
        for (int x = static_cast<int>(rect.left); x < static_cast<int>(rect.right); ++x)
            grid[static_cast<unsigned>(y)][static_cast<unsigned>(x)] = true;
}

int count(const Grid& grid)
{
    int n = 0;
    for (const auto& row : grid) n += static_cast<int>(std::count(row.begin(), row.end(), true));
    return n;
}

TEST(Damage, NeverLosesAPixelAndStaysFew)
{
    std::mt19937 random(11);
    const auto below = [&random](unsigned n) { return static_cast<int>(random() % n); };
    double worst = 0.0;
    for (int round = 0; round < 300; ++round) {
        Qorvane::Damage damage;
        Grid wanted{};
        const int rects = 1 + static_cast<int>(random() % 200);
        for (int i = 0; i < rects; ++i) {
            const Rect rect = rectAt(below(140), below(140), 1 + below(20), 1 + below(20));
            mark(wanted, rect);
            damage.add(rect);
        }
        Grid drawn{};
        const std::vector<Rect> parts = damage.take();
        ASSERT_LE(parts.size(), kFew);
        for (const Rect& part : parts) mark(drawn, part);
        for (int y = 0; y < kSide; ++y)
            for (int x = 0; x < kSide; ++x)
                ASSERT_LE(wanted[static_cast<unsigned>(y)][static_cast<unsigned>(x)],
                          drawn[static_cast<unsigned>(y)][static_cast<unsigned>(x)]);
        worst = std::max(worst, static_cast<double>(count(drawn)) / count(wanted));
        ASSERT_TRUE(damage.empty());
    }
    std::cout << "drawn at most " << worst << " times what was dirty\n";
    EXPECT_LT(worst, 3.0);
}

TEST(Damage, DistantPartsStayApartAndNeighboursBecomeOne)
{
    Qorvane::Damage damage;
    for (int i = 0; i < 10; ++i) damage.add(rectAt(i * 100.0, i * 100.0, 40.0, 40.0));
    EXPECT_EQ(damage.take().size(), 10u);

    for (int i = 0; i < 100; ++i) damage.add(rectAt(i * 10.0, 5.0, 10.0, 30.0));
    EXPECT_EQ(damage.take(), std::vector{rectAt(0.0, 5.0, 1000.0, 30.0)});
}

TEST(Damage, WhatIsNoAreaIsNone)
{
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    Qorvane::Damage damage;
    damage.add({});
    damage.add({5.0, 5.0, 4.0, 9.0});
    damage.add({kNaN, 0.0, 10.0, 10.0});
    EXPECT_TRUE(damage.empty());
}

} // namespace
} // namespace velmora::test
