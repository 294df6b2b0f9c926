#include "tools/presets/preset_sheet.h"

#include "params/catalogue.h"
#include "params/tables/module_tables.h"

#include <algorithm>
#include <array>
#include <iomanip>
#include <ostream>
#include <string>

namespace velmora::presets_tool {

namespace {

constexpr int kWordWidth = 20;
constexpr std::int32_t kVariantsPerKind = 16;

double valueOf(const Preset& preset, ParameterId id)
{
    return static_cast<double>(preset.values[static_cast<unsigned>(id)]);
}

int positionOf(const Preset& preset, const RoleWindow& window)
{
    return static_cast<int>(valueOf(preset, window.windowBase + kPositionOffset) * (kRoleCount - 1) + 0.5);
}

/// Type code of the whole system that a role holds; 0 for a module that is off.
std::int32_t codeOf(const Preset& preset, const RoleWindow& window)
{
    const double type = valueOf(preset, window.windowBase + kTypeOffset);
    if (isInsert(window.role)) return insertCodeInController(type);
    const auto variant = static_cast<std::int32_t>(type * (kVariantsPerKind - 1) + 0.5);
    return variant == 0 ? 0 : (static_cast<std::int32_t>(window.kind) - 1) * kVariantsPerKind + variant;
}

/// Some displays carry a line feed for the editor's narrow boxes.
std::string onOneLine(std::string text)
{
    std::erase_if(text, [](char c) { return c == '\n' || c == '\r'; });
    return text;
}

/// A text with its unit, unless it ends with one already or says no number.
std::string labelled(const std::string& text, std::string_view label)
{
    const auto first = label.find_first_not_of(' ');
    if (first == std::string_view::npos || text == "Off") return text;
    const std::string_view unit = label.substr(first, label.find_last_not_of(' ') - first + 1);
    return text.ends_with(unit) ? text : text + ' ' + std::string(unit);
}

void printSwitches(std::ostream& out, const Preset& preset, const RoleWindow& window)
{
    for (const ParameterId offset : {kMuteOffset, kSoloOffset, kSideChainOffset, kMonitorOffset}) {
        const ParameterId id = window.windowBase + offset;
        if (valueOf(preset, id) >= 0.5) out << "  [" << parameterDisplay(id, valueOf(preset, id)) << ']';
    }
}

void printSettings(std::ostream& out, const Preset& preset, const RoleWindow& window, std::int32_t code)
{
    for (const ParameterRow& row : rowsOfCode(code)) {
        if (row.offset < kOwnOffset || row.reserved) continue;
        const double value = valueOf(preset, window.windowBase + row.offset);
        std::string text = onOneLine(moduleValueText(code, row.offset, value));
        if (text.empty()) text = value >= 0.5 ? "On" : "Off";
        out << "     " << std::left << std::setw(kWordWidth) << row.word << labelled(text, row.label) << '\n';
    }
}

void printModule(std::ostream& out, const Preset& preset, const RoleWindow& window)
{
    const std::int32_t code = codeOf(preset, window);
    std::string role(window.longPrefix);
    role.pop_back(); // the colon
    out << static_cast<char>('A' + std::clamp(positionOf(preset, window), 0, kRoleCount - 1)) << "  "
        << std::left << std::setw(5) << role;
    if (findModuleType(code) == nullptr) {
        out << "off\n";
        return;
    }
    out << moduleTypeName(code);
    printSwitches(out, preset, window);
    out << '\n';
    printSettings(out, preset, window, code);
}

} // namespace

void printPresetSheet(std::ostream& out, const Preset& preset)
{
    std::array<const RoleWindow*, kRoleCount> rack{};
    std::ranges::transform(kRoleWindows, rack.begin(), [](const RoleWindow& window) { return &window; });
    std::ranges::stable_sort(rack, {}, [&](const RoleWindow* window) { return positionOf(preset, *window); });
    if (valueOf(preset, kProcessId) < 0.5) out << "(processing is off)\n";
    for (const RoleWindow* window : rack) printModule(out, preset, *window);
}

} // namespace velmora::presets_tool
