#include "params/catalogue.h"
#include "tests/engine/recording_rack.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmora::test {
namespace {

Log eachModule(std::initializer_list<const char*> names, const std::string& call)
{
    Log lines;
    for (const char* name : names) lines.push_back(text(name, " ", call));
    return lines;
}

const Log kHomeOrder = eachModule({"Pre:", "Flt:", "Gate:", "Comp:", "EQ:", "Lim:", "Mstr:"}, "process 64");

Log moved(Log lines, std::size_t from, std::size_t to)
{
    const std::string line = lines[from];
    lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(from));
    lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(to), line);
    return lines;
}

TEST(Rack, BuildsModulesInOrderAndHandsThemRateAndDefaults)
{
    RecordingRack rack;
    const Log created = rack.take();
    Log made;
    std::copy_if(created.begin(), created.end(), std::back_inserter(made),
                 [](const std::string& line) { return line.find(" create ") != std::string::npos; });
    ASSERT_EQ(made.size(), 7U + 2U * 25U);
    const Log fixed(made.begin(), made.begin() + 7);
    EXPECT_EQ(fixed, (Log{"Pre: create 16 361 438", "Flt: create 48 367 477", "Gate: create 80 371 516",
                          "EQ: create 144 379 594", "Comp: create 112 375 555", "Lim: create 192 383 633",
                          "Mstr: create 224 387 672"}));
    EXPECT_EQ(made[7], "X1 create 256 399 711");
    EXPECT_EQ(made.back(), "Y115 create 304 411 750");

    Log rates;
    std::copy_if(created.begin(), created.end(), std::back_inserter(rates),
                 [](const std::string& line) { return line.find(" rate ") != std::string::npos; });
    EXPECT_EQ(rates, eachModule({"Pre:", "Flt:", "Gate:", "Comp:", "EQ:", "Lim:", "Mstr:"}, "rate 44100"));

    for (const RoleWindow& window : kRoleWindows) {
        if (isInsert(window.role)) continue;
        const RecordingModule& module = rack[window.longPrefix];
        for (ParameterId id = window.windowBase; id < window.windowEnd; ++id) {
            const ParameterId offset = id - window.windowBase;
            const bool engineOwns = offset >= kPositionOffset && offset <= kSoloOffset;
            const auto sent = module.values.find(static_cast<std::uint32_t>(id));
            ASSERT_EQ(sent == module.values.end(), engineOwns) << id;
            if (!engineOwns) {
                EXPECT_EQ(sent->second, defaultValue(id)) << id;
            }
        }
    }
    rack.run(64);
    EXPECT_EQ(rack.take("process"), kHomeOrder);
}

TEST(Rack, CutsBlocksIntoSubBlocksAndWalksThePositions)
{
    RecordingRack rack;
    rack.take();
    rack["Flt:"].gain = 3.0;
    rack["EQ:"].offset = 1.0;
    const std::vector<double> output = rack.run(65, 2.0);
    Log expected = kHomeOrder;
    for (const std::string& line : kHomeOrder) expected.push_back(line.substr(0, line.size() - 2) + "1");
    EXPECT_EQ(rack.take(), expected) << "nothing but process calls, in two sub-blocks";
    EXPECT_TRUE(std::all_of(output.begin(), output.end(), [](double y) { return y == 7.0; }));
}

TEST(Rack, FollowsPositionsFromTheNextSubBlockOn)
{
    RecordingRack rack;
    rack.take();
    // The equaliser to the front, the others one place back.
    rack.set(Role::Eq, kPositionOffset, 0.0);
    rack.set(Role::Input, kPositionOffset, 0.125);
    rack.set(Role::Filters, kPositionOffset, 0.25);
    rack.set(Role::Expander, kPositionOffset, 0.375);
    rack.set(Role::Compressor, kPositionOffset, 0.5);
    EXPECT_TRUE(rack.take().empty()) << "positions stay with the engine";
    rack.run(64);
    EXPECT_EQ(rack.take(), moved(kHomeOrder, 4, 0));

    // Two roles on one place: the later one of the role order wins, even against an earlier setting.
    rack.set(Role::Filters, kPositionOffset, 0.5);
    rack.run(64);
    Log expected = moved(kHomeOrder, 4, 0);
    expected.erase(expected.begin() + 2);
    EXPECT_EQ(rack.take(), expected);

    // An empty insert clears the place that it shares.
    rack.set(Role::InsertX, kPositionOffset, 0.0);
    rack.run(64);
    expected.erase(expected.begin());
    EXPECT_EQ(rack.take(), expected);

    // A place behind the rack empties the chain until it's taken back; further out nothing changes.
    rack.set(Role::Limiter, kPositionOffset, 1.125);
    rack["Pre:"].gain = 5.0;
    EXPECT_EQ(rack.run(130, 0.25), std::vector<double>(130, 0.25));
    rack.set(Role::Limiter, kPositionOffset, 0.625);
    for (const double stray : {1.25, 1e300, -1.0, -1e300, std::nan(""), HUGE_VAL, -HUGE_VAL})
        rack.set(Role::Limiter, kPositionOffset, stray);
    rack.take();
    rack.run(64);
    EXPECT_EQ(rack.take(), expected);
}

