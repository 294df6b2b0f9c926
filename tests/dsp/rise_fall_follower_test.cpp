#include "dsp/rise_fall_follower.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <vector>

namespace velmora::test {
namespace {

TEST(RiseFallFollower, FallsByTheSquareRootOfItsRise)
{
    const double c = 0.04;
    RiseFallFollower follower;
    follower.setRiseCoefficient(c);

    follower.reset(0.25);
    const std::array<double, 10> ones{1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    follower.process(ones.data(), 10);
    EXPECT_NEAR(follower.value(), 1.0 - 0.75 * std::pow(1.0 - c, 10), 1e-14);

    follower.reset(1.0);
    const std::array<double, 10> zeros{};
    follower.process(zeros.data(), 10);
    EXPECT_NEAR(follower.value(), std::pow(1.0 - 0.2, 10), 1e-14);
}

TEST(RiseFallFollower, IsTheSameInAnySplitAndLeavesTheBlockAlone)
{
    std::vector<double> block(257);
    for (std::size_t i = 0; i < block.size(); ++i)
        block[i] = std::fabs(std::sin(0.3 * static_cast<double>(i)));
    const std::vector<double> before = block;
    RiseFallFollower whole;
    RiseFallFollower split;
    whole.setRiseCoefficient(0.01);
    split.setRiseCoefficient(0.01);
    whole.process(block.data(), 257);
    split.process(block.data(), 0);
    split.process(block.data(), 100);
    split.process(block.data() + 100, 157);
    EXPECT_EQ(whole.value(), split.value());
    EXPECT_EQ(block, before);
    EXPECT_GT(whole.value(), 0.0);
}

} // namespace
} // namespace velmora::test
