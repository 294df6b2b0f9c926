#include "engine/module_factory.h"
#include "tests/engine/recording_rack.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <random>
#include <thread>

namespace velmora::test {
namespace {

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinity = std::numeric_limits<double>::infinity();

std::vector<double> noise(std::size_t length, unsigned seed = 1)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<double> sample(-1.0, 1.0);
    std::vector<double> samples(length);
    for (double& x : samples) x = sample(random);
    return samples;
}

/// Runs a signal through in blocks of the given lengths, taken in turn. @return output 0.
std::vector<double> render(VelmoraMonoEffect& effect, std::vector<double> input, std::vector<int> lengths)
{
    std::vector<double> output(input.size());
    std::size_t turn = 0;
    for (std::size_t start = 0; start < input.size();) {
        const auto left = static_cast<int>(input.size() - start);
        const int frames = std::min(lengths[turn++ % lengths.size()], left);
        double* inputs[4] = {input.data() + start, nullptr, nullptr, nullptr};
        double* outputs[2] = {output.data() + start, nullptr};
        effect.processDouble(inputs, outputs, frames);
        start += static_cast<std::size_t>(frames);
    }
    return output;
}

TEST(Channels, FallBackWhereInputsAreMissing)
{
    RecordingRack rack;
    double samples[4] = {1.0, 2.0, 3.0, 4.0};
    struct Row {
        unsigned connected; // bit i: input i
        std::array<double, 4> channels;
    };
    for (const Row& row : {Row{0b1111, {1, 2, 3, 4}}, Row{0b0111, {1, 2, 3, 3}}, Row{0b0011, {1, 2, 1, 2}},
                           Row{0b0001, {1, 1, 1, 1}}, Row{0b1001, {1, 1, 1, 4}}, Row{0b0101, {1, 1, 3, 3}},
                           Row{0b1110, {0, 2, 3, 4}}, Row{0b0000, {0, 0, 0, 0}}}) {
        double* inputs[4];
        for (unsigned i = 0; i < 4; ++i) inputs[i] = (row.connected >> i & 1U) != 0 ? &samples[i] : nullptr;
        double left = -1.0;
        double right = -1.0;
        double* outputs[2] = {&left, &right};
        rack.effect.processDouble(inputs, outputs, 1);
        EXPECT_EQ(rack["Pre:"].seen, row.channels) << row.connected;
        EXPECT_EQ(left, row.channels[0]);
        EXPECT_EQ(right, row.channels[0]);
    }
}

TEST(Channels, SurviveMissingAndSharedBuffers)
{
    for (const bool processOn : {true, false}) {
        RecordingRack rack;
        rack.effect.setParameter(kProcessId, processOn ? 1.0 : 0.0);
        rack.run(500);
        std::vector<double> main = noise(200);
        std::vector<double> second = noise(200, 2);
        const std::vector<double> expected = main;
        double* inputs[4] = {main.data(), second.data(), nullptr, nullptr};
        double* none[2] = {nullptr, nullptr};
        rack.effect.processDouble(nullptr, none, 10);
        rack.effect.processDouble(inputs, nullptr, 10);
        rack.effect.processDouble(inputs, none, 10);
        rack.effect.processDouble(inputs, inputs, -1);
        rack.effect.processBypassedFloat(nullptr, nullptr, 10);
        rack.run(500);

        std::vector<double> only(200, -1.0);
        double* secondOnly[2] = {nullptr, only.data()};
        rack.effect.processDouble(inputs, secondOnly, 200);
        EXPECT_EQ(only, expected);
        double* crossed[2] = {second.data(), main.data()};
        rack.effect.processDouble(inputs, crossed, 200);
        EXPECT_EQ(main, expected);
        EXPECT_EQ(second, expected);
        double* silent[4] = {};
        rack.effect.processDouble(silent, crossed, 200);
        EXPECT_EQ(main, std::vector<double>(200, 0.0));
    }
}

TEST(Guard, HoldsEveryChannelWithinTheLimitOnlyWhileActive)
{
    RecordingRack rack;
    const std::array<double, 6> wild{kNan, kInfinity, -kInfinity, 1e9, -1e300, 999999.0};
    const std::array<double, 6> tame{0.0, 0.0, 0.0, 1e6, -1e6, 999999.0};
    for (std::size_t i = 0; i < wild.size(); ++i) {
        double sample = wild[i];
        float narrow = static_cast<float>(i == 4 ? -1e30 : wild[i]);
        double* inputs[4] = {&sample, &sample, &sample, &sample};
        float* narrowInputs[4] = {&narrow, &narrow, &narrow, &narrow};
        double left = -1.0;
        float narrowLeft = -1.0F;
        double* outputs[2] = {&left, nullptr};
        float* narrowOutputs[2] = {&narrowLeft, nullptr};
        rack.effect.processDouble(inputs, outputs, 1);
        EXPECT_EQ(rack["Mstr:"].seen, (std::array<double, 4>{tame[i], tame[i], tame[i], tame[i]}));
        EXPECT_EQ(left, tame[i]);
        rack.effect.processFloat(narrowInputs, narrowOutputs, 1);
        EXPECT_EQ(narrowLeft, static_cast<float>(tame[i]));
    }
    rack.effect.setParameter(kProcessId, 0.0);
    rack.run(300);
    for (const double x : wild) {
        const double y = rack.run(3, x).back();
        EXPECT_TRUE(y == x || (std::isnan(y) && std::isnan(x))) << x;
    }
}

TEST(Blocks, AnySplitAtMultiplesOfTheSubBlockGivesTheSameSamples)
{
    const std::vector<double> input = noise(64 * 60 + 17);
    const auto renderIn = [&input](std::vector<int> lengths) {
        RecordingRack rack;
        for (const char* name : {"Pre:", "Comp:", "EQ:", "X65"}) rack[name].memory = 0.4;
        rack["Flt:"].gain = 0.7;
        rack["Lim:"].offset = 0.01;
        rack.effect.setParameter(256, 65 / 255.0);
        rack.effect.setParameter(kProcessId, 0.0);
        std::vector<double> output = render(rack.effect, std::vector<double>(64, 0.5), {64});
        rack.effect.setParameter(kProcessId, 1.0);
        const std::vector<double> rest = render(rack.effect, input, lengths);
        output.insert(output.end(), rest.begin(), rest.end());
        return output;
    };
    const std::vector<double> whole = renderIn({1 << 20});
    EXPECT_EQ(renderIn({64}), whole);
    EXPECT_EQ(renderIn({192, 64, 1024, 128}), whole);
}

// Recording modules that move the signal, so that order, fades and swaps show in the sound.
void shapeModules(RecordingRack& rack)
{
    double amount = 0.0;
    for (auto& [name, module] : rack.modules) {
        amount = amount < 0.3 ? amount + 0.01 : 0.0;
        module->gain = 1.0 - amount;
        module->offset = 0.1 * amount;
        module->memory = amount;
        module->meters[2] = amount;
    }
}

TEST(Blocks, RandomAutomationStaysFiniteAndBothPrecisionsAgree)
{
    RecordingRack wide;
    RecordingRack narrow;
    shapeModules(wide);
    shapeModules(narrow);
    std::mt19937 random(7);
    std::uniform_real_distribution<double> value(-0.1, 1.2);
    std::uniform_int_distribution<int> anyId(-5, 830);
    std::uniform_int_distribution<int> length(0, 200);
    std::uniform_int_distribution<int> oneIn20(0, 19);
    for (int block = 0; block < 1500; ++block) {
        for (int change = 0; change < 6; ++change) {
            const int id = oneIn20(random) == 0 ? kProcessId : anyId(random);
            const double v = oneIn20(random) == 0 ? (value(random) - 0.5) * 1e308 : value(random);
            wide.effect.setParameter(id, v);
            narrow.effect.setParameter(id, v);
        }
        if (oneIn20(random) == 0) {
            const double rate = 40000.0 + 400000.0 * value(random);
            EXPECT_EQ(wide.effect.setSampleRate(rate), narrow.effect.setSampleRate(rate));
            wide.effect.reset();
            narrow.effect.reset();
        }
        const auto frames = static_cast<std::size_t>(length(random));
        std::vector<float> narrowIn(frames + 1);
        for (float& x : narrowIn) x = static_cast<float>(value(random));
        std::vector<double> wideIn(narrowIn.begin(), narrowIn.end());
        std::vector<float> narrowOut(frames + 1);
        std::vector<double> wideOut(frames + 1);
        double* wideInputs[4] = {wideIn.data(), nullptr, wideIn.data(), nullptr};
        double* wideOutputs[2] = {wideOut.data(), nullptr};
        float* narrowInputs[4] = {narrowIn.data(), nullptr, narrowIn.data(), nullptr};
        float* narrowOutputs[2] = {narrowOut.data(), nullptr};
        const bool bypassed = oneIn20(random) == 0;
        const auto count = static_cast<std::int32_t>(frames);
        if (bypassed) {
            wide.effect.processBypassedDouble(wideInputs, wideOutputs, count);
            narrow.effect.processBypassedFloat(narrowInputs, narrowOutputs, count);
        } else {
            wide.effect.processDouble(wideInputs, wideOutputs, count);
            narrow.effect.processFloat(narrowInputs, narrowOutputs, count);
        }
        for (std::size_t i = 0; i < frames; ++i) {
            ASSERT_TRUE(std::isfinite(wideOut[i]));
            ASSERT_EQ(narrowOut[i], static_cast<float>(wideOut[i])) << block;
        }
        for (ParameterId id = kFirstMeterId; id <= kTotalGainReductionId; ++id)
            ASSERT_EQ(wide.meter(id), narrow.meter(id)) << id;
        EXPECT_EQ(wide.take(), narrow.take());
    }
}

TEST(Factory, AnEngineWithoutModulesIsAWire)
{
    VelmoraMonoEffect effect({[](Role, const ModuleBases&) { return nullptr; },
                              [](std::int32_t, const ModuleBases&) { return nullptr; }});
    for (std::int32_t id = 0; id < kIdCount; ++id) {
        effect.setParameter(id, id == kProcessId ? 1.0 : 0.3);
        double reading = 0.5;
        const bool answered = effect.getParameter(id, &reading);
        EXPECT_EQ(reading, answered ? 0.0 : 0.5);
    }
    effect.setSampleRate(96000.0);
    effect.reset();
    const std::vector<double> input = noise(1000);
    EXPECT_EQ(render(effect, input, {17}), input);
}

TEST(Factory, EveryFixedRoleOfTheProductIsServedAndMetered)
{
    VelmoraMonoEffect effect;
    render(effect, noise(4410), {441});
    for (const RoleWindow& window : kRoleWindows) {
        double level = -1.0;
        EXPECT_TRUE(effect.getParameter(window.meterBase, &level));
        if (isInsert(window.role))
            EXPECT_EQ(level, 0.0);
        else
            EXPECT_GT(level, 0.0) << window.longPrefix;
    }
}

TEST(Threads, MetersAreReadWhileAudioRunsAndInsertsSwap)
{
    RecordingRack rack;
    shapeModules(rack);
    std::atomic<bool> done{false};
    std::atomic<int> outside{0};
    std::thread reader([&] {
        while (!done) {
            for (ParameterId id = 0; id < kIdCount; ++id) {
                const double reading = rack.meter(id);
                if (!(reading == -1.0 || (reading >= 0.0 && reading <= 1.0))) ++outside;
            }
        }
    });
    const std::vector<double> types{0.0, 49 / 255.0, 81 / 255.0, 113 / 255.0, 1.0};
    for (std::size_t block = 0; block < 2000; ++block) {
        rack.effect.setParameter(256, types[block % types.size()]);
        rack.effect.setParameter(304, types[block % 3]);
        rack.effect.setParameter(kProcessId, block % 10 < 7 ? 1.0 : 0.0);
        for (auto& [name, module] : rack.modules) module->meters[2] = static_cast<double>(block % 3) * 0.6;
        rack.run(64);
        rack.take();
    }
    done = true;
    reader.join();
    EXPECT_EQ(outside, 0);
}

} // namespace
} // namespace velmora::test
