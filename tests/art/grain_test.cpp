#include "art/paint/grain_field.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace velmora::art {
namespace {

constexpr Grain kGrains[] = {Grain::BrushedAcross, Grain::BrushedDown, Grain::Fine,
                             Grain::Hammer,        Grain::Crinkle,     Grain::Leather};

/// Mean difference between two columns, and of two rows.
double columnStep(const GrainField& field, int left, int right)
{
    double sum = 0.0;
    for (int y = 0; y < field.height; ++y) sum += std::abs(field.at(left, y) - field.at(right, y));
    return sum / field.height;
}
double rowStep(const GrainField& field, int upper, int lower)
{
    double sum = 0.0;
    for (int x = 0; x < field.width; ++x) sum += std::abs(field.at(x, upper) - field.at(x, lower));
    return sum / field.width;
}

TEST(Grain, RepeatsWithoutSeam)
{
    for (const Grain grain : kGrains) {
        const GrainField field = makeGrainField(grain, 153, 200, 3);
        double widest = 0.0;
        for (int x = 1; x < field.width; ++x) widest = std::max(widest, columnStep(field, x - 1, x));
        EXPECT_LT(columnStep(field, field.width - 1, 0), widest * 1.1) << static_cast<int>(grain);
        widest = 0.0;
        for (int y = 1; y < field.height; ++y) widest = std::max(widest, rowStep(field, y - 1, y));
        EXPECT_LT(rowStep(field, field.height - 1, 0), widest * 1.1) << static_cast<int>(grain);
    }
}

TEST(Grain, RunsTheWayItIsBrushed)
{
    const GrainField across = makeGrainField(Grain::BrushedAcross, 200, 200, 3);
    EXPECT_LT(columnStep(across, 50, 51) * 4, rowStep(across, 50, 51));
    const GrainField down = makeGrainField(Grain::BrushedDown, 200, 200, 3);
    EXPECT_LT(rowStep(down, 50, 51) * 4, columnStep(down, 50, 51));
}

TEST(Grain, HangsOnItsSeedAlone)
{
    for (const Grain grain : kGrains) {
        const GrainField field = makeGrainField(grain, 60, 40, 7);
        EXPECT_EQ(field.heights, makeGrainField(grain, 60, 40, 7).heights);
        EXPECT_NE(field.heights, makeGrainField(grain, 60, 40, 8).heights);
        double squares = 0.0;
        for (const float height : field.heights) squares += height * height;
        EXPECT_NEAR(squares / 2400, 1.0, 0.1);
    }
    // Too small to blur, but no reason to fail.
    EXPECT_EQ(makeGrainField(Grain::Leather, 1, 1, 7).heights.size(), 1u);
}

} // namespace
} // namespace velmora::art
