#include "params/rack_block.h"

#include "params/number_text.h"
#include "params/parameter_row.h"
#include "params/type_codes.h"

#include <array>

namespace velmora {

namespace {

constexpr double kFixedTypeScale = 15.0;
constexpr double kInsertTypeScale = 255.0;

constexpr std::string_view kPositions[]{"A", "B", "C", "D", "E", "F", "G", "H", "I"};
constexpr std::string_view kMute[]{"-", "Mute"};
constexpr std::string_view kSolo[]{"-", "Solo"};
constexpr std::string_view kSideChain[]{"Input", "Ext AUX"};
constexpr std::string_view kMonitor[]{"-", "Monitor"};

// clang-format off
constexpr std::array<ParameterRow, kRackBlockSize> kRows{{
    {kTypeOffset,      "Type",       "Type",       "", 0.0, 0},
    {kPositionOffset,  "Position",   "Position",   "", 0.0, 8, {}, display::words(kPositions, "-"), parse::words(kPositions)},
    {kMuteOffset,      "Mute",       "Mute",       "", 0.0, 1, {}, display::words(kMute, "-"),      parse::words(kMute)},
    {kSoloOffset,      "Solo",       "Solo",       "", 0.0, 1, {}, display::words(kSolo, "-"),      parse::words(kSolo)},
    {kSideChainOffset, "Side Chain", "Side Chain", "", 0.0, 1, {}, display::words(kSideChain, "Input"), parse::words(kSideChain)},
    {kMonitorOffset,   "Monitor",    "Monitor",    "", 0.0, 1, {}, display::words(kMonitor, "-"),   parse::words(kMonitor)},
}};
// clang-format on

std::string typeDisplay(const RoleWindow& window, double v)
{
    if (isInsert(window.role)) return std::string(moduleTypeName(wholePart(v * kInsertTypeScale + 0.5)));
    return std::string(variantName(window.kind, wholePart(v * kFixedTypeScale + 0.5)));
}

using SameText = bool (*)(std::string_view, std::string_view);

/// The module that a role can hold under a name of either form.
const ModuleType* findByName(const RoleWindow& window, std::string_view text, SameText same)
{
    for (const ModuleType& type : moduleTypes()) {
        if (!isInsert(window.role) && type.kind != window.kind) continue;
        if (same(type.listName, text) || same(type.windowName, text)) return &type;
    }
    return nullptr;
}

std::optional<double> typeParse(const RoleWindow& window, std::string_view text)
{
    if (text == "-" || sameIgnoringCase(text, "Off")) return 0.0;
    const ModuleType* type =
        findByName(window, text, [](std::string_view a, std::string_view b) { return a == b; });
    if (!type) type = findByName(window, text, sameIgnoringCase);
    if (!type) return std::nullopt;
    return isInsert(window.role) ? type->code / kInsertTypeScale : type->variant / kFixedTypeScale;
}

} // namespace

std::string_view rackWord(ParameterId offset)
{
    return kRows[static_cast<unsigned>(offset)].word;
}

std::string rackDisplay(const RoleWindow& window, ParameterId offset, double v)
{
    if (offset == kTypeOffset) return typeDisplay(window, v);
    return show(kRows[static_cast<unsigned>(offset)].display, v);
}

std::optional<double> rackParse(const RoleWindow& window, ParameterId offset, std::string_view text)
{
    text = trimmed(text);
    if (text.empty()) return std::nullopt;
    if (offset == kTypeOffset) return typeParse(window, text);
    return parseRow(kRows[static_cast<unsigned>(offset)], text);
}

} // namespace velmora
