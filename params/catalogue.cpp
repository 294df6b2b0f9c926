#include "params/catalogue.h"

#include "params/number_text.h"
#include "params/parameter_names.h"
#include "params/rack_block.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

#include <cmath>

/// The catalogue's texts: one dispatch on the id's window.
namespace velmora {

namespace {

constexpr std::size_t kShortNameLength = 7;
constexpr double kSilentReduction = 0.0001; // total gain reduction shown as silence

constexpr ParameterRow kProcessRow{
    0, "Process", "Process", "", 1.0, 1, {}, display::words(kOffOn), parse::words(kOffOn)};

std::string_view insertTag(Role role)
{
    return role == Role::InsertX ? "InsertX:" : "InsertY:";
}

std::string totalReductionText(double gain)
{
    return gain < kSilentReduction ? "-oo" : fixedText(20.0 * std::log10(gain), 4, 2);
}

/// A number of 0..1, alone or behind the tag that either insert's display writes.
std::optional<double> insertOwnParse(std::string_view text)
{
    text = trimmed(text);
    for (const Role role : {Role::InsertX, Role::InsertY})
        if (text.starts_with(insertTag(role))) text = trimmed(text.substr(insertTag(role).size()));
    const bool isNumber = !text.empty() && std::string_view("0123456789.").find(text.front()) != text.npos;
    const auto x = isNumber ? readNumber(text) : std::nullopt;
    return x && *x >= 0.0 && *x <= 1.0 ? x : std::nullopt;
}

} // namespace

std::string parameterName(ParameterId id)
{
    return namesOf(id).name;
}

std::string parameterShortName(ParameterId id)
{
    return namesOf(id).shortName.substr(0, kShortNameLength);
}

std::string parameterLabel(ParameterId id)
{
    return namesOf(id).label;
}

std::string parameterDisplay(ParameterId id, double value)
{
    if (id == kProcessId) return show(kProcessRow.display, value);
    if (id == kTotalGainReductionId) return totalReductionText(value);
    const RoleWindow* window = windowOf(id);
    if (!window) return {};
    const ParameterId offset = id - window->windowBase;
    if (offset < kRackBlockSize) return rackDisplay(*window, offset, value);
    if (offset < kOwnOffset) return {};
    if (isInsert(window->role)) return std::string(insertTag(window->role)) + fixedText(value, 4, 2);
    const ParameterRow* row = findRow(rowsOfKind(window->kind), offset);
    return row ? show(row->display, value) : std::string();
}

std::optional<double> textToValue(ParameterId id, std::string_view text)
{
    if (id == kProcessId) return parseRowStrictly(kProcessRow, text);
    const RoleWindow* window = windowOf(id);
    if (!window) return std::nullopt;
    const ParameterId offset = id - window->windowBase;
    if (offset < kRackBlockSize) return rackParse(*window, offset, text);
    if (offset < kOwnOffset) return std::nullopt;
    if (isInsert(window->role)) return insertOwnParse(text);
    const ParameterRow* row = findRow(rowsOfKind(window->kind), offset);
    return row ? parseRowStrictly(*row, text) : std::nullopt;
}

std::optional<ParameterId> findParameter(std::string_view longName)
{
    for (ParameterId id = 0; id <= kTotalGainReductionId; ++id)
        if (parameterName(id) == longName) return id;
    return std::nullopt;
}

std::string moduleValueText(std::int32_t code, ParameterId offset, double value)
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? show(row->display, value) : std::string();
}

std::optional<double> moduleTextToValue(std::int32_t code, ParameterId offset, std::string_view text)
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? parseRowStrictly(*row, text) : std::nullopt;
}

std::optional<double> moduleParseText(std::int32_t code, ParameterId offset, std::string_view text)
{
    const ParameterRow* row = findRow(rowsOfCode(code), offset);
    return row ? parseRow(*row, text) : std::nullopt;
}

} // namespace velmora
