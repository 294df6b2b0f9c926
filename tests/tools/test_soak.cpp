// velmora-soak as a developer calls it: on the built plug-in, and on strips with a fault that it must find.

#include "params/catalogue.h"
#include "tests/support/plugin_host.h"
#include "tests/support/program.h"
#include "tools/host/scoped_environment.h"
#include "tools/soak/scenario.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <iostream>
#include <set>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

ProgramResult soakStrip(const std::string& plugin, std::vector<std::string> options)
{
    options.insert(options.end(), {"--plugin", plugin});
    return runProgram(VELMORA_SOAK, options);
}

TEST(Soak, FindsNoFaultInThePlugin)
{
    const ProgramResult result = soakStrip(pluginPath(), {"--seconds", "2", "--runs", "6", "--seed", "11"});
    std::cout << result.out << result.err;
    EXPECT_EQ(result.status, 0);
}

TEST(Soak, FindsABuildEqualToItself)
{
    const ProgramResult result =
        soakStrip(pluginPath(), {"--seconds", "1", "--runs", "3", "--against", pluginPath()});
    std::cout << result.out << result.err;
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("worst difference of output 0 "), std::string::npos);
}

TEST(Soak, FindsEachFault)
{
    struct Case {
        const char* fault;
        std::vector<std::string> options;
        int status;
        const char* report;
    };
    const std::vector<std::string> alone;
    const std::vector<std::string> compared{"--against", pluginPath()};
    const Case cases[] = {
        {"", alone, 0, " 0 faults"},
        {"sample", alone, 1, "no finite number"},
        {"meter", alone, 1, "meter 375 shows 1.5"},
#if !defined(__SANITIZE_ADDRESS__)
        {"leak", alone, 1, "allocated"},
#endif
        {"", compared, 0, "output differs by 0,"},
        {"level", compared, 1, " FAULT"},
        {"last bit", compared, 0, "first at frame "},
    };
    for (const Case& one : cases) {
        const host::ScopedEnvironment fault("VELMORA_FAULT", one.fault);
        std::vector<std::string> options{"--seconds", "1", "--seed", "1"};
        options.insert(options.end(), one.options.begin(), one.options.end());
        const ProgramResult result = soakStrip(VELMORA_FAULTY_STRIP, options);
        std::cout << "fault \"" << one.fault << "\": " << result.out;
        EXPECT_EQ(result.status, one.status) << one.fault;
        EXPECT_NE(result.out.find(one.report), std::string::npos) << one.fault;
    }
}

TEST(Soak, RefusesWhatItDoesNotKnow)
{
    const ProgramResult result = soakStrip(pluginPath(), {"--module", "compresor"});
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.err.find("the nearest is \"compressor\""), std::string::npos) << result.err;
    EXPECT_EQ(soakStrip("/no/such/plug-in.so", {}).status, 2);
}

/// What came up in the scenarios of some seeds.
struct Census {
    void count(const soak::Cast& cast, std::uint64_t seed, double seconds,
               soak::Scenario::Denormals denormals = soak::Scenario::Denormals::Included)
    {
        soak::Scenario scenario(seed, cast, denormals);
        for (double played = 0.0; played < seconds;) {
            const soak::Step& step = scenario.next();
            played += step.frames / scenario.sampleRate();
            blocks.insert(step.frames);
            if (!step.wiring.connected[2]) ++withoutSideChain;
            for (const soak::Action& action : step.actions) count(action);
            for (const double sample : step.inputs[0]) count(sample);
        }
    }
    void count(const soak::Action& action)
    {
        if (const auto* change = std::get_if<soak::ParameterChange>(&action)) {
            count(change->id, change->value);
        } else if (const auto* load = std::get_if<soak::StateLoad>(&action)) {
            for (ParameterId id = 0; id < kHostParameterCount; ++id)
                count(id, load->preset->values[static_cast<unsigned>(id)]);
        } else {
            rates.insert(std::get<soak::Restart>(action).sampleRate);
        }
    }
    void count(ParameterId id, float value)
    {
        changed.insert(id);
        const RoleWindow* window = windowOf(id);
        if (window == nullptr || id != window->windowBase + kTypeOffset) return;
        const auto type = static_cast<double>(value);
        if (isInsert(window->role))
            inserts.insert(insertCodeInEngine(type));
        else if (const int variant = static_cast<int>(type * 15.0 + 0.5))
            roles.insert((static_cast<int>(window->kind) - 1) * 16 + variant);
    }
    void count(double sample)
    {
        huge += std::abs(sample) >= 1e6 ? 1 : 0;
        broken += std::isfinite(sample) ? 0 : 1;
        denormal += std::fpclassify(sample) == FP_SUBNORMAL ? 1 : 0;
        silent += sample == 0.0 ? 1 : 0;
    }

    std::set<ParameterId> changed;
    std::set<int> inserts, roles;
    std::set<double> rates;
    std::set<std::int32_t> blocks;
    int withoutSideChain = 0;
    long huge = 0, broken = 0, denormal = 0, silent = 0;
};

TEST(SoakScenario, BringsEverythingUp)
{
    const soak::Cast all;
    Census census;
    for (std::uint64_t seed = 1; seed <= 16; ++seed) census.count(all, seed, 2.5);
    std::cout << census.changed.size() << " ids, " << census.blocks.size() << " block lengths from "
              << *census.blocks.begin() << " to " << *census.blocks.rbegin() << ", " << census.huge
              << " huge, " << census.broken << " broken, " << census.denormal << " denormal samples\n";
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        EXPECT_TRUE(!isStored(id) || census.changed.contains(id)) << id;
    for (const ModuleType& type : moduleTypes()) {
        EXPECT_TRUE(census.inserts.contains(type.code)) << type.listName;
        EXPECT_TRUE(type.kind == ModuleKind::Special || census.roles.contains(type.code)) << type.listName;
    }
    EXPECT_EQ(census.rates, (std::set<double>{44100, 48000, 88200, 96000, 176400, 192000, 384000}));
    EXPECT_EQ(*census.blocks.begin(), 0);
    EXPECT_TRUE(census.blocks.contains(1));
    EXPECT_EQ(*census.blocks.rbegin(), soak::kLongestBlock);
    for (const long found : {census.huge, census.broken, census.denormal, census.silent}) EXPECT_GT(found, 0);
    EXPECT_GT(census.withoutSideChain, 0);
}

TEST(SoakScenario, LeavesDenormalsOutOfAComparison)
{
    const soak::Cast all;
    Census census;
    for (std::uint64_t seed = 1; seed <= 16; ++seed)
        census.count(all, seed, 2.5, soak::Scenario::Denormals::LeftOut);
    EXPECT_EQ(census.denormal, 0);
    EXPECT_GT(census.broken, 0);
}

TEST(SoakScenario, KeepsToTheModulesThatAreNamed)
{
    const soak::Cast cast({"fet levelor", "Marlow"});
    Census census;
    for (std::uint64_t seed = 1; seed <= 6; ++seed) census.count(cast, seed, 1.5);
    EXPECT_EQ(census.roles, (std::set<int>{50}));
    EXPECT_EQ(census.inserts, (std::set<int>{0, 50, kMarlowCode}));
}

} // namespace
} // namespace velmora::test
