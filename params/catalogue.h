#pragma once

#include "params/parameter_ids.h"
#include "params/type_codes.h"

#include <optional>
#include <string>
#include <string_view>

/// The parameter catalogue: what every id is called, how it shows, parses, defaults and steps. All answers
/// come from one row per parameter. Functions that return numbers neither allocate nor lock.
namespace velmora {

/// Flags of an id.
inline constexpr int kAutomatableFlag = 1;
inline constexpr int kMeterFlag = 2;
inline constexpr int kStoredFlag = 8;

std::string parameterName(ParameterId id);
/// Cut to 7 characters.
std::string parameterShortName(ParameterId id);
/// Unit label, "" for ids without one.
std::string parameterLabel(ParameterId id);
/// Display text of a normalised value.
std::string parameterDisplay(ParameterId id, double value);
/// Normalised default, 0..1.
double defaultValue(ParameterId id) noexcept;
/// Host steps; 0 where the host shall take 1000.
int parameterSteps(ParameterId id) noexcept;
int parameterFlags(ParameterId id) noexcept;

inline bool isStored(ParameterId id) noexcept
{
    return (parameterFlags(id) & kStoredFlag) != 0;
}
inline bool isAutomatable(ParameterId id) noexcept
{
    return (parameterFlags(id) & kAutomatableFlag) != 0;
}

/// Typed text back to a normalised value, by the row's parser. @return nothing if the text is refused: a
/// number outside the range, or a text that is neither a number nor one of the parameter's words. Equaliser
/// frequencies and the limiter's Mode and Shape answer every text, with 0.0 what they can't make out.
std::optional<double> textToValue(ParameterId id, std::string_view text);

/// @return the id of a long name ("Mstr:Gain"), compared exactly; nothing if no id has it.
std::optional<ParameterId> findParameter(std::string_view longName);

/// Module parameters by Type code (the whole system's) and offset in the window, for inserts and panels. An
/// offset without a row of its own: default 0.0, no text, no steps. Steps and fine factor are 0 where the
/// control keeps the start values of its class.
double moduleDefault(std::int32_t code, ParameterId offset) noexcept;
int moduleHostSteps(std::int32_t code, ParameterId offset) noexcept; ///< as `parameterSteps`
int moduleSteps(std::int32_t code, ParameterId offset) noexcept;     ///< wheel steps of the editor's control
double moduleFine(std::int32_t code, ParameterId offset) noexcept;   ///< fine factor of the editor's control
std::string moduleValueText(std::int32_t code, ParameterId offset, double value);
/// As `textToValue`.
std::optional<double> moduleTextToValue(std::int32_t code, ParameterId offset, std::string_view text);
/// As a panel's value box reads: a text that begins with no number is 0 where the row lets it be.
std::optional<double> moduleParseText(std::int32_t code, ParameterId offset, std::string_view text);

} // namespace velmora
