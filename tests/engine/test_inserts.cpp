#include "params/type_codes.h"
#include "tests/engine/recording_rack.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

double typeValue(std::int32_t code)
{
    return code / 255.0;
}

Log without(Log lines, std::string_view word)
{
    std::erase_if(lines, [word](const std::string& line) { return line.find(word) != std::string::npos; });
    return lines;
}

/// Calls that one instance got since the last look.
Log callsOf(RecordingRack& rack, std::string_view name)
{
    Log lines = rack.take(text(name, " "));
    return lines;
}

TEST(InsertBank, HoldsOneInstancePerCodeWithItsVariantSet)
{
    RecordingRack rack;
    for (const char insert : {'X', 'Y'}) {
        for (const ModuleType& type : moduleTypes()) {
            const RecordingModule& module = rack[text(insert, type.code)];
            const std::uint32_t base = insert == 'X' ? 256 : 304;
            if (type.kind == ModuleKind::Output || type.kind == ModuleKind::Special)
                EXPECT_TRUE(module.values.empty()) << module.name;
            else
                EXPECT_EQ(module.values.at(base), type.variant / 15.0) << module.name;
        }
    }
}

TEST(InsertBank, HasNothingOutsideItsCodes)
{
    const InsertBank bank({nullptr, [](std::int32_t, const ModuleBases&) { return nullptr; }},
                          {256, 399, 711});
    for (std::int32_t code = -2; code <= 300; ++code) ASSERT_EQ(bank[code], nullptr);
}

TEST(InsertSwap, AnotherKindStartsFromDefaultsAndTheMirrorsSwitches)
{
    RecordingRack rack;
    rack.effect.setSampleRate(88200.0);
    rack.effect.setParameter(260, 1.0);
    rack.effect.setParameter(261, 0.25);
    rack.effect.setParameter(280, 0.75);
    rack.take();
    rack.effect.setParameter(256, typeValue(49));
    EXPECT_EQ(callsOf(rack, "X49"), (Log{"X49 rate 88200", "X49 activate", "X49 defaults", "X49 set 260 1",
                                         "X49 set 261 0.25", "X49 reset", "X49 activate"}));
    rack.run(64);
    EXPECT_EQ(rack.take().back(), "X49 process 64");

    rack.effect.setParameter(256, typeValue(49));
    EXPECT_EQ(rack.take(), Log{"X49 resetMeters"}) << "the same code again";

    // Specials share a kind but no parameters.
    rack.effect.setParameter(256, typeValue(113));
    rack.effect.setParameter(256, typeValue(114));
    EXPECT_EQ(callsOf(rack, "X114")[2], "X114 defaults");
}

TEST(InsertSwap, AnotherVariantTakesOverTheMirror)
{
    for (const Role role : {Role::InsertX, Role::InsertY}) {
        RecordingRack rack;
        const std::string prefix = role == Role::InsertX ? "X" : "Y";
        const ParameterId base = roleWindow(role).windowBase;
        rack.set(role, kTypeOffset, typeValue(2));
        for (ParameterId offset = kSideChainOffset; offset < 48; ++offset)
            rack.set(role, offset, offset / 64.0);
        rack.take();
        rack.set(role, kTypeOffset, typeValue(3));
        Log expected{prefix + "3 rate 44100", prefix + "3 activate"};
        for (ParameterId offset = kSideChainOffset; offset < 48; ++offset)
            expected.push_back(text(prefix, "3 set ", base + offset, " ",
                                    base + offset == 351 ? 0.0 : offset / 64.0)); // 351 is never stored
        expected.push_back(prefix + "3 reset");
        expected.push_back(prefix + "3 activate");
        EXPECT_EQ(callsOf(rack, prefix + "3"), expected);

        // There and back: the first instance learns what changed meanwhile.
        rack.set(role, 20, 0.875);
        rack.set(role, kTypeOffset, typeValue(2));
        EXPECT_EQ(rack[prefix + "2"].values.at(static_cast<std::uint32_t>(base + 20)), 0.875);
        rack.take();
        rack.run(64);
        EXPECT_EQ(rack.take(prefix), Log{prefix + "2 process 64"});
    }
}

