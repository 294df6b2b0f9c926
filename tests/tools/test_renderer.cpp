#include "tests/support/measure.h"
#include "tests/tools/renderer_runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>

// The renderer as a program, against a probe plug-in whose output tells what its host did. The probe's
// parameters: Process gain of the main input, Pre:RefLevel (0 is full) gain of the side chain, Pre:Drive (30
// is on) tells the lengths of process calls, Mstr:Gain an offset.

namespace velmora::test {
namespace {

Signal rounded(Signal signal)
{
    for (double& x : signal) x = static_cast<double>(static_cast<float>(x));
    return signal;
}

class Renderer : public testing::Test {
protected:
    std::string file(const std::string& name) const { return folder_.file(name); }

    std::set<std::string> fileNames() const
    {
        std::set<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(folder_.path()))
            names.insert(entry.path().filename().string());
        return names;
    }

    /// Renders in.wav to a recording through the probe.
    Recording through(std::vector<std::string> options, const std::string& output = "out.wav")
    {
        options.insert(options.begin(), {file("in.wav"), file(output), "--plugin", VELMORA_PROBE_PLUGIN});
        const ProgramResult result = render(options);
        EXPECT_EQ(result.status, 0) << result.err;
        report_ = result.out;
        return readRecording(file(output));
    }

