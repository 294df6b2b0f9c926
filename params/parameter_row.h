#pragma once

#include "params/display_rules.h"
#include "params/parameter_ids.h"
#include "params/parse_rules.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmora {

/// The editor's control of a parameter; zeros where the control keeps the start values of its class.
struct WheelRule {
    int steps = 0;     ///< wheel steps over the range
    double fine = 0.0; ///< share of a step with shift held
};

/// The one truth about a module's own parameter: hosts, panels, presets and the manual all read it here.
struct ParameterRow {
    ParameterId offset;         ///< in the module's window
    std::string_view word;      ///< long name behind the role's prefix
    std::string_view shortWord; ///< short name behind the role's short prefix, or whole if it holds a ":"
    std::string_view label;     ///< unit label for the host
    double defaultValue;        ///< normalised
    int hostSteps;
    WheelRule wheel{};
    DisplayRule display{};
    ParseRule parse{};
    bool reserved = false; ///< kept for old presets: neither automatable nor stored, and no module reads it
};

/// A row's text back to its normalised value, 0..1. A text that one of the row's own steps shows comes back
/// as a value that shows it, also where rounding or the reader's limits would lead elsewhere.
/// Where the row has no words for it, a text that begins with no number reads as 0.
std::optional<double> parseRow(const ParameterRow& row, std::string_view text);

/// The same, but a text that begins with no number and is none of the row's words is refused. A row that is
/// searched still answers every text.
std::optional<double> parseRowStrictly(const ParameterRow& row, std::string_view text);

/// Number of steps in which a row is searched.
constexpr int searchSteps(const ParameterRow& row)
{
    return row.hostSteps > 0 ? row.hostSteps : 1000;
}

} // namespace velmora
