// Silence must not leave subnormal numbers behind, which some machines take a hundred times as long for. The
// processor itself tells whether any operation of a block met one: that is a look at every state in use.

#include "engine/insert_bank.h"
#include "params/type_codes.h"
#include "tests/engine/placed_module.h"

#include <gtest/gtest.h>

#include <xmmintrin.h>

#include <array>
#include <cctype>
#include <cstdio>
#include <limits>

namespace velmora::test {
namespace {

constexpr unsigned kDenormalOperand = 0x0002; // of the processor's status word
constexpr unsigned kAllFlags = 0x003F;
constexpr std::int32_t kPiece = 64;

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

/// A module by itself, without the engine's own protection around it.
class LoneModule {
public:
    LoneModule(const ModuleType& type, const Values& values, double rate)
        : bank_(productModules(), basesOf(roleWindow(Role::InsertX))), module_(bank_[type.code])
    {
        for (unsigned c = 0; c < record_.channels.size(); ++c) record_.channels[c] = buffers_[c].data();
        module_->setSampleRate(rate);
        module_->loadDefaults();
        for (ParameterId offset = 0; offset < 48; ++offset)
            if (travels(offset)) set(offset, values[static_cast<unsigned>(offset)]);
        module_->reset();
    }

    void set(ParameterId offset, double value)
    {
        module_->setParameter(static_cast<std::uint32_t>(roleWindow(Role::InsertX).windowBase + offset),
                              value);
    }

    /// One piece of noise, the same on all channels.
    void run(double level)
    {
        for (std::size_t i = 0; i < kPiece; ++i) {
            const double x = level * distribution_(random_);
            for (auto& channel : buffers_) channel[i] = x;
        }
        process();
    }
    void runSilence()
    {
        for (auto& channel : buffers_) channel.fill(0.0);
        process();
    }

private:
    void process() { module_->processMono(record_, record_, kPiece); }

    InsertBank bank_;
    StripEffect* module_;
    std::array<std::array<double, kPiece>, 2 * AudioRecord::kPairs> buffers_{};
    AudioRecord record_;
    std::mt19937 random_{1};
    std::uniform_real_distribution<double> distribution_{-1.0, 1.0};
};

std::string testName(const testing::TestParamInfo<ModuleType>& info)
{
    std::string name;
    for (const char c : info.param.listName)
        if (std::isalnum(static_cast<unsigned char>(c))) name += c;
    return name;
}

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
            LoneModule module(GetParam(), values, rate);
            for (int left = static_cast<int>(rate * kLoudSeconds) / kPiece; left > 0; --left) module.run(1.0);
            for (int left = static_cast<int>(rate * kSilentSeconds) / kPiece; left > 0; --left, ++pieces)
                met += meetsSubnormals([&] { module.runSilence(); });
            EXPECT_FALSE(meetsSubnormals([&] { module.runSilence(); }));
        }
    std::printf("%d silent pieces, %d met subnormals on the way\n", pieces, met);
}

} // namespace
} // namespace velmora::test