    TemporaryFolder folder_;
    std::string report_;
};

TEST_F(Renderer, PassesEverySampleThroughInBothPrecisions)
{
    const Recording dry{96000, {rounded(noise(5000, 0.9, 1)), rounded(noise(5000, 0.9, 2))}};
    writeRecording(file("in.wav"), dry);
    for (const std::vector<std::string>& options : {std::vector<std::string>{},
                                                    {"--double", "--block", "1"},
                                                    {"--block", "4999"},
                                                    {"--block", "65536"}}) {
        const Recording wet = through(options);
        EXPECT_EQ(wet.rate, 96000);
        ASSERT_EQ(wet.channels.size(), 2u);
        for (std::size_t c = 0; c < 2; ++c) EXPECT_EQ(maxDifference(wet.channels[c], dry.channels[c]), 0.0);
    }
}

TEST_F(Renderer, WritesFlacAndReadsItBack)
{
    const Recording dry{384000, {noise(3000, 0.5)}};
    writeRecording(file("in.wav"), dry);
    const Recording wet = through({}, "out.FLAC");
    EXPECT_EQ(wet.rate, 384000);
    EXPECT_LT(maxDifference(wet.channels[0], dry.channels[0]), std::ldexp(1.0, -23));
    std::filesystem::rename(file("out.FLAC"), file("in.wav"));
    EXPECT_EQ(maxDifference(through({}).channels[0], wet.channels[0]), 0.0);
}

TEST_F(Renderer, GivesEachChannelItsKeyOrTheFirst)
{
    writeRecording(file("in.wav"), {48000, {noise(1000, 0.5, 1), noise(1000, 0.5, 2)}});
    const Signal first = rounded(noise(1000, 0.5, 3));
    const Signal second = rounded(noise(1000, 0.5, 4));
    const std::vector<std::string> keyOnly{"--set",   "Process=Off", "--set",        "Pre:RefLevel=0",
                                           "--block", "96",          "--side-chain", file("key.wav")};
    writeRecording(file("key.wav"), {48000, {first, second}});
    Recording wet = through(keyOnly);
    EXPECT_EQ(maxDifference(wet.channels[0], first), 0.0);
    EXPECT_EQ(maxDifference(wet.channels[1], second), 0.0);

    // Shorter and with one channel: that one for all, then silence.
    writeRecording(file("key.wav"), {48000, {Signal(first.begin(), first.begin() + 500)}});
    wet = through(keyOnly);
    EXPECT_EQ(maxDifference(std::span(wet.channels[1]).first(500), std::span(first).first(500)), 0.0);
    EXPECT_EQ(peak(std::span(wet.channels[1]).subspan(500)), 0.0);
}

TEST_F(Renderer, AddsTheTailInSilence)
{
    writeRecording(file("in.wav"), {48000, {Signal(1000, 0.25)}});
    const Signal wet = through({"--tail", "0.5"}).channels[0];
    ASSERT_EQ(wet.size(), 25000u);
    EXPECT_EQ(wet[999], 0.25);
    EXPECT_EQ(peak(std::span(wet).subspan(1000)), 0.0);
}

TEST_F(Renderer, CutsBlocksAtAutomationToTheSample)
{
    writeRecording(file("in.wav"), {48000, {silence(1000)}});
    writeText(file("moves.csv"),
              "time,name,text\n0.00625,Mstr:Gain,-oo\n0.003125,Mstr:Gain,10\n9,Mstr:Gain,10\n");
    Signal expected = silence(1000);
    std::fill(expected.begin() + 150, expected.begin() + 300, 1.0);
    EXPECT_EQ(
        maxDifference(through({"--automate", file("moves.csv"), "--block", "100"}).channels[0], expected),
        0.0);

    const Signal lengths =
        through({"--automate", file("moves.csv"), "--block", "100", "--set", "Pre:Drive=30"}).channels[0];
    EXPECT_EQ(lengths[99] * 65536.0, 100.0);
    EXPECT_EQ(lengths[100] * 65536.0, 50.0);
    EXPECT_EQ(lengths[150] * 65536.0, 50.0) << "blocks stay on the host's grid";
    EXPECT_EQ(lengths[200] * 65536.0, 100.0);
}

TEST_F(Renderer, ReportsLevelsAndGainReduction)
{
    writeRecording(file("in.wav"), {48000, {Signal(4800, 0.5)}});
    through({"--set", "Process=Off"});
    const std::size_t lastLine = report_.rfind('\n', report_.size() - 2) + 1;
    const std::string first = report_.substr(0, lastLine);
    const std::string last = report_.substr(lastLine);
    EXPECT_NE(first.find("peak -6.02 dB, RMS -6.02 dB"), std::string::npos) << report_;
    EXPECT_NE(last.find("peak -oo dB, RMS -oo dB, gain reduction 6.02 dB"), std::string::npos) << report_;
}

TEST_F(Renderer, ListsParametersWithoutFiles)
{
    const ProgramResult csv = render({"--list-parameters", "--csv"});
    EXPECT_EQ(csv.status, 0);
    EXPECT_EQ(std::ranges::count(csv.out, '\n'), 193);
    EXPECT_NE(csv.out.find("\n242,Mstr:Gain,M:Gain,dB,"), std::string::npos) << csv.out;
    EXPECT_EQ(std::ranges::count(render({"--list-parameters"}).out, '\n'), 193);
}

TEST_F(Renderer, RefusesInOneLineAndLeavesNoFile)
{
    writeRecording(file("in.wav"), {48000, {noise(4800)}});
    writeRecording(file("slow.wav"), {44099, {noise(100)}});
    writeRecording(file("fast.wav"), {384001, {noise(100)}});
    writeRecording(file("other-rate.wav"), {44100, {noise(100)}});
    writeRecording(file("not-finite.wav"), {48000, {Signal(2000, std::nan(""))}});
    writeText(file("text.wav"), "no audio at all\n");
    writeText(file("bad-time.csv"), "soon,Mstr:Gain,-6\n");
    writeText(file("bad-name.csv"), "0,Mstr:Gain,-6\n1,Mstr:Gone,-6\n");
    writeText(file("text.qor"), "this is no preset, though it is long enough to hold a header of one\n");
    writeText(file("old.wav"), "an older result");
    const std::set<std::string> before = fileNames();

    const std::string in = file("in.wav");
    const std::string out = file("out.wav");
    struct Case {
        std::vector<std::string> arguments;
        std::string says;
    };
    const std::vector<Case> cases{
        {{}, "IN and OUT"},
        {{in}, "IN and OUT"},
        {{in, out, "more"}, "--help"},
        {{in, out, "--loud"}, "--loud"},
        {{in, out, "--block", "0"}, "1 to 65536"},
        {{in, out, "--block", "many"}, "--block"},
        {{in, out, "--tail", "-1"}, "--tail"},
        {{in, out, "--csv"}, "--list-parameters"},
        {{file("none.wav"), out}, "there is no file"},
        {{folder_.path().string(), out}, "is a folder"},
        {{file("text.wav"), out}, "WAV or FLAC"},
        {{file("slow.wav"), out}, "44099 Hz; the strip works from 44100 to 384000 Hz"},
        {{file("fast.wav"), out}, "384001 Hz"},
        {{in, file("out.mp3")}, ".wav or .flac"},
        {{in, file("none/out.wav")}, "folder"},
        {{in, in}, "another name"},
        {{in, out, "--save-preset", out}, "another name"},
        {{in, out, "--side-chain", file("other-rate.wav")}, "48000 Hz"},
        {{in, out, "--side-chain", file("none.wav")}, "there is no file"},
        {{in, out, "--set", "Mstr:Gian=-6"}, "\"Mstr:Gain\""},
        {{in, out, "--set", "Pre:Gain=loud"}, "-30.0 to 30.0"},
        {{in, out, "--set", "Mstr:Gain"}, "Mstr:Gain=-6"},
        {{in, out, "--automate", file("none.csv")}, "can't be read"},
        {{in, out, "--automate", folder_.path().string()}, "can't be read"},
        {{in, out, "--automate", file("bad-time.csv")}, "bad-time.csv:1: "},
        {{in, out, "--automate", file("bad-name.csv")}, "bad-name.csv:2: "},
        {{in, out, "--preset", file("text.qor")}, "not a preset file"},
        {{in, out, "--factory", "0"}, "--plugin must name velmora_mono.so"},
        {{in, out, "--save-preset", file("p.qor")}, "--plugin must name velmora_mono.so"},
        {{file("not-finite.wav"), out}, "finite"},
        {{file("not-finite.wav"), file("old.wav")}, "finite"},
    };
    for (Case test : cases) {
        std::string shown;
        for (const std::string& argument : test.arguments) shown += " " + argument;
        test.arguments.insert(test.arguments.end(), {"--plugin", VELMORA_PROBE_PLUGIN});
        const ProgramResult result = render(test.arguments);
        EXPECT_EQ(result.status, 2) << shown;
        EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << shown << '\n' << result.err;
        EXPECT_EQ(result.err.rfind("velmora-render: ", 0), 0u) << result.err;
        EXPECT_NE(result.err.find(test.says), std::string::npos) << shown << '\n' << result.err;
        EXPECT_EQ(result.out, "") << shown;
        EXPECT_EQ(fileNames(), before) << shown;
    }
    EXPECT_EQ(std::filesystem::file_size(file("old.wav")), 15u) << "a failure leaves the older result alone";
    for (const std::string& plugin : {file("none.so"), file("text.wav")}) {
        const ProgramResult result = render({in, out, "--plugin", plugin});
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(std::ranges::count(result.err, '\n'), 1) << result.err;
    }
    EXPECT_EQ(fileNames(), before);
}

} // namespace
} // namespace velmora::test
