// Many instances in one process, as in a large session.

#include "host/vst24/vst24_effect_wrapper.h"
#include "params/catalogue.h"
#include "presets/preset_library.h"
#include "tests/host/recording_host.h"
#include "tests/support/signals.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <iostream>
#include <memory>
#include <thread>
#include <vector>

namespace velmora::vst24::test {
namespace {

using velmora::test::Signal;

constexpr int kInstances = 64;
constexpr int kThreads = 8;
constexpr std::int32_t kBlock = 96;
constexpr int kBlocks = 24;

/// One of the session's strips: each plays its own factory preset, with its preamp's noise on and its fader
/// moving.
class Strip {
public:
    explicit Strip(int number) : preset_(makeFactoryPreset(static_cast<std::uint32_t>(3 * number)))
    {
        constexpr ParameterId kNoise = 41;
        preset_.values[kNoise] = number % 2 == 0 ? 1.0f : 0.5f;
        effect_.setSampleRate(48000.0f);
        effect_.resume();
    }

    void play(const Signal& input)
    {
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            if (isStored(id)) effect_.setParameter(id, preset_.values[static_cast<unsigned>(id)]);
        std::array<double, kBlock> in{}, left{}, right{};
        double* ins[4] = {in.data(), in.data(), in.data(), in.data()};
        double* outs[2] = {left.data(), right.data()};
        for (int block = 0; block < kBlocks; ++block) {
            constexpr ParameterId kFader = 242;
            effect_.setParameter(kFader, 0.5f + 0.01f * static_cast<float>(block));
            std::copy_n(input.begin() + block * kBlock, kBlock, in.begin());
            effect_.processDoubleReplacing(ins, outs, kBlock);
            output_.insert(output_.end(), left.begin(), left.end());
        }
    }
    const Signal& output() const { return output_; }

private:
    QORVST24EffectWrapper effect_{&RecordingHost::callback};
    Preset preset_;
    Signal output_;
};

/// The preamps number through 16 sets of component values: 64 instances leave the count where it was, so the
/// next session has the same preamps.
std::vector<std::unique_ptr<Strip>> makeSession()
{
    std::vector<std::unique_ptr<Strip>> strips;
    for (int i = 0; i < kInstances; ++i) strips.push_back(std::make_unique<Strip>(i));
    return strips;
}

void playEachEighth(std::vector<std::unique_ptr<Strip>>& strips, std::size_t first, const Signal& input)
{
    for (std::size_t i = first; i < strips.size(); i += kThreads) strips[i]->play(input);
}

TEST(Instances, SixtyFourOnEightThreadsSoundAsOneAfterTheOther)
{
    using Clock = std::chrono::steady_clock;
    PrivateHome home;
    RecordingHost host;
    RecordingHost::recording() = false;
    const Signal input = velmora::test::noise(kBlocks * kBlock, 0.3);

    auto alone = makeSession();
    for (auto& strip : alone) strip->play(input);

    auto together = makeSession();
    const auto start = Clock::now();
    std::vector<std::thread> threads;
    for (std::size_t first = 0; first < kThreads; ++first)
        threads.emplace_back([&, first] { playEachEighth(together, first, input); });
    for (std::thread& thread : threads) thread.join();
    const double milliseconds = std::chrono::duration<double, std::milli>(Clock::now() - start).count();
    RecordingHost::recording() = true;

    int sounding = 0;
    for (unsigned i = 0; i < kInstances; ++i) {
        EXPECT_EQ(together[i]->output(), alone[i]->output()) << "instance " << i;
        if (together[i]->output() != input) ++sounding;
    }
    EXPECT_EQ(sounding, kInstances);
    std::cout << kInstances << " instances on " << kThreads << " threads: " << kBlocks * kBlock
              << " samples each in " << milliseconds << " ms\n";
}

} // namespace
} // namespace velmora::vst24::test
