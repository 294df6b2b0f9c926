#include "params/catalogue.h"
#include "params/type_codes.h"
#include "presets/factory/factory_names.h"
#include "presets/factory_bank.h"
#include "presets/preset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

constexpr double kUntouched = -1.0;
constexpr std::uint32_t kDefaultsWithTypes[]{1, 2, 113, 133, 151, 169, 175, 184, 219};

struct Row {
    std::uint32_t id = 0;
    std::array<double, kHostParameterCount> values{};
    std::string name;
    PresetOrigin origin;

    double value(Role role, ParameterId offset) const
    {
        return values[static_cast<std::size_t>(roleWindow(role).windowBase + offset)];
    }
    int position(Role role) const { return static_cast<int>(value(role, kPositionOffset) * 8 + 0.5); }
    int insertCode(Role role) const { return insertCodeInController(value(role, kTypeOffset)); }
    /// The variant of a fixed module, the code of an insert.
    int typeCode(Role role) const
    {
        return isInsert(role) ? insertCode(role) : static_cast<int>(value(role, kTypeOffset) * 15 + 0.5);
    }
};

Row readRow(std::uint32_t id)
{
    Row row;
    row.id = id;
    row.values.fill(kUntouched);
    char name[kPresetNameSize];
    std::ranges::fill(name, 'x');
    factoryPreset(id, row.values.data(), name, &row.origin);
    row.name = name;
    return row;
}

/// The 223 rows of the table.
const std::vector<Row>& tableRows()
{
    static const std::vector<Row> rows = [] {
        std::vector<Row> all;
        for (std::uint32_t id = 3; id < kFactoryPresetCount; ++id)
            if (std::ranges::count(kDefaultsWithTypes, id) == 0) all.push_back(readRow(id));
        return all;
    }();
    return rows;
}

TEST(FactoryNames, AreTheListLetterByLetter)
{
    // FNV-1a over the names, a line feed behind each.
    std::uint64_t hash = 0xcbf29ce484222325;
    std::map<std::string_view, std::set<std::int32_t>> designers;
    std::map<std::string_view, int> uses;
    for (std::uint32_t id = 0; id < kFactoryPresetCount; ++id) {
        for (const char c : std::string(kFactoryNames[id]) + '\n')
            hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001b3;
        const Row row = readRow(id);
        EXPECT_EQ(row.name, kFactoryNames[id].substr(0, kPresetNameSize - 1));
        ++uses[kFactoryNames[id]];
        designers[kFactoryNames[id]].insert(row.origin.designer);
    }
    EXPECT_EQ(hash, 0x9c57f3c66803aeddu);
    std::set<std::string_view> recurring;
    for (const auto& [name, count] : uses) {
        if (count > 1) recurring.insert(name);
        EXPECT_EQ(designers[name].size(), static_cast<std::size_t>(count)) << name;
    }
    EXPECT_EQ(recurring, (std::set<std::string_view>{"Electric Piano", "HipHop Kick", "Male Lead",
                                                     "Rap Vocal", "Snare Drum"}));
}

TEST(FactoryRows, SetAllStoredIdsOrLeaveOutAFew)
{
    const std::set<ParameterId> saturation{217, 220, 221};
    int all = 0;
    int most = 0;
    int few = 0;
    for (const Row& row : tableRows()) {
        std::set<ParameterId> leftOut;
        for (ParameterId id = 0; id < kHostParameterCount; ++id) {
            const bool untouched = row.values[static_cast<std::size_t>(id)] == kUntouched;
            EXPECT_TRUE(isStored(id) || untouched) << row.id << " sets " << id;
            if (isStored(id) && untouched) leftOut.insert(id);
        }
        if (leftOut.empty())
            ++all;
        else if (leftOut == saturation)
            ++most;
        else if (std::ranges::includes(leftOut, saturation) && leftOut.size() <= 6)
            ++few;
    }
    EXPECT_EQ(all, 56);
    EXPECT_EQ(most, 159);
    EXPECT_EQ(few, 8);
}

