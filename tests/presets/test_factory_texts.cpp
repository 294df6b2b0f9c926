#include "params/catalogue.h"
#include "presets/factory/row_builder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmora::factory {
namespace {

const std::string kHead =
    "preset 5 \"Kick B52\"\n  designer 2\n  rack Pre Flt Gate Comp EQ Lim Mstr InsX InsY\n";

struct Built {
    FactoryTableRow row{};
    std::vector<std::string> faults;

    double value(ParameterId id) const
    {
        std::size_t index = 0;
        for (ParameterId p = 0; p < id; ++p) index += isStored(p) ? 1 : 0;
        return row.values.at(index) / kTableSteps;
    }
};

Built build(const std::string& text)
{
    Faults faults;
    Built built;
    for (const AuthoredPreset& preset : readAuthorText("kick.presets", text, faults))
        built.row = buildRow(preset, faults);
    built.faults = faults.lines();
    return built;
}

TEST(FactoryTexts, SettingsAreReadAsTheDisplaysShowThem)
{
    const Built built = build("# kick\n" + kHead +
                              "  Pre Pre 70s; Drive 6; PhaseL On\n"
                              "  Comp VCA Levelor; Side Chain Ext AUX; Ratio 4; HPF Off\n"
                              "  EQ Sorrel; LO Freq 100; LO Gain -3; HI In Out\n"
                              "  InsX De-esser; Range -6\n"
                              "  InsY code 230\n");
    EXPECT_EQ(built.faults, std::vector<std::string>{});
    EXPECT_EQ(built.row.id, 5U);
    EXPECT_EQ(parameterDisplay(16, built.value(16)), "Pre 70s");
    EXPECT_EQ(parameterDisplay(40, built.value(40)), "6.0");
    EXPECT_EQ(built.value(37), 1.0);
    EXPECT_EQ(built.value(116), 1.0);
    EXPECT_EQ(parameterDisplay(131, built.value(131)), "4.0:1");
    EXPECT_EQ(built.value(134), 0.0);
    EXPECT_EQ(built.value(160), 0.0);
    EXPECT_EQ(parameterDisplay(173, built.value(173)), "-3.0");
    EXPECT_EQ(parameterDisplay(256, built.value(256)), "De-esser");
    EXPECT_EQ(built.value(272), std::round(moduleDefault(113, 16) * 1e4) / 1e4);
    EXPECT_EQ(moduleValueText(113, 19, built.value(275)), "-6.0");
    EXPECT_EQ(built.value(304), 0.9023);
    EXPECT_EQ(built.value(320), 0.0);
}

TEST(FactoryTexts, EveryFaultIsOneLineWithItsPlace)
{
    struct Case {
        std::string text;
        std::string fault;
    };
    const Case cases[] = {
        {"Pre Gain\n", "1: stands in front of the first preset: \"Pre\""},
        {"preset x\n", "1: expected: preset ID \"NAME\""},
        {kHead + "wire 3\n", "4: unknown word: \"wire\""},
        {kHead + "ids some\n", "4: ids are all or few, not: \"some\""},
        {kHead + "process 0.4\n", "4: process is a number of 0.5 to 1"},
        {kHead + "rack Pre\n", "4: a second rack line"},
        {kHead + "Pre Pre 75s\n", "4: no module of this role: \"Pre 75s\""},
        {kHead + "InsX code 17\n", "4: no module of this role: \"code 17\""},
        {kHead + "Pre Gain\nPre Gain\n", "5: a second line for the same role"},
        {kHead + "EQ Sorrel; LO Gian 3\n", "4: no parameter for: \"LO Gian 3\""},
        {kHead + "EQ Sorrel; LO Gain 50\n", "4: refused: \"LO Gain 50\""},
        {kHead + "EQ Sorrel; LO Gain 3; LO Gain 4\n", "4: stands twice: \"LO Gain 4\""},
        {kHead + "EQ Sorrel; LO Freq 600\n", "4: shows as 400: \"LO Freq 600\""},
        {kHead + "EQ Sorrel; HI Freq abc\n", "4: shows as 1k4: \"HI Freq abc\""},
        {kHead + "Lim Saturator; Smooth 20\n", "4: the preset leaves this id alone: \"Smooth 20\""},
        {kHead + "Lim Saturator; Attack\n", "4: no parameter for: \"Attack\""},
        {"preset 233 \"Init\"\ndesigner 0\nrack Pre Flt Gate Comp EQ Lim Mstr InsX InsY\n",
         "1: no factory preset has the id 233"},
        {"preset 6 \"Kick B52\"\ndesigner 0\nrack Pre Flt Gate Comp EQ Lim Mstr InsX InsY\n",
         "1: preset 6 is called: \"Subkick Yama\""},
        {"preset 5 \"Kick B52\"\ndesigner 23\nrack Pre Flt Gate Comp EQ Lim Mstr InsX InsY\n",
         "1: designer missing, or none of 0..22"},
    };
    for (const Case& wrong : cases) {
        const Built built = build(wrong.text);
        ASSERT_FALSE(built.faults.empty()) << wrong.text;
        EXPECT_EQ(built.faults.front(), "kick.presets:" + wrong.fault);
    }
}

} // namespace
} // namespace velmora::factory
