#include "params/catalogue.h"
#include "presets/factory_bank.h"
#include "presets/preset.h"

#include <gtest/gtest.h>
#include <string>

namespace velmora::test {
namespace {

struct Answer {
    std::array<double, kHostParameterCount> values{};
    std::string name;
    PresetOrigin origin;
};

Answer ask(std::uint32_t id)
{
    Answer answer;
    char name[kPresetNameSize];
    std::fill(std::begin(name), std::end(name), 'x');
    answer.values.fill(-1.0);
    factoryPreset(id, answer.values.data(), name, &answer.origin);
    answer.name = name;
    return answer;
}

/// Types by role of the ids that set nothing but Types over the defaults.
struct TypeRow {
    std::uint32_t id;
    const char* name;
    std::array<double, kRoleCount> types;
};

TEST(FactoryBank, RowsOfTypesSetNothingElseOverTheDefaults)
{
    const TypeRow rows[] = {
        {1, "Let's start from scratc", {0.0625, 0, 0, 0, 0, 0, 0.0625, 0, 0}},
        {2, "Drums Init", {0.1875, 0.0625, 0.125, 0.125, 0.0625, 0.0625, 0.0625, 0, 0}},
        {10001, "Broadcast Init", {0.1875, 0.0625, 0.0625, 0.0625, 0.0625, 0.0625, 0.0625, 0, 0}},
    };
    for (const TypeRow& row : rows) {
        Answer answer = ask(row.id);
        EXPECT_EQ(answer.name, row.name);
        EXPECT_EQ(answer.origin.category, -1);
        EXPECT_EQ(answer.origin.designer, 22);
        for (std::size_t role = 0; role < row.types.size(); ++role) {
            const auto type = static_cast<std::size_t>(kRoleWindows[role].windowBase);
            EXPECT_EQ(answer.values[type], row.types[role]) << row.name << " role " << role;
            answer.values[type] = defaultValue(kRoleWindows[role].windowBase);
        }
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            EXPECT_EQ(answer.values[static_cast<std::size_t>(id)], defaultValue(id)) << id;
    }
}

TEST(FactoryBank, EveryOtherIdIsAllDefaults)
{
    for (const std::uint32_t id : {0u, 233u, 234u, 10000u, 10003u, 0xFFFFFFFFu}) {
        const Answer answer = ask(id);
        EXPECT_EQ(answer.name, id == 0 ? "Default" : "Init");
        EXPECT_EQ(answer.origin.designer, 22);
        for (ParameterId p = 0; p < kHostParameterCount; ++p)
            EXPECT_EQ(answer.values[static_cast<std::size_t>(p)], defaultValue(p)) << p;
    }
    factoryPreset(0, nullptr, nullptr, nullptr);
}

TEST(FactoryBank, StartInitKeepsThePositionsAPermutation)
{
    const Answer answer = ask(10002);
    EXPECT_EQ(answer.name, "Init");
    EXPECT_EQ(answer.origin.category, 7);
    EXPECT_EQ(answer.origin.designer, 0);
    EXPECT_EQ(answer.values[0], 1.0);
    EXPECT_EQ(answer.values[16], 0.25);
    EXPECT_EQ(answer.values[17], 0.125);
    unsigned seen = 0;
    for (const RoleWindow& window : kRoleWindows)
        seen |=
            1u << static_cast<int>(answer.values[static_cast<std::size_t>(window.windowBase + 1)] * 8 + 0.5);
    EXPECT_EQ(seen, 0x1FFu);
}

TEST(PresetNames, AreCutInFrontOfACharacterThatDoesNotFit)
{
    const auto cut = [](std::string_view text) {
        return std::string(Preset{.name = makePresetName(text), .values = {}}.title());
    };
    const std::string letters(22, 'a');
    EXPECT_EQ(cut(letters + "b"), letters + "b");
    EXPECT_EQ(cut(letters + "bc"), letters + "b");
    EXPECT_EQ(cut(letters + "\xC3\xA4"), letters);
    EXPECT_EQ(cut(letters.substr(1) + "\xC3\xA4z"), letters.substr(1) + "\xC3\xA4");
    EXPECT_EQ(cut(std::string(30, '\x80')), std::string(23, '\x80'));
    EXPECT_EQ(cut(std::string_view("ab\0cd", 5)), "ab");
}

} // namespace
} // namespace velmora::test
