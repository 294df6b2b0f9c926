// velmora-presets as a user calls it, and the renderer's way to the factory bank.

#include "tests/support/files.h"
#include "tests/support/plugin_host.h"
#include "tests/support/program.h"
#include "tests/tools/renderer_runs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

class PresetsTool : public ::testing::Test {
protected:
    static ProgramResult presets(const std::vector<std::string>& arguments)
    {
        return runProgram(VELMORA_PRESETS, arguments);
    }
    static long lines(const std::string& text) { return std::ranges::count(text, '\n'); }
    static void expectRefused(const ProgramResult& result, const std::string& part)
    {
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(lines(result.err), 1) << result.err;
        EXPECT_NE(result.err.find(part), std::string::npos) << result.err;
    }
    std::string file(const std::string& name) const { return (folder.path() / name).string(); }

    TemporaryFolder folder;
};

TEST_F(PresetsTool, ListsAllOrOneCategory)
{
    const ProgramResult all = presets({"list"});
    EXPECT_EQ(all.status, 0);
    EXPECT_EQ(lines(all.out), 233);
    EXPECT_NE(all.out.find("185  HiFi Vocal"), std::string::npos);

    const ProgramResult wind = presets({"list", "--category", "wind"});
    EXPECT_EQ(lines(wind.out), 8);
    EXPECT_NE(wind.out.find("Old Trumpet"), std::string::npos);
    expectRefused(presets({"list", "--category", "Triangles"}), "Vocals");
    expectRefused(presets({"list", "--designer", "Nobody At All"}), "no designer");
    expectRefused(presets({}), "--help");
}

TEST_F(PresetsTool, ShowsTheRackInOrder)
{
    const ProgramResult shown = presets({"show", "hifi vocal"});
    EXPECT_EQ(shown.status, 0);
    const auto at = [&](const std::string& text) { return shown.out.find(text); };
    EXPECT_LT(at("A  Pre  Pre 70s"), at("B  Comp FET Levelor"));
    EXPECT_LT(at("B  Comp FET Levelor"), at("C  EQ   Juniper"));
    EXPECT_LT(at("C  EQ   Juniper"), at("D  InsY De-esser"));
    EXPECT_NE(at("H  Flt  off"), std::string::npos);
    EXPECT_NE(at("Sensitivity"), std::string::npos) << "an insert shows its module's own words";

    expectRefused(presets({"show", "Electric Piano"}), "159");
    expectRefused(presets({"show", "HiFi Vocl"}), "HiFi Vocal");
    expectRefused(presets({"show", "233"}), "0 to 232");
}

TEST_F(PresetsTool, WhatItExportsItAccepts)
{
    EXPECT_EQ(presets({"export", file("all")}).status, 0);
    std::vector<std::string> arguments{"check"};
    for (const auto& entry : std::filesystem::directory_iterator(file("all")))
        arguments.push_back(entry.path());
    EXPECT_EQ(arguments.size(), 234u);
    EXPECT_TRUE(std::filesystem::exists(file("all/185 HiFi Vocal.qor")));
    const ProgramResult checked = presets(arguments);
    EXPECT_EQ(checked.status, 0) << checked.out;
    EXPECT_EQ(lines(checked.out), 233);

    const ProgramResult shown = presets({"show", file("all/185 HiFi Vocal.qor")});
    EXPECT_NE(shown.out.find("B  Comp FET Levelor"), std::string::npos);
}

TEST_F(PresetsTool, SaysWhyAFileIsNoPreset)
{
    EXPECT_EQ(presets({"export", file("all")}).status, 0);
    std::filesystem::resize_file(file("all/005 Kick B52.qor"), 3000);
    writeText(file("song.wav"), "RIFF and so on");
    std::filesystem::create_directory(file("folder.qor"));
    const ProgramResult result =
        presets({"check", file("all/006 Subkick Yama.qor"), file("all/005 Kick B52.qor"), file("song.wav"),
                 file("folder.qor"), file("nothing.qor")});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(lines(result.out), 5) << result.out;
    std::size_t refused = 0;
    for (std::size_t at = 0; (at = result.out.find("no preset: ", at)) != std::string::npos; ++at) ++refused;
    EXPECT_EQ(refused, 4u) << result.out;
    expectRefused(presets({"export", file("song.wav")}), "song.wav");
}

TEST_F(PresetsTool, ListsTheUsersFilesOrSaysWhyItCannot)
{
    const ScopedEnvironment noProfile("USERPROFILE", std::nullopt);
    const ScopedEnvironment home("HOME", folder.path().string());
    const std::string root = file("Documents/Qorvane/User Presets/QOR Velmora/");
    EXPECT_NE(presets({"list", "--user"}).out.find("no presets in "), std::string::npos);
    std::filesystem::create_directory(root + "Sub");
    writeText(root + "Sub/Mine.qor", "");
    EXPECT_EQ(presets({"list", "--user"}).out, root + "Sub/Mine.qor\n");
    for (int i = 0; i < 600; ++i) writeText(root + std::to_string(i) + ".qor", "");
    const std::string many = presets({"list", "--user"}).out;
    EXPECT_EQ(lines(many), 513);
    EXPECT_TRUE(many.ends_with("\nno more than 512 are listed\n"));

    const ScopedEnvironment lost("HOME", file("nowhere"));
    expectRefused(presets({"list", "--user"}), "HOME");
}

TEST_F(PresetsTool, ShowsAStrangersNameAsCleanText)
{
    EXPECT_EQ(presets({"export", file("all")}).status, 0);
    std::fstream(file("all/005 Kick B52.qor"), std::ios::in | std::ios::out | std::ios::binary)
        .seekp(41 + 12) // of the first record's payload
        .write("\x1B[2J \xC2\x9B \xFF M\xC3\xBC\0", 14);
    const ProgramResult result = presets({"check", file("all/005 Kick B52.qor")});
    EXPECT_NE(result.out.find("\"?[2J ?? ? M\xC3\xBC\""), std::string::npos) << result.out;
}

TEST_F(PresetsTool, TheRendererStartsFromTheFactoryBank)
{
    writeRecording(file("in.wav"), {48000, {noise(24000, 0.2, 1)}});
    const auto through = [&](const std::string& preset, const std::string& out) {
        return render({file("in.wav"), file(out), "--factory", preset, "--plugin", pluginPath().string()});
    };
    EXPECT_EQ(through("HiFi Vocal", "a.wav").status, 0);
    EXPECT_EQ(through("185", "b.wav").status, 0);
    EXPECT_EQ(readRecording(file("a.wav")).channels, readRecording(file("b.wav")).channels);
    EXPECT_EQ(presets({"export", file("all")}).status, 0);
    EXPECT_EQ(render({file("in.wav"), file("c.wav"), "--preset", file("all/185 HiFi Vocal.qor"), "--plugin",
                      pluginPath().string()})
                  .status,
              0);
    EXPECT_EQ(readRecording(file("a.wav")).channels, readRecording(file("c.wav")).channels);
    expectRefused(through("Electric Piano", "d.wav"), "165");
    EXPECT_FALSE(std::filesystem::exists(file("d.wav")));
}

} // namespace
} // namespace velmora::test
