#include "dsp/flush_to_zero.h"
#include "tests/engine/recording_rack.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace velmora::test {
namespace {

#if defined(__x86_64__)

constexpr std::uint32_t kStandard = 0x1F80;
constexpr std::uint32_t kDenormalsOff = 0x8040;
constexpr std::uint32_t kTraps = 0x1F80; // a set bit masks one
constexpr std::uint32_t kRounding = 0x6000;

/// Sets the control register for a scope, as a host does for its thread.
class HostControlWord {
public:
    explicit HostControlWord(std::uint32_t word) { FlushToZero::setControlWord(word); }
    ~HostControlWord() { FlushToZero::setControlWord(before_); }

private:
    std::uint32_t before_ = FlushToZero::controlWord();
};

/// Tells what a module computes with.
class WatchingModule : public RecordingModule {
public:
    using RecordingModule::RecordingModule;

    void processMono(const AudioRecord&, const AudioRecord&, std::int32_t) override
    {
        control = FlushToZero::controlWord();
        const volatile double smallest = std::numeric_limits<double>::min();
        result = smallest * 0.5;
        const volatile double denormal = std::numeric_limits<double>::denorm_min();
        operand = denormal * 1e300;
    }

    std::uint32_t control = 0;
    double result = -1.0;  ///< of a computation that would end in a denormal number
    double operand = -1.0; ///< of one that starts from it
};

struct WatchingRack {
    Log log;
    WatchingModule* module = nullptr;
    VelmoraMonoEffect effect{{[this](Role role, const ModuleBases& bases) -> std::unique_ptr<StripEffect> {
                                  if (role != Role::Input) return nullptr;
                                  auto made = std::make_unique<WatchingModule>("watch", log, bases);
                                  module = made.get();
                                  return made;
                              },
                              [](std::int32_t, const ModuleBases&) { return nullptr; }}};

    /// Runs the four ways in, each while the strip works, fades out and passes through.
    /// @return calls that left another control word than they found.
    int callsThatLeaveTraces()
    {
        double sample[2] = {0.5, 0.5};
        float narrow[2] = {0.5F, 0.5F};
        double* wide[4] = {sample, sample, sample, sample};
        float* single[4] = {narrow, narrow, narrow, narrow};
        int traces = 0;
        const auto watched = [&](auto call) {
            const std::uint32_t before = FlushToZero::controlWord();
            call();
            traces += FlushToZero::controlWord() != before;
        };
        for (const double on : {1.0, 0.0})
            for (int round = 0; round < 300; ++round) {
                effect.setParameter(kProcessId, on);
                watched([&] { effect.processDouble(wide, wide, 2); });
                watched([&] { effect.processFloat(single, single, 2); });
                if (round < 150) continue;
                watched([&] { effect.processBypassedDouble(wide, wide, 2); });
                watched([&] { effect.processBypassedFloat(single, single, 2); });
            }
        return traces;
    }
};

TEST(Denormals, AreZeroWithinACallAndTheHostsControlWordStandsBehindIt)
{
    // Standard, denormals off already, other roundings, a flag raised, traps on.
    for (const std::uint32_t word : {kStandard, kStandard | kDenormalsOff, kStandard | 0x2000U,
                                     kStandard | kRounding, kStandard | 0x0001U, kStandard & ~0x0200U}) {
        WatchingRack rack;
        const HostControlWord host(word);
        EXPECT_EQ(rack.callsThatLeaveTraces(), 0) << std::hex << word;
        EXPECT_EQ(rack.module->control & kDenormalsOff, kDenormalsOff);
        EXPECT_EQ(rack.module->control & kTraps, kTraps);
        EXPECT_EQ(rack.module->control & kRounding, 0U);
        EXPECT_EQ(rack.module->result, 0.0);
        EXPECT_EQ(rack.module->operand, 0.0);
    }
}

#endif

// What passes through isn't computed with: the smallest numbers come out as they went in.
TEST(Denormals, PassAnIdleStripUntouched)
{
    RecordingRack rack;
    rack.effect.setParameter(kProcessId, 0.0);
    rack.run(500);
    for (const double x : {std::numeric_limits<double>::denorm_min(), -1e-310})
        EXPECT_EQ(rack.run(3, x).back(), x);
}

} // namespace
} // namespace velmora::test