TEST(InsertSwap, ACodeWithoutAModuleEmptiesTheInsert)
{
    RecordingRack rack;
    for (const double value : {0.0, typeValue(6), typeValue(200), 1.0, 7.0, -3.0}) {
        rack.effect.setParameter(304, typeValue(49));
        rack["Y49"].meters[0] = 0.5;
        EXPECT_EQ(rack.meter(411), 0.5);
        rack.effect.setParameter(304, value);
        rack.take();
        rack.effect.setParameter(330, 0.5);
        rack.run(64);
        EXPECT_EQ(without(rack.take(), ":"), Log{}) << value;
        EXPECT_EQ(rack.meter(411), 0.0);
        // Coming from nothing the mirror's own parameters aren't used.
        rack.effect.setParameter(304, typeValue(50));
        EXPECT_EQ(callsOf(rack, "Y50")[2], "Y50 defaults");
    }
}

TEST(InsertSwap, KeepsPlaceActivityAndLosesTheMonitor)
{
    RecordingRack rack;
    rack.set(Role::InsertX, kTypeOffset, typeValue(65));
    rack.set(Role::InsertX, kPositionOffset, 0.0);
    rack.set(Role::Input, kPositionOffset, 7.0 / 8.0);
    rack.set(Role::InsertX, kMuteOffset, 1.0);
    rack.set(Role::InsertX, kMonitorOffset, 1.0);
    rack.take();
    rack.run(64);
    EXPECT_EQ(rack.take("process"), Log{"X65 process 64"});
    rack.set(Role::InsertX, kTypeOffset, typeValue(66));
    EXPECT_FALSE(rack["X66"].isActive()) << "the mute applies to the newcomer";
    rack.take();
    rack.run(64);
    const Log walk = rack.take("process");
    EXPECT_EQ(walk.size(), 8U) << "the monitored instance left the chain";
    EXPECT_EQ(walk.front(), "X66 process 64");
}

TEST(GainReduction, MultipliesWhatReducesGain)
{
    RecordingRack rack;
    rack["Comp:"].meters[2] = 0.5;
    rack["Lim:"].meters[2] = 0.2;
    rack["Gate:"].meters[2] = 0.9;
    rack["X81"].meters[2] = 0.1;
    rack["Y50"].meters[2] = 0.4;
    rack["Y34"].meters[2] = 0.7;
    const auto total = [&rack] {
        rack.run(0);
        return rack.meter(kTotalGainReductionId);
    };
    EXPECT_DOUBLE_EQ(total(), 1.0 - 0.5 * 0.8);
    rack.effect.setParameter(256, typeValue(81));
    rack.effect.setParameter(304, typeValue(50));
    EXPECT_DOUBLE_EQ(total(), 1.0 - 0.5 * 0.8 * 0.9 * 0.6);
    rack.effect.setParameter(304, typeValue(34));
    EXPECT_DOUBLE_EQ(total(), 1.0 - 0.5 * 0.8 * 0.9) << "a gate doesn't count";
    rack["Comp:"].meters[2] = 3.0;
    EXPECT_EQ(total(), 1.0);
    rack.effect.reset();
    EXPECT_EQ(rack.meter(kTotalGainReductionId), 0.0);
}

TEST(Meters, AnswerTheirIdsClampedAndNoOthers)
{
    RecordingRack rack;
    rack.effect.setParameter(256, typeValue(1));
    rack.effect.setParameter(304, typeValue(1));
    for (auto& [name, module] : rack.modules) module->meters[1] = 1.5;
    for (ParameterId id = -1; id < 900; ++id) {
        const RoleWindow* owner = meterWindowOf(id);
        if (owner != nullptr && id <= 421)
            EXPECT_EQ(rack.meter(id), id == owner->meterBase + 1 ? 1.0 : 0.0) << id;
        else
            EXPECT_EQ(rack.meter(id), id == 423 ? 0.0 : -1.0) << id;
    }
    rack["Pre:"].meters[0] = -0.5;
    EXPECT_EQ(rack.meter(361), 0.0);
}

} // namespace
} // namespace velmora::test
