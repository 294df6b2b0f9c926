#include "tests/support/measure.h"
#include "tests/support/plugin_host.h"
#include "tests/tools/renderer_runs.h"

#include <gtest/gtest.h>

#include <algorithm>

// The renderer with the built plug-in.

namespace velmora::test {
namespace {

const std::vector<std::string> kMaster{"--set", "Mstr:Type=Master Control", "--set", "Mstr:Gain=-6"};

constexpr std::size_t kFrames = 48000;

/// The end of a recording, where the fader's glide is over.
double settledRmsDb(const Signal& signal)
{
    return rmsDb(std::span(signal).last(9600));
}

class RenderStrip : public testing::Test {
protected:
    RenderStrip() { writeRecording(file("in.wav"), {48000, {noise(kFrames, 0.3), noise(kFrames, 0.3, 2)}}); }

    std::string file(const std::string& name) const { return folder_.file(name); }

    Recording through(std::vector<std::string> options, const std::vector<std::string>& more = {})
    {
        options.insert(options.begin(), {file("in.wav"), file("out.wav"), "--plugin", pluginPath().string()});
        options.insert(options.end(), more.begin(), more.end());
        const ProgramResult result = render(options);
        EXPECT_EQ(result.status, 0) << result.err;
        return readRecording(file("out.wav"));
    }

