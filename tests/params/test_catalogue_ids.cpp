#include "params/catalogue.h"
#include "params/tables/module_tables.h"
#include "params/type_codes.h"

#include <gtest/gtest.h>

#include <iostream>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velmora {
namespace {

static_assert(noexcept(defaultValue(0)) && noexcept(parameterSteps(0)) && noexcept(
    parameterFlags(0)) && noexcept(moduleDefault(0, 0)) && noexcept(moduleKind(0)));

struct IdRange {
    ParameterId first, last;
};

constexpr IdRange kUnusedInWindows[]{
    {22, 31},   {43, 47},   {54, 63},   {75, 79},   {86, 95},   {107, 111},
    {118, 127}, {136, 143}, {150, 159}, {178, 191}, {198, 207}, {215, 216},
    {218, 219}, {222, 223}, {230, 239}, {244, 255}, {262, 271}, {310, 319},
};

bool isUnused(ParameterId id)
{
    if (id < 16 || id > 351) return id != 0;
    for (const IdRange& range : kUnusedInWindows)
        if (id >= range.first && id <= range.last) return true;
    return false;
}

TEST(CatalogueFlags, StoredIdsAreTheUsedOnesOfTheWindows)
{
    int stored = 0;
    int meters = 0;
    for (ParameterId id = -5; id <= kLastCommandId; ++id) {
        const bool meter = id >= 361 && id <= 423;
        EXPECT_EQ(parameterFlags(id), meter ? 2 : isUnused(id) ? 0 : 9) << id;
        stored += isStored(id);
        meters += (parameterFlags(id) & kMeterFlag) != 0;
    }
    std::cout << "stored ids " << stored << ", meters " << meters << "\n";
    EXPECT_EQ(stored, 192);
    EXPECT_EQ(meters, 63);
}

TEST(CatalogueNames, FollowTheirWindows)
{
    struct Case {
        ParameterId id;
        const char* name;
        const char* shortName;
        const char* label;
    };
    constexpr Case kCases[]{
        {0, "Process", "Process", ""},
        {1, "_dev_ 1", "_dev_ 1", ""},
        {16, "Pre:Type", "P:Type", ""},
        {22, "- [22]", "- [22]", ""},
        {32, "Pre:Gain", "P:Gain", " dB "},
        {42, "Pre:NoiseLevel", "P:NseLv", ""},
        {43, "Pre:-[27]", "P:-[27]", ""},
        {70, "Flt:Parametric Q", "F:PrmQ", " "},
        {99, "Gate:Hold", "G:Hold", "ms"},
        {113, "Comp:Position", "C:Posit", ""},
        {116, "Comp:Side Chain", "C:Side ", ""},
        {117, "Comp:Monitor", "C:Monit", ""},
        {133, "Comp:Makeup Gain", "C:Gain", ""},
        {171, "EQ:LM Q", "Q:LmQ", " "},
        {174, "EQ:LO Freq", "Q:LoFq", " Hz "},
        {191, "EQ:-[47]", "Q:-[47]", ""},
        {213, "Lim:Link", "L:Link", "  "},
        {215, "Lim:-[23]", "L:-[23]", ""},
        {217, "Lim:Mode", "Lim:Mod", ""},
        {222, "Lim:-[30]", "L:Bias", ""},
        {243, "Mstr:MeasurementPoint", "M:MeasP", " "},
        {262, "- [262]", "- [262]", ""},
        {257, "InsX:Position", "Ix:Posi", ""},
        {272, "InsX:Prm01", "Ix:Pm1", ""},
        {281, "InsX:Prm10", "Ix:Pm10", ""},
        {351, "InsY:Prm32", "Iy:Pm32", ""},
        {352, "_dev_ 352", "_dev_ 3", ""},
        {360, "_dev_ 360", "_dev_ 3", ""},
        {363, "Pre:PstGainMeter", "P:PstGn", ""},
        {365, "Pre:InSatMeter", "P:InSat", ""},
        {370, "Flt:xm2", "F:xm2", ""},
        {377, "Comp:GRMeter", "C:GrM", ""},
        {381, "EQ:xm1", "Q:xm1", ""},
        {389, "Mstr:Peak L", "M:PeakL", " "},
        {392, "Mstr:RMS R", "M:RMS R", " "},
        {398, "Mstr:xm6", "M:xm6", ""},
        {410, "InsX:Mtr11", "Ix:Mt11", ""},
        {411, "InsY:Mtr0", "Iy:Mt0", ""},
        {423, "Gain-Reduction Meter", "GR Mtr", " dB "},
        {438, "_dev_ 438", "_dev_ 4", ""},
        {818, "_dev_ 818", "_dev_ 8", ""},
    };
    for (const Case& c : kCases) {
        EXPECT_EQ(parameterName(c.id), c.name);
        EXPECT_EQ(parameterShortName(c.id), c.shortName) << c.name;
        EXPECT_EQ(parameterLabel(c.id), c.label) << c.name;
    }
}

TEST(CatalogueNames, AreUniqueAndFindTheirId)
{
    std::set<std::string> names;
    for (ParameterId id = 0; id < kIdCount; ++id) {
        const std::string name = parameterName(id);
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_LE(parameterShortName(id).size(), 7u);
        if (id <= kTotalGainReductionId) {
            EXPECT_EQ(findParameter(name), id);
        }
    }
    for (const char* name : {"", "Mstr:gain", "Mstr:Gain ", "Gain", "_dev_ 818"})
        EXPECT_FALSE(findParameter(name)) << name;
}

TEST(CatalogueDefaults, ListedOnesStandAndTheRestIsZero)
{
    const std::map<ParameterId, double> kListed{
        {0, 1.0},     {16, 0.25}, {48, 0.0625}, {112, 0.125}, {144, 0.0625}, {49, 0.125}, {81, 0.25},
        {113, 0.375}, {145, 0.5}, {193, 0.625}, {225, 0.75},  {257, 0.875},  {305, 1.0},  {32, 0.5},
        {34, 0.5},    {35, 1.0},  {39, 1.0},    {40, 0.5},    {42, 0.5},     {64, 1.0},   {65, 1.0},
        {66, 0.5},    {67, 1.0},  {68, 0.5},    {69, 0.5},    {70, 0.5},     {71, 0.5},   {72, 1.0},
        {74, 0.5},    {96, 0.5},  {97, 0.5},    {98, 0.5},    {99, 0.5},     {100, 0.5},  {101, 0.5},
        {106, 1.0},   {128, 0.5}, {129, 0.5},   {130, 0.5},   {131, 0.5},    {132, 1.0},  {133, 0.145},
        {134, 0.5},   {135, 1.0}, {160, 1.0},   {161, 0.5},   {162, 0.5},    {164, 1.0},  {165, 0.5},
        {166, 0.5},   {167, 0.5}, {168, 1.0},   {169, 0.5},   {170, 0.5},    {171, 0.5},  {172, 1.0},
        {173, 0.5},   {174, 0.5}, {176, 0.5},   {177, 1.0},   {208, 0.5},    {209, 0.5},  {210, 0.8},
        {211, 0.5},   {220, 0.5}, {221, 0.2},   {222, 0.5},   {240, 0.5},    {241, 0.5},  {242, 0.7511},
        {243, 0.625},
    };
    for (ParameterId id = -1; id <= kLastCommandId; ++id) {
        const auto listed = kListed.find(id);
        EXPECT_EQ(defaultValue(id), listed == kListed.end() ? 0.0 : listed->second) << id;
    }
}

TEST(CatalogueDefaults, AnInsertTakesThoseOfItsModule)
{
    for (const RoleWindow& window : kRoleWindows) {
        if (isInsert(window.role)) continue;
        const std::int32_t code = (static_cast<std::int32_t>(window.kind) - 1) * 16 + 1;
        for (ParameterId id = window.windowBase + kOwnOffset; id < window.windowEnd; ++id)
            EXPECT_EQ(moduleDefault(code, id - window.windowBase), defaultValue(id)) << id;
    }
    EXPECT_EQ(moduleDefault(kDeesserCode, 16), 0.636715681427498);
    EXPECT_EQ(moduleDefault(kDeesserCode, 19), 0.5);
    EXPECT_EQ(moduleDefault(kDeesserCode, 20), 0.0);
    EXPECT_EQ(moduleDefault(kDehummerCode, 19), 1.0);
    EXPECT_EQ(moduleDefault(kDehummerCode, 20), 0.5);
    EXPECT_EQ(moduleDefault(kMarlowCode, 24), 0.5);
    for (const std::int32_t code : {-1, 0, 6, 20, 116, 255, 1 << 30}) EXPECT_EQ(moduleDefault(code, 16), 0.0);
    for (const ParameterId offset : {-1, 0, 4, 5, 15, 25, 47, 48})
        EXPECT_EQ(moduleDefault(kMarlowCode, offset), 0.0);
}

TEST(CatalogueSteps, FollowTheRows)
{
    const std::map<ParameterId, int> kCases{
        {0, 1},     {16, 15},   {224, 15},  {256, 256},  {304, 256}, {17, 8},    {305, 8},   {18, 1},
        {261, 1},   {22, 0},    {32, 600},  {34, 300},   {41, 2},    {65, 520},  {71, 4},    {98, 10},
        {99, 480},  {130, 500}, {133, 400}, {134, 300},  {161, 360}, {162, 540}, {163, 2},   {210, 200},
        {211, 400}, {215, 0},   {217, 10},  {220, 1000}, {222, 480}, {240, 200}, {241, 100}, {242, 800},
        {243, 3},   {272, 0},   {351, 0},   {360, 0},    {423, 0},   {792, 0},
    };
    for (const auto& [id, steps] : kCases) EXPECT_EQ(parameterSteps(id), steps) << id;
}

/// A fine wheel step of a panel is one step of the host.
TEST(CatalogueSteps, FineWheelStepIsTheHostStep)
{
    int wheels = 0;
    for (const ModuleType& type : moduleTypes()) {
        for (const ParameterRow& row : rowsOfCode(type.code)) {
            if (row.wheel.steps == 0) continue;
            ++wheels;
            EXPECT_NEAR(moduleSteps(type.code, row.offset) / moduleFine(type.code, row.offset), row.hostSteps,
                        1e-9)
                << type.listName << " " << row.word;
        }
    }
    std::cout << "wheels checked over all modules " << wheels << "\n";
    EXPECT_EQ(moduleSteps(kDeesserCode, 20), 0); // a switch
    EXPECT_EQ(moduleFine(kDeesserCode, 20), 0.0);
    EXPECT_EQ(moduleSteps(97, 17), 50);
}

} // namespace
} // namespace velmora
