#include "params/catalogue.h"
#include "params/module_presets.h"
#include "params/tables/module_tables.h"
#include "params/type_codes.h"

#include <gtest/gtest.h>

#include <array>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace velmora {
namespace {

static_assert(noexcept(applyModulePreset(0, 0, std::declval<std::span<double, kModuleWindowSize>>())));

using Window = std::array<double, kModuleWindowSize>;

/// First Type code of each module, and the offset behind the last value that its panel writes.
struct Module {
    std::int32_t code;
    ParameterId end;
    std::vector<std::string_view> names;
};

const std::vector<Module> kModules{
    {1,
     32,
     {"Default", "Clean", "Soft", "Saturated", "Driven", "Analog", "Clean [-18dB]", "Soft [-18dB]",
      "Saturated [-18dB]", "Driven [-18dB]", "Analog [-18dB]"}},
    {17,
     32,
     {"Default", "Vocal Basic", "Acoustic Gtr Basic", "Electric Guitar Basic", "Bass Guitar Basic",
      "Piano Basic", "Horn Basic", "Snare Basic", "Kick Basic", "OverHeads Basic"}},
    {33,
     32,
     {"Default", "Kick 1", "Kick 2", "Kick 3", "Snare 1", "Snare 2", "Snare @Bottom 1", "Snare @Bottom 2",
      "Hi-Hat 1", "Hi-Hat 2", "Init"}},
    {49,
     32,
     {"Default", "Soft comp", "Density", "Master Track", "Fast Limit", "Hard Limit", "Slow Limit", "Squeezer",
      "Destructor", "Parallel"}},
    {65,
     48,
     {"Default", "A little help", "Walking Low End", "Opened like piano", "Darker", "Warmer, brighter",
      "Extra presence", "Warmer", "Telefunkenstein", "Not so boxy", "Future preset"}},
    {81,
     32,
     {"Default", "Density", "Full Bass Control", "Almost Brickwall", "Fat Bass", "A little smash", "Kick It",
      "Funky", "Group", "Walking Bass"}},
    {97, 32, {"Default", "Init", "Init", "Init", "Init", "Init", "Init", "Init", "Init", "Init"}},
    {kDeesserCode,
     22,
     {"Default", "Voice 1", "Voice 2", "Voice 3", "Wind 1", "Wind 2", "Drum Resonance 1", "Drum Resonance 2",
      "Drum Resonance 3", "Hi-Hat"}},
    {kDehummerCode,
     21,
     {"Default", "USA basic", "China basic", "India basic", "Japan 1", "Japan 2", "Europe basic",
      "Australia basic", "Venezuela", "Nepal"}},
    {kMarlowCode,
     25,
     {"Default", "Acc Gtr Res Cntr 1", "Acc Gtr Res Cntr 2", "Brighten Up", "Deessing 1",
      "High Shelf Control", "Low Extension", "Plosive Control", "Snr Springs Ext", "Init"}},
};

Window windowOfPreset(std::int32_t code, int index)
{
    Window window;
    window.fill(-1.0);
    applyModulePreset(code, index, window);
    return window;
}

Window defaultsOf(std::int32_t code)
{
    Window window{};
    for (const ParameterRow& row : rowsOfCode(code)) window[row.offset] = row.defaultValue;
    return window;
}

int indexOf(std::int32_t code, std::string_view name)
{
    const auto presets = modulePresets(code);
    for (std::size_t i = 0; i < presets.size(); ++i)
        if (presets[i].name == name) return static_cast<int>(i);
    return -1;
}

TEST(ModulePresets, NamesStandInTheirOrder)
{
    for (const Module& module : kModules) {
        const auto presets = modulePresets(module.code);
        ASSERT_EQ(presets.size(), module.names.size()) << module.code;
        EXPECT_GE(presets.size(), kShownModulePresets) << module.code;
        for (std::size_t i = 0; i < presets.size(); ++i)
            EXPECT_EQ(modulePresetName(module.code, static_cast<int>(i)), module.names[i]);
    }
}

TEST(ModulePresets, EveryModuleHasThoseOfItsKind)
{
    for (const ModuleType& type : moduleTypes()) {
        ASSERT_FALSE(modulePresets(type.code).empty()) << type.code;
        const auto first =
            modulePresets(type.kind == ModuleKind::Special ? type.code : (type.code & ~15) + 1);
        EXPECT_EQ(modulePresets(type.code).data(), first.data()) << type.code;
    }
    EXPECT_TRUE(modulePresets(0).empty());
    EXPECT_TRUE(modulePresets(-1).empty());
    EXPECT_TRUE(modulePresets(112).empty());
}

TEST(ModulePresets, WriteStoredParametersOfTheModuleWithinTheirRange)
{
    for (const Module& module : kModules)
        for (const ModulePreset& preset : modulePresets(module.code)) {
            SCOPED_TRACE(std::to_string(module.code).append(" ").append(preset.name));
            ASSERT_EQ(preset.offsets.size(), preset.values.size());
            const std::set<ParameterId> offsets(preset.offsets.begin(), preset.offsets.end());
            EXPECT_EQ(offsets.size(), preset.offsets.size()) << "an offset twice";
            for (const ParameterId offset : offsets) {
                const ParameterRow* row = findRow(rowsOfCode(module.code), offset);
                ASSERT_TRUE(row) << offset;
                EXPECT_FALSE(row->reserved) << offset;
                EXPECT_TRUE(offset >= kOwnOffset && offset < module.end) << offset;
            }
            for (const double value : preset.values) EXPECT_TRUE(value >= 0.0 && value <= 1.0) << value;
        }
}

TEST(ModulePresets, TheWindowStartsFromTheDefaults)
{
    for (const Module& module : kModules) {
        const Window defaults = defaultsOf(module.code);
        for (const int index : {-1, 0, 11, 1000})
            EXPECT_EQ(windowOfPreset(module.code, index), defaults) << module.code << " " << index;
        EXPECT_EQ(modulePresetName(module.code, -1), "Init");
        EXPECT_EQ(modulePresetName(module.code, 11), "Init");

        const auto presets = modulePresets(module.code);
        for (std::size_t i = 0; i < presets.size(); ++i) {
            Window expected = defaults;
            for (std::size_t k = 0; k < presets[i].values.size(); ++k)
                expected[presets[i].offsets[k]] = presets[i].values[k];
            EXPECT_EQ(windowOfPreset(module.code, static_cast<int>(i)), expected) << presets[i].name;
            const bool plain = presets[i].name == "Default" || presets[i].name == "Future preset" ||
                               (presets[i].name == "Init" && module.code != 33);
            EXPECT_EQ(expected == defaults, plain) << presets[i].name;
        }
    }
    EXPECT_EQ(windowOfPreset(0, 1), Window{});
}

/// Rows of every table that was given, from the offset of their first value on.
TEST(ModulePresets, LandAtTheirOffsets)
{
    struct Row {
        std::int32_t code;
        std::string_view name;
        ParameterId first;
        std::vector<double> values;
    };
    const double q6 = moduleDefault(kDeesserCode, 17);
    const std::vector<Row> kRows{
        {1, "Clean", 16, {0.5, 0, 0.5, 1, 0, 0, 0, 0, 0.5, 0, 0.5}},
        {1, "Analog [-18dB]", 16, {0.5, 1, 0.6, 1, 1, 0, 0, 1, 0.7333, 0.5, 0.6667}},
        {17, "Electric Guitar Basic", 16, {1, 1, 0.5, 1, 0.5, 0.159, 0.5, 0.75, 1, 0.199, 0}},
        {17, "Piano Basic", 16, {1, 1, 0.5, 1, 0.5, 0.5, 0.5, 0.5, 1, 0.301, 0.5}},
        {33, "Snare 1", 16, {0.255, 0.365, 0.7225, 0.4517, 0.425, 0.5333, 0.3817, 1, 0, 1, 0.25}},
        {33, "Init", 16, std::vector<double>(11, 0.5)},
        {49, "Soft comp", 16, {0.3333, 0.301, 0.74, 0.1882, 1, 0.15, 0, 1}},
        {49, "Master Track", 16, {0.159, 0.301, 0.68, 0.7249, 0.75, 0.3, 1, 1}},
        {65, "Warmer", 16, {1, 0.445, 0.8, 0, 1, 0.5654, 0.3667, 0}},
        {65, "Warmer", 24, {0, 0.4661, 0.1732, 0.5, 1, 0.5684, 0.5446, 0, 0.4324, 1}},
        {kDeesserCode, "Voice 3", 16, {0.5936, q6, 0.4033, 0.3484, 0, 0}},
        {kDehummerCode, "Venezuela", 16, {0.5, 0.5, 0, 1, 0.5}},
        {kDehummerCode, "Nepal", 16, {0.5, 0.5, 0, 0, 0.5}},
        {kMarlowCode, "High Shelf Control", 16, {0.5, 0.2, 0.77, 0.25, 0.62, 0.51, 0.5, 1, 0.5}},
    };
    for (const Row& row : kRows) {
        const Window window = windowOfPreset(row.code, indexOf(row.code, row.name));
        for (std::size_t i = 0; i < row.values.size(); ++i)
            EXPECT_EQ(window[row.first + i], row.values[i]) << row.code << " " << row.name << " " << i;
    }
}

/// The limiter's settings in an engineer's units.
TEST(ModulePresets, LimiterSettingsAreWhatTheirUnitsSay)
{
    constexpr ParameterId kOffsets[]{16, 17, 18, 19, 20, 22, 25, 28, 29};
    struct Row {
        std::string_view name;
        std::string_view texts[std::size(kOffsets)];
    };
    constexpr Row kRows[]{
        {"Density", {"5", "80", "-16", "6", "60", "Soft", "Mode 3", "40", "Tape 1"}},
        {"Full Bass Control", {"3", "150", "-14", "4", "Off", "Soft", "Mode 3", "75", "Tape 2"}},
        {"Almost Brickwall", {"0.1", "30", "-6", "5", "Off", "-", "Mode 1", "0", "Hard Clip"}},
        {"Fat Bass", {"15", "100", "-18", "6", "150", "Soft", "Mode 3", "60", "Valve 2"}},
        {"A little smash", {"1", "25", "-16", "7", "40", "-", "Mode 2", "20", "Tape 2"}},
        {"Kick It", {"10", "40", "-10", "4", "Off", "-", "Mode 1", "30", "Soft Clip"}},
        {"Funky", {"8", "40", "-14", "5", "80", "Soft", "Mode 2", "30", "Tape 1"}},
        {"Group", {"5", "150", "-8", "3", "80", "Soft", "Mode 3", "60", "Tape 1"}},
        {"Walking Bass", {"10", "200", "-12", "3", "30", "Soft", "Mode 3", "80", "Valve 1"}},
    };
    constexpr std::int32_t kLimiter = 81;
    constexpr double kRounding = 5.1e-5; // values are written with four decimals
    EXPECT_EQ(std::size(kRows) + 1, modulePresets(kLimiter).size());
    for (const Row& row : kRows) {
        const Window window = windowOfPreset(kLimiter, indexOf(kLimiter, row.name));
        for (std::size_t i = 0; i < std::size(kOffsets); ++i) {
            const auto value = moduleParseText(kLimiter, kOffsets[i], row.texts[i]);
            ASSERT_TRUE(value) << row.name << " " << row.texts[i];
            EXPECT_NEAR(window[kOffsets[i]], *value, kRounding) << row.name << " " << row.texts[i];
        }
        // What stands at the ceiling leaves below full scale.
        const double ceilingDb = std::stod(moduleValueText(kLimiter, 18, window[18]));
        const double outputDb = std::stod(moduleValueText(kLimiter, 19, window[19]));
        EXPECT_LE(ceilingDb + outputDb, -1.0) << row.name;
    }
}

} // namespace
} // namespace velmora
