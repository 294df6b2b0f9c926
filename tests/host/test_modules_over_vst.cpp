// Every module in both inserts, reached as a host reaches it: a state loaded into two instances sounds alike
// in both precisions, whatever the lengths of the calls.

#include "host/vst24/vst24_effect_wrapper.h"
#include "modules/input/strip_effect_input.h"
#include "params/type_codes.h"
#include "tests/host/chunk_view.h"
#include "tests/host/recording_host.h"
#include "tests/support/measure.h"
#include "tests/support/signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace velmora::vst24::test {
namespace {

using velmora::test::allFinite;
using velmora::test::maxDifference;
using velmora::test::Signal;

constexpr std::size_t kFrames = 64 * 120;
constexpr float kRate = 48000.0f;

/// The next preamps to be built get the same component values again.
void restartUnits()
{
    while (StripEffectInput(16, 361, 438).instanceIndex() != 15) {
    }
}

class Instance {
public:
    Instance() { restartUnits(); }

    /// A rack with these modules in the inserts and all else set at random, noise too.
    void setUp(std::int32_t x, std::int32_t y)
    {
        std::mt19937 random(static_cast<unsigned>(x));
        std::uniform_real_distribution<float> value(0.0f, 1.0f);
        effect_.setParameter(256, static_cast<float>(x) / 255.0f);
        effect_.setParameter(304, static_cast<float>(y) / 255.0f);
        for (const RoleWindow& window : kRoleWindows) {
            if (!isInsert(window.role)) effect_.setParameter(window.windowBase, 1.0f / 15.0f);
            effect_.setParameter(window.windowBase + kPositionOffset, value(random));
            for (ParameterId id = window.windowBase + kOwnOffset; id < window.windowEnd; ++id)
                if (id < kHostParameterCount) effect_.setParameter(id, value(random));
        }
    }
    std::vector<std::uint8_t> state() { return chunkOf(effect_); }

    template <typename Sample>
    Signal run(std::vector<std::uint8_t> state, const Signal& input, int length)
    {
        AEffect* record = effect_.getAeffect();
        record->dispatcher(record, effSetSampleRate, 0, 0, nullptr, kRate);
        effect_.setChunk(state.data(), static_cast<std::int32_t>(state.size()), false);
        record->dispatcher(record, effMainsChanged, 0, 1, nullptr, 0.0f);
        std::vector<Sample> in(input.begin(), input.end()), left(input.size()), right(input.size());
        for (std::size_t at = 0; at < in.size(); at += static_cast<std::size_t>(length)) {
            const auto count = std::min(length, static_cast<int>(in.size() - at));
            Sample* ins[4] = {&in[at], &in[at], &in[at], &in[at]};
            Sample* outs[2] = {&left[at], &right[at]};
            if constexpr (sizeof(Sample) == sizeof(float))
                record->processReplacing(record, ins, outs, count);
            else
                record->processDoubleReplacing(record, ins, outs, count);
        }
        EXPECT_EQ(left, right);
        return Signal(left.begin(), left.end());
    }

private:
    QORVST24EffectWrapper effect_{&RecordingHost::callback};
};

TEST(ModulesOverVst, AStateSoundsAlikeInBothPrecisionsAndAnyCalls)
{
    const PrivateHome home;
    RecordingHost host;
    Signal input = velmora::test::noise(kFrames, 0.5);
    for (double& x : input) x = static_cast<float>(x);
    const auto types = moduleTypes();
    double quietest = HUGE_VAL;
    for (std::size_t i = 0; i < types.size(); ++i) {
        SCOPED_TRACE(types[i].listName);
        std::vector<std::uint8_t> state;
        {
            Instance composer;
            composer.setUp(types[i].code, types[types.size() - 1 - i].code);
            state = composer.state();
        }
        const Signal narrow = Instance().run<float>(state, input, 64);
        Signal wide = Instance().run<double>(state, input, 1920);
        ASSERT_TRUE(allFinite(wide));
        for (double& y : wide) y = static_cast<float>(y);
        EXPECT_EQ(maxDifference(narrow, wide), 0.0);
        quietest = std::min(quietest, velmora::test::peak(wide));
    }
    std::printf("peak of the quietest rack %.2g\n", quietest);
    EXPECT_GT(quietest, 0.0);
}

} // namespace
} // namespace velmora::vst24::test