TEST(Rack, SoloOverrulesMuteAndBothKeepModulesInTheChain)
{
    RecordingRack rack;
    const auto running = [&rack] {
        std::string names;
        for (const RoleWindow& window : kRoleWindows)
            if (!isInsert(window.role) && rack[window.longPrefix].isActive()) names += window.longPrefix;
        return names;
    };
    rack.take();
    rack.set(Role::Compressor, kMuteOffset, 1.0);
    EXPECT_EQ(rack.take(), (Log{"Pre: activate", "Flt: activate", "Gate: activate", "Comp: deactivate",
                                "EQ: activate", "Lim: activate", "Mstr: activate"}));
    rack.run(64);
    EXPECT_EQ(rack.take(), kHomeOrder);

    rack.set(Role::Eq, kSoloOffset, 0.5);
    rack.set(Role::Compressor, kSoloOffset, 1.0);
    EXPECT_EQ(running(), "Comp:EQ:");
    rack.set(Role::Eq, kSoloOffset, 0.49);
    rack.set(Role::Compressor, kSoloOffset, 0.0);
    EXPECT_EQ(running(), "Pre:Flt:Gate:EQ:Lim:Mstr:");
    rack.set(Role::Compressor, kMuteOffset, 0.0);
    rack.take();
    rack.set(Role::Limiter, kTypeOffset, 1.0);
    EXPECT_EQ(rack.take().front(), "Lim: set 192 1");
    EXPECT_EQ(running(), "Pre:Flt:Gate:Comp:EQ:Lim:Mstr:");
}

TEST(Rack, MonitorStopsTheWalkBehindItsModule)
{
    RecordingRack rack;
    const auto walk = [&rack] {
        rack.take();
        rack.run(64);
        return rack.take("process");
    };
    const auto first = [](std::ptrdiff_t count) {
        return Log(kHomeOrder.begin(), kHomeOrder.begin() + count);
    };
    rack["EQ:"].gain = 4.0;
    rack.take();
    rack.set(Role::Expander, kMonitorOffset, 1.0);
    EXPECT_EQ(rack.take(), Log{"Gate: set 85 1"});
    EXPECT_EQ(walk(), first(3));
    EXPECT_EQ(rack.run(1), std::vector<double>{1.0});
    rack.set(Role::Eq, kMonitorOffset, 1.0);
    EXPECT_EQ(walk(), first(5)) << "the last one set counts";
    rack.set(Role::Eq, kMonitorOffset, 0.0);
    EXPECT_EQ(walk(), first(5)) << "while another monitor is on the last one stays";
    rack.set(Role::Expander, kMonitorOffset, 0.0);
    EXPECT_EQ(walk(), kHomeOrder);

    rack.set(Role::Filters, kMonitorOffset, 1.0);
    rack.set(Role::Eq, kSoloOffset, 1.0);
    EXPECT_EQ(walk(), first(2)) << "a module at rest ends the walk too";
    rack.set(Role::Filters, kMonitorOffset, 0.0);
    rack.set(Role::InsertX, kMonitorOffset, 1.0);
    EXPECT_EQ(walk(), kHomeOrder) << "an empty insert stops nothing";
}

TEST(Rack, RoutesIdsToTheirOwnersAlone)
{
    RecordingRack rack;
    rack.effect.setParameter(304, 49.0 / 255.0);
    rack.take();
    for (const std::int32_t id : {-1, 1, 15, 351, 352, 360, 399, 411, 412, 422, 423, 438, 818, 100000})
        rack.effect.setParameter(id, 0.5);
    EXPECT_TRUE(rack.take().empty());
    rack.effect.setParameter(350, 0.5);
    rack.effect.setParameter(393, 1.0);
    rack.effect.setParameter(130, 7.0);
    rack.effect.setParameter(130, std::nan(""));
    EXPECT_EQ(rack.take(), (Log{"Y49 set 350 0.5", "Mstr: set 393 1", "Comp: set 130 1"}));
}

TEST(Rack, ClampsTheRateAndTellsOnlyAChange)
{
    RecordingRack rack;
    rack.take();
    EXPECT_TRUE(rack.effect.setSampleRate(44100.0));
    EXPECT_TRUE(rack.take().empty());
    EXPECT_TRUE(rack.effect.setSampleRate(96001.0));
    EXPECT_EQ(rack.take(),
              eachModule({"Pre:", "Flt:", "Gate:", "Comp:", "EQ:", "Lim:", "Mstr:"}, "rate 96001"));
    EXPECT_EQ(rack.effect.getHalfSampleRate(), 48000);
    EXPECT_EQ(rack.effect.getLatency(), 0);
    for (const double low : {44099.9, 0.0, -HUGE_VAL, std::nan("")}) {
        EXPECT_FALSE(rack.effect.setSampleRate(low));
        EXPECT_EQ(rack.take().front(), "Pre: rate 44100");
    }
    EXPECT_FALSE(rack.effect.setSampleRate(1e9));
    EXPECT_EQ(rack.effect.getHalfSampleRate(), 192000);
}

} // namespace
} // namespace velmora::test
