#include "dsp/coefficient_glide.h"
#include "tests/dsp/biquad_response.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

namespace velmora::test {
namespace {

constexpr std::uint32_t kLength = 2646;

bool equal(const BiquadCoefficients& a, const BiquadCoefficients& b)
{
    return a.b0 == b.b0 && a.b1 == b.b1 && a.b2 == b.b2 && a.a1 == b.a1 && a.a2 == b.a2;
}

double distance(const BiquadCoefficients& a, const BiquadCoefficients& b)
{
    return std::max({std::fabs(a.b0 - b.b0), std::fabs(a.b1 - b.b1), std::fabs(a.b2 - b.b2),
                     std::fabs(a.a1 - b.a1), std::fabs(a.a2 - b.a2)});
}

BiquadCoefficients randomDesign(std::mt19937& random)
{
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    const auto kind = static_cast<StripBiquadKind>(1 + static_cast<int>(unit(random) * 9.999));
    const double frequency = 10.0 * std::pow(2000.0, unit(random));
    return designBiquad(
        {kind, frequency, 0.1 * std::pow(200.0, unit(random)), 36.0 * unit(random) - 18.0, 44100.0});
}

// The roots rebuild the design that they came from: the last step of a glide lands on it but for rounding,
// and the sample behind it is the design itself.
TEST(CoefficientGlide, EndsOnTheDesign)
{
    std::mt19937 random(1);
    CoefficientGlide glide;
    glide.init(kLength);
    double worst = 0.0;
    for (int round = 0; round < 50; ++round) {
        const BiquadCoefficients target = randomDesign(random);
        glide.aim(target);
        for (std::uint32_t i = 0; i < kLength; ++i) {
            ASSERT_EQ(glide.samplesLeft(), kLength - i);
            glide.advance();
        }
        worst = std::max(worst, distance(glide.advance(), target));
        EXPECT_FALSE(glide.gliding());
        EXPECT_TRUE(equal(glide.advance(), target));
    }
    EXPECT_EQ(worst, 0.0);

    glide.init(kLength);
    double lastStep = 0.0;
    for (int round = 0; round < 50; ++round) {
        const BiquadCoefficients target = randomDesign(random);
        glide.aim(target);
        BiquadCoefficients last;
        for (std::uint32_t i = 0; i < kLength; ++i) last = glide.advance();
        lastStep = std::max(lastStep, distance(last, target));
    }
    std::printf("last step of a glide misses the design by at most %.2e\n", lastStep);
    EXPECT_LT(lastStep, 1e-10);
}

TEST(CoefficientGlide, RootsTravelInAStraightLine)
{
    // A one-pole has one pole and no zeros: its coefficients must move linearly, the first from neutral.
    CoefficientGlide glide;
    glide.init(100);
    BiquadCoefficients from;
    from.a1 = -0.2;
    glide.aim(from);
    glide.snap();
    BiquadCoefficients to = from;
    to.a1 = -0.7;
    to.b0 = 0.5;
    glide.aim(to);
    for (int i = 1; i <= 100; ++i) {
        const BiquadCoefficients& c = glide.advance();
        EXPECT_NEAR(c.a1, -0.2 - 0.5 * i / 100.0, 1e-12);
        EXPECT_NEAR(c.b0, 1.0 - 0.5 * i / 100.0, 1e-12);
    }
}

TEST(CoefficientGlide, StaysStableBetweenAnyTwoDesigns)
{
    std::mt19937 random(2);
    CoefficientGlide glide;
    glide.init(kLength);
    double worstProduct = 0.0;
    double worstEdge = -2.0;
    for (int round = 0; round < 400; ++round) {
        glide.aim(randomDesign(random));
        const std::uint32_t steps =
            round % 3 == 0 ? kLength / 3 : kLength; // some are redirected on their way
        for (std::uint32_t i = 0; i < steps; ++i) {
            const BiquadCoefficients& c = glide.advance();
            worstProduct = std::max(worstProduct, std::fabs(c.a2));
            worstEdge = std::max(worstEdge, std::fabs(c.a1) - 1.0 - c.a2);
        }
    }
    std::printf("largest |a2| %.9f, largest |a1| - (1 + a2) %.3e\n", worstProduct, worstEdge);
    EXPECT_LT(worstProduct, 1.0);
    EXPECT_LT(worstEdge, 0.0);
}

TEST(CoefficientGlide, LandsEarlyOnRequest)
{
    const BiquadCoefficients low = designBiquad({StripBiquadKind::LowPass, 300.0, 0.7, 0.0, 44100.0});
    const BiquadCoefficients high = designBiquad({StripBiquadKind::LowPass, 9000.0, 0.7, 0.0, 44100.0});
    CoefficientGlide rootsToo;
    CoefficientGlide coefficientsOnly;
    for (CoefficientGlide* glide : {&rootsToo, &coefficientsOnly}) {
        glide->init(kLength);
        glide->aim(low);
    }
    rootsToo.snap();
    coefficientsOnly.snapCoefficients();
    EXPECT_TRUE(equal(rootsToo.advance(), low));
    EXPECT_TRUE(equal(coefficientsOnly.advance(), low));
    // The next glide shows where the roots were left: at the design, or at the neutral start.
    rootsToo.aim(high);
    coefficientsOnly.aim(high);
    EXPECT_LT(distance(rootsToo.advance(), low), 0.002);
    EXPECT_GT(distance(coefficientsOnly.advance(), low), 0.5);
}

// A pole on the unit circle's far end leaves a gain of 0 and no zeros; the roots must stay usable.
TEST(CoefficientGlide, SurvivesAZeroGain)
{
    CoefficientGlide glide;
    glide.init(kLength);
    const BiquadCoefficients closed =
        designBiquad({StripBiquadKind::OnePoleLowPass, 0.001, 1.0, 0.0, 384000.0});
    ASSERT_EQ(closed.b0, 0.0);
    glide.aim(closed);
    glide.snap();
    glide.aim(designBiquad({StripBiquadKind::Peaking, 100.0, 1.0, 6.0, 44100.0}));
    for (std::uint32_t i = 0; i < kLength; ++i) {
        const BiquadCoefficients& c = glide.advance();
        ASSERT_TRUE(std::isfinite(c.b0 + c.b1 + c.b2 + c.a1 + c.a2)) << i;
    }
}

} // namespace
} // namespace velmora::test