TEST(FactoryRows, HoldFourDecimalsAndARackInOrder)
{
    int besideFull = 0;
    for (const Row& row : tableRows()) {
        for (const double value : row.values) {
            if (value == kUntouched) continue;
            EXPECT_TRUE(value >= 0.0 && value <= 1.0) << row.id;
            EXPECT_EQ(value, std::round(value * 1e4) / 1e4) << row.id;
        }
        unsigned positions = 0;
        for (const RoleWindow& window : kRoleWindows) {
            positions |= 1U << row.position(window.role);
            EXPECT_EQ(row.value(window.role, kPositionOffset), row.position(window.role) / 8.0) << row.id;
        }
        EXPECT_EQ(positions, 0x1FFU) << row.id;
        EXPECT_GE(row.values[kProcessId], 0.5) << row.id;
        if (row.values[kProcessId] != 1.0) {
            EXPECT_EQ(row.values[kProcessId], 0.5156) << row.id;
            ++besideFull;
        }
    }
    EXPECT_GE(besideFull, 1);
}

/// Type code and position of the nine roles.
struct TellingRow {
    std::uint32_t id;
    std::array<std::array<int, 2>, kRoleCount> roles;
};

TEST(FactoryRows, TellingRowsHaveTheirModulesAndOrder)
{
    const TellingRow telling[] = {
        {3, {{{2, 0}, {0, 4}, {0, 5}, {0, 6}, {1, 1}, {1, 2}, {1, 3}, {0, 7}, {0, 8}}}},
        {185, {{{3, 0}, {0, 7}, {0, 8}, {2, 1}, {3, 2}, {1, 5}, {1, 6}, {0, 4}, {113, 3}}}},
        {220, {{{0, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {0, 7}, {0, 8}, {19, 0}, {50, 1}}}},
        {229, {{{0, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {0, 7}, {1, 8}, {115, 0}, {115, 1}}}},
    };
    for (const TellingRow& expected : telling) {
        const Row row = readRow(expected.id);
        for (const RoleWindow& window : kRoleWindows) {
            const auto [code, position] = expected.roles[static_cast<std::size_t>(window.role)];
            EXPECT_EQ(row.typeCode(window.role), code) << row.id << ' ' << window.longPrefix;
            EXPECT_EQ(row.position(window.role), position) << row.id << ' ' << window.longPrefix;
        }
    }
}

TEST(FactoryRows, InsertsHoldEachModuleAsOftenAsTheBankWants)
{
    const std::map<int, int> expected{{113, 43}, {115, 30}, {92, 11}, {50, 11}, {49, 7}, {18, 6}, {114, 5},
                                      {65, 4},   {19, 4},   {34, 3},  {33, 3},  {17, 3}, {5, 3},  {51, 3},
                                      {67, 2},   {3, 2},    {230, 2}, {2, 1},   {35, 1}, {87, 1}};
    std::map<int, int> counts;
    std::vector<std::uint32_t> unknown;
    for (const Row& row : tableRows()) {
        for (const Role role : {Role::InsertX, Role::InsertY}) {
            const int code = row.insertCode(role);
            if (code != 0) ++counts[code];
            const double type = row.value(role, kTypeOffset);
            if (code == 230) {
                EXPECT_EQ(type, 0.9023);
                // The engine reads 231 here: by either form the insert stays empty.
                EXPECT_EQ(moduleKind(code), ModuleKind::Unknown);
                EXPECT_EQ(moduleKind(insertCodeInEngine(type)), ModuleKind::Unknown);
                unknown.push_back(row.id);
            } else {
                EXPECT_EQ(insertCodeInEngine(type), code) << row.id;
            }
            if (findModuleType(code)) continue;
            for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
                EXPECT_EQ(row.value(role, offset), 0.0) << row.id << " offset " << offset;
        }
    }
    EXPECT_EQ(counts, expected);
    EXPECT_EQ(unknown, (std::vector<std::uint32_t>{193, 195}));
}

TEST(FactoryRows, EveryFixedTypeIsAModuleOfItsKind)
{
    for (const Row& row : tableRows())
        for (const RoleWindow& window : kRoleWindows) {
            const int code = row.typeCode(window.role);
            EXPECT_TRUE(isInsert(window.role) || code == 0 || variantName(window.kind, code) != "-")
                << row.id << ' ' << window.longPrefix;
        }
}

TEST(FactoryRows, DefaultsWithTypesSetLittleElse)
{
    for (const std::uint32_t id : kDefaultsWithTypes) {
        const Row row = readRow(id);
        EXPECT_EQ(row.origin.category, -1);
        EXPECT_EQ(row.origin.designer, kHouseDesigner);
        int others = 0;
        for (ParameterId p = 0; p < kHostParameterCount; ++p) {
            const RoleWindow* window = windowOf(p);
            const bool isType = window && p == window->windowBase;
            if (!isType && row.values[static_cast<std::size_t>(p)] != defaultValue(p)) ++others;
        }
        EXPECT_EQ(others > 0, id == 184) << id;
        EXPECT_LE(others, 6) << id;
        EXPECT_EQ(row.value(Role::Output, kTypeOffset), 0.0625) << id;
        for (const Role role : {Role::InsertX, Role::InsertY}) EXPECT_EQ(row.insertCode(role), 0) << id;
    }
}

TEST(FactoryOrigins, CategoriesHoldTheirPresets)
{
    const std::array<std::size_t, kCategoryCount> sizes{111, 18, 18, 18, 6, 8, 32, 10};
    const std::map<std::uint32_t, std::int32_t> edges{
        {85, 0},  {86, 4},  {112, 0}, {123, 1},  {124, 3},  {125, 1}, {150, 2}, {186, 6}, {187, 2},
        {188, 7}, {189, 6}, {223, 7}, {224, -1}, {225, -1}, {226, 0}, {227, 0}, {228, 7}, {0, -1}};
    std::array<std::size_t, kCategoryCount> counts{};
    for (std::uint32_t id = 0; id < 235; ++id) {
        PresetOrigin origin;
        factoryPreset(id, nullptr, nullptr, &origin);
        if (origin.category >= 0) ++counts.at(static_cast<std::size_t>(origin.category));
        EXPECT_TRUE(origin.designer >= 0 && origin.designer < 23) << id;
        if (const auto edge = edges.find(id); edge != edges.end()) {
            EXPECT_EQ(origin.category, edge->second) << id;
        }
        const bool house = origin.category == -1;
        EXPECT_EQ(origin.designer == kHouseDesigner, house) << id;
        if (id >= 229 && id <= 231) {
            EXPECT_EQ(origin.designer, 0) << id;
        }
    }
    EXPECT_EQ(counts, sizes);
}

TEST(FactoryOrigins, CategoryNamesAndDesigners)
{
    char text[64];
    factoryCategoryName(7, text);
    EXPECT_STREQ(text, "Special");
    for (const std::uint32_t beyond : {8U, 0xFFFFFFFFU}) {
        factoryCategoryName(beyond, text);
        EXPECT_STREQ(text, "");
    }
    std::set<std::string> names;
    for (std::uint32_t index = 0; index < kDesignerCount; ++index) {
        FactoryDesigner designer;
        factoryDesigner(index, &designer);
        EXPECT_NE(designer.portrait, nullptr) << index;
        EXPECT_TRUE(std::string_view(designer.address.data()).ends_with(".example")) << index;
        EXPECT_EQ(designer.name.front() == '\0', index == 22) << index;
        names.insert(designer.name.data());
    }
    EXPECT_EQ(names.size(), kDesignerCount);
    FactoryDesigner beyond;
    beyond.name.fill('x');
    factoryDesigner(23, &beyond);
    EXPECT_EQ(beyond.portrait, nullptr);
    EXPECT_STREQ(beyond.name.data(), "");
}

} // namespace
} // namespace velmora::test