    TemporaryFolder folder_;
};

TEST_F(RenderStrip, PassesDryWhenProcessIsOff)
{
    const Recording dry = readRecording(file("in.wav"));
    const Recording wet = through({"--set", "Process=Off"});
    // The strip starts switched on and fades out over 1/240 second.
    for (std::size_t c = 0; c < 2; ++c)
        EXPECT_EQ(
            maxDifference(std::span(wet.channels[c]).subspan(512), std::span(dry.channels[c]).subspan(512)),
            0.0);
}

TEST_F(RenderStrip, SetsTheFader)
{
    const Signal flat = through({"--set", "Mstr:Type=Master Control", "--set", "Mstr:Gain=0"}).channels[0];
    const Signal lower = through(kMaster).channels[0];
    const double change = settledRmsDb(lower) - settledRmsDb(flat);
    std::printf("fader at -6: %.4f dB\n", change);
    EXPECT_NEAR(change, -6.0, 0.01);
}

TEST_F(RenderStrip, AgreesBetweenPrecisionsAndBlockSizes)
{
    const Recording reference = through(kMaster, {"--double", "--block", "64"});
    EXPECT_EQ(
        maxDifference(through(kMaster, {"--double", "--block", "1024"}).channels[1], reference.channels[1]),
        0.0);
    EXPECT_LT(maxDifference(through(kMaster).channels[1], reference.channels[1]), 1e-6);
}

// A limiter's meter starts at full reduction; the report must not take that for work.
TEST_F(RenderStrip, ReportsTheReductionThatTheSoundHad)
{
    writeRecording(file("in.wav"), {48000, {noise(3 * kFrames, 0.05)}});
    const std::vector<std::string> files{file("in.wav"), file("out.wav"), "--plugin", pluginPath().string()};
    std::vector<std::string> options = files;
    options.insert(options.end(), {"--set", "Comp:Type=-", "--set", "Lim:Type=BrickWall"});
    const std::string idle = render(options).out;
    EXPECT_NE(idle.find("gain reduction 0.00 dB"), std::string::npos) << idle;
    options.insert(options.end(), {"--set", "Lim:Ceiling=-40"});
    const std::string busy = render(options).out;
    const double reduction = std::stod(busy.substr(busy.find("gain reduction ") + 15));
    EXPECT_GT(reduction, 3.0) << busy;
    EXPECT_LT(reduction, 30.0) << busy;
}

TEST_F(RenderStrip, SavesAPresetThatGivesTheSameSound)
{
    std::vector<std::string> settings = kMaster;
    settings.insert(settings.end(), {"--set", "InsX:Type=De-esser", "--set", "InsX:Prm01=4k", "--set",
                                     "Comp:Threshold=-30", "--set", "EQ:Position=A"});
    const Recording set = through(settings, {"--save-preset", file("p.qor")});
    EXPECT_EQ(std::filesystem::file_size(file("p.qor")), 6353u);
    const Recording loaded = through({"--preset", file("p.qor"), "--save-preset", file("again.qor")});
    // A preset holds single precision; the values that nobody has set start in double.
    EXPECT_LT(maxDifference(loaded.channels[0], set.channels[0]), 1e-7);
    const Recording again = through({"--preset", file("again.qor")});
    EXPECT_EQ(maxDifference(again.channels[0], loaded.channels[0]), 0.0);

    const ProgramResult compared =
        runProgram("/usr/bin/cmp", {"-n6185", "-i168", file("p.qor"), file("again.qor")});
    EXPECT_EQ(compared.status, 0) << compared.out << "all but the name at the head must be the same";
}

TEST_F(RenderStrip, RefusesBrokenPresetsInOneLine)
{
    through(kMaster, {"--save-preset", file("p.qor")});
    std::filesystem::remove(file("out.wav"));
    std::filesystem::resize_file(file("p.qor"), 3000);
    for (const std::string& preset : {file("p.qor"), file("none.qor"), file("in.wav")}) {
        const ProgramResult result =
            render({file("in.wav"), file("out.wav"), "--preset", preset, "--plugin", pluginPath()});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
        EXPECT_NE(result.err.find(preset), std::string::npos) << result.err;
        EXPECT_FALSE(std::filesystem::exists(file("out.wav")));
    }
}

TEST_F(RenderStrip, FollowsAutomation)
{
    writeText(file("moves.csv"), "time,name,text\n0.2,Mstr:Gain,-oo\n");
    std::vector<std::string> options = kMaster;
    options.insert(options.end(), {"--automate", file("moves.csv")});
    const Signal still = through(kMaster).channels[0];
    const Signal faded = through(options).channels[0];
    EXPECT_EQ(maxDifference(std::span(faded).first(9600), std::span(still).first(9600)), 0.0);
    EXPECT_LT(settledRmsDb(faded), settledRmsDb(still) - 40.0);
}

TEST_F(RenderStrip, TouchesNothingOfTheUsers)
{
    const TemporaryFolder home;
    const ScopedEnvironment userHome("HOME", home.path().string());
    const ScopedEnvironment settings("XDG_CONFIG_HOME", home.path().string());
    const ScopedEnvironment profile("USERPROFILE", home.path().string());
    through(kMaster, {"--save-preset", file("p.qor")});
    EXPECT_TRUE(std::filesystem::is_empty(home.path()));
}

TEST_F(RenderStrip, RendersTheDemoRecording)
{
    ASSERT_EQ(runProgram(VELMORA_DEMO_SOURCE, {file("in.wav")}).status, 0);
    const Recording dry = readRecording(file("in.wav"));
    const double level = rmsDb(dry.channels[0]);
    std::printf("demo recording: %zu frames, peak %.2f dB, RMS %.2f dB\n", dry.channels[0].size(),
                decibels(peak(dry.channels[0])), level);
    EXPECT_GT(level, -30.0);
    EXPECT_LT(peak(dry.channels[0]), 1.0);
    const Recording wet = through({});
    EXPECT_TRUE(allFinite(wet.channels[0]));
    EXPECT_GT(rmsDb(wet.channels[0]), -60.0);

    std::filesystem::copy_file(file("in.wav"), file("first.wav"));
    ASSERT_EQ(runProgram(VELMORA_DEMO_SOURCE, {file("in.wav")}).status, 0);
    EXPECT_EQ(maxDifference(readRecording(file("first.wav")).channels[0],
                            readRecording(file("in.wav")).channels[0]),
              0.0);
}

} // namespace
} // namespace velmora::test
