// Silence must not leave subnormal numbers behind, which some machines take a hundred times as long for. The
// processor itself tells whether any operation of a block met one: that is a look at every state in use.

#include "tests/engine/lone_module.h"

#include <gtest/gtest.h>

#include <xmmintrin.h>

#include <cstdio>
#include <limits>

namespace velmora::test {
namespace {

constexpr unsigned kDenormalOperand = 0x0002; // of the processor's status word
constexpr unsigned kAllFlags = 0x003F;
constexpr std::int32_t kPiece = LoneModule::kLongest;

/// @return whether any operation of `work` had a subnormal operand.
template <typename Work>
bool meetsSubnormals(Work work)
{
    _mm_setcsr(_mm_getcsr() & ~kAllFlags);
    work();
    return (_mm_getcsr() & kDenormalOperand) != 0;
}

TEST(Subnormals, TheProcessorTellsOfOne)
{
    volatile double tiny = std::numeric_limits<double>::denorm_min();
    volatile double result = 0.0;
    EXPECT_TRUE(meetsSubnormals([&] { result = tiny * 0.5; }));
    EXPECT_FALSE(meetsSubnormals([&] { result = 1.0 * 0.5; }));
}

/// Plays pieces of noise, the same on all channels, and of silence.
class SilencedModule : public LoneModule {
public:
    using LoneModule::LoneModule;

    void run(double level)
    {
        for (std::size_t i = 0; i < kPiece; ++i) {
            const double x = level * distribution_(random_);
            for (unsigned c = 0; c < kChannels; ++c) channel(c)[i] = x;
        }
        process(kPiece);
    }
    void runSilence()
    {
        for (unsigned c = 0; c < kChannels; ++c) std::fill_n(channel(c), kPiece, 0.0);
        process(kPiece);
    }

private:
    std::mt19937 random_{1};
    std::uniform_real_distribution<double> distribution_{-1.0, 1.0};
};

class SilentModules : public testing::TestWithParam<ModuleType> {};

INSTANTIATE_TEST_SUITE_P(Rack, SilentModules, testing::ValuesIn(moduleTypes().begin(), moduleTypes().end()),
                         testName);

TEST_P(SilentModules, KeepNoSubnormalTenSecondsAfterALoudPassage)
{
    constexpr double kLoudSeconds = 0.5;
    constexpr double kSilentSeconds = 10.0;
    int pieces = 0, met = 0;
    std::vector<Values> settings{defaultsOf(GetParam()), randomValues(GetParam(), 5)};
    if (GetParam().kind == ModuleKind::Preamp)
        for (const double noise : {0.5, 1.0}) { // muted where nothing plays, and on
            settings.push_back(defaultsOf(GetParam()));
            settings.back()[kPreampNoiseIn] = noise;
        }
    for (const double rate : kRates)
        for (const Values& values : settings) {
            SCOPED_TRACE(rate);
            SCOPED_TRACE(values[kPreampNoiseIn]);
            SilencedModule module(GetParam(), values, rate);
            for (int left = static_cast<int>(rate * kLoudSeconds) / kPiece; left > 0; --left) module.run(1.0);
            for (int left = static_cast<int>(rate * kSilentSeconds) / kPiece; left > 0; --left, ++pieces)
                met += meetsSubnormals([&] { module.runSilence(); });
            EXPECT_FALSE(meetsSubnormals([&] { module.runSilence(); }));
        }
    std::printf("%d silent pieces, %d met subnormals on the way\n", pieces, met);
}

} // namespace
} // namespace velmora::test
