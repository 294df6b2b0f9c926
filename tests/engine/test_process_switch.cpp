#include "tests/engine/recording_rack.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iostream>

namespace velmora::test {
namespace {

/// The chain doubles, so the output reads 1 + the weight of the processed signal.
struct DoublingRack : RecordingRack {
    explicit DoublingRack(double rate = 48000.0)
    {
        effect.setSampleRate(rate);
        effect.reset();
        (*this)["Comp:"].gain = 2.0;
        take();
    }
    void process(bool on) { effect.setParameter(kProcessId, on ? 1.0 : 0.0); }
    void bypassed(std::int32_t frames)
    {
        std::vector<double> input(static_cast<std::size_t>(frames), 1.0);
        bypassOut.assign(input.size(), 0.0);
        double* inputs[4] = {input.data(), nullptr, nullptr, nullptr};
        double* outputs[2] = {bypassOut.data(), nullptr};
        effect.processBypassedDouble(inputs, outputs, frames);
    }
    std::vector<double> bypassOut;
};

TEST(ProcessSwitch, FadesOverOne240thSecondAtEveryRate)
{
    struct Row {
        double rate;
        std::ptrdiff_t samples;
    };
    for (const auto& [rate, samples] : {Row{44100.0, 184}, Row{48000.0, 200}, Row{192000.0, 800}}) {
        DoublingRack rack(rate);
        const double step = 240.0 / rate;
        rack.process(false);
        std::vector<double> output = rack.run(1000);
        const auto dry = std::find_if(output.begin(), output.end(), [](double y) { return y < 1.0 + 1e-9; });
        std::cout << rate << " Hz: dry after " << dry - output.begin() + 1 << " samples\n";
        EXPECT_EQ(dry - output.begin() + 1, samples);
        for (std::size_t i = 0; i + 1 < static_cast<std::size_t>(samples); ++i)
            ASSERT_NEAR(output[i], 2.0 - step * static_cast<double>(i + 1), 1e-11);
        EXPECT_EQ(output.back(), 1.0);

        rack.process(true);
        output = rack.run(1000);
        const auto wet = std::find_if(output.begin(), output.end(), [](double y) { return y > 2.0 - 1e-9; });
        EXPECT_EQ(wet - output.begin() + 1, samples);
        EXPECT_EQ(output.back(), 2.0);
    }
}

TEST(ProcessSwitch, PassesThroughWithMetersClearedOnceTheFadeHasEnded)
{
    DoublingRack rack;
    rack.process(false);
    rack.run(150);
    rack.run(0);
    rack.run(150);
    EXPECT_EQ(rack.take("resetMeters"), Log{}) << "the fade runs to the end of its last block";
    EXPECT_EQ(rack.run(100), std::vector<double>(100, 1.0));
    const Log resets{"Pre: resetMeters", "Flt: resetMeters", "Gate: resetMeters", "Comp: resetMeters",
                     "EQ: resetMeters",  "Lim: resetMeters", "Mstr: resetMeters"};
    EXPECT_EQ(rack.take(), resets);
    rack.run(0);
    rack.effect.processDouble(nullptr, nullptr, -5);
    EXPECT_EQ(rack.take().size(), 2 * resets.size());
}

TEST(ProcessSwitch, StartsAFadeFromItsEndValueAndNoneWithoutAChange)
{
    DoublingRack rack;
    rack.process(false);
    rack.process(true);
    EXPECT_EQ(rack.run(64), std::vector<double>(64, 2.0));
    rack.process(false);
    EXPECT_NEAR(rack.run(100).back(), 1.5, 1e-12);
    rack.process(true);
    EXPECT_NEAR(rack.run(50).front(), 1.005, 1e-12) << "turned round: from the dry end";
    rack.effect.reset();
    EXPECT_EQ(rack.run(1).front(), 2.0) << "reset ends a fade";
}

TEST(ProcessSwitch, FadeLeavesAnUnprocessedSignalAlone)
{
    VelmoraMonoEffect effect({[](Role, const ModuleBases&) { return nullptr; },
                              [](std::int32_t, const ModuleBases&) { return nullptr; }});
    std::vector<double> input(500);
    for (std::size_t i = 0; i < input.size(); ++i) input[i] = std::sin(0.1 * static_cast<double>(i));
    std::vector<double> output(input.size());
    double* inputs[4] = {input.data(), nullptr, nullptr, nullptr};
    double* outputs[2] = {output.data(), nullptr};
    effect.setParameter(kProcessId, 0.0);
    effect.processDouble(inputs, outputs, 500);
    for (std::size_t i = 0; i < input.size(); ++i) ASSERT_NEAR(output[i], input[i], 3e-16);
}

TEST(ProcessSwitch, TotalGainReductionReadsNothingDuringAFadeOut)
{
    DoublingRack rack;
    rack["Comp:"].meters[2] = 0.5;
    rack.run(64);
    EXPECT_DOUBLE_EQ(rack.meter(kTotalGainReductionId), 0.5);
    rack.process(false);
    for (int block = 0; block < 4; ++block) {
        rack.run(64);
        EXPECT_EQ(rack.meter(kTotalGainReductionId), 0.0);
    }
    rack.process(true);
    rack.run(64);
    EXPECT_DOUBLE_EQ(rack.meter(kTotalGainReductionId), 0.5) << "a fade in shows it";
}

TEST(ProcessSwitch, HostBypassFadesOutAndBackIn)
{
    DoublingRack rack;
    rack.bypassed(150);
    EXPECT_NEAR(rack.bypassOut.front(), 1.995, 1e-12);
    rack.bypassed(150);
    EXPECT_NEAR(rack.bypassOut.front(), 1.245, 1e-12) << "the fade goes on";
    rack.take();
    rack.bypassed(10);
    EXPECT_EQ(rack.take("process"), Log{});
    EXPECT_NEAR(rack.run(250).front(), 1.005, 1e-12);
    EXPECT_EQ(rack.run(10).front(), 2.0);

    rack.process(false);
    rack.run(300);
    rack.bypassed(10);
    EXPECT_EQ(rack.bypassOut.front(), 1.0);
    EXPECT_EQ(rack.run(10).front(), 1.0) << "switched off meanwhile: nothing fades in";
}

} // namespace
} // namespace velmora::test
