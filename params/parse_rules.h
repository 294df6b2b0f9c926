#pragma once

#include "params/display_rules.h"

#include <optional>
#include <string_view>

/// How the rows of the catalogue read a typed text. The readers get a text that isn't empty and has no blanks
/// at its ends.
namespace velmora {

struct ParameterRow;

struct ParseRule {
    std::optional<double> (*read)(const ParameterRow& row,
                                  std::string_view text) = nullptr; ///< null: no text
    double low = 0.0;                                               ///< lowest number accepted
    double high = 0.0;                                              ///< highest number accepted
    double origin = 0.0; ///< number that gives 0 before the exponent
    bool logarithmic = false;
    double exponent = 1.0;         ///< of the position between origin and high
    bool kilo = false;             ///< the number is a frequency that may hold a "k"
    bool plainZero = false;        ///< a text that reads as 0 must be "0" or "0."
    std::string_view zeroText{};   ///< one more text for 0, also with plainZero
    std::string_view bottomWord{}; ///< a word for the normalised 0.0
    bool zeroIsBottom = false;     ///< the number 0, below the range, gives 0.0
    bool needsNumber = false;      ///< a text that begins with no number isn't 0
    Words words{};
};

/// A number of the range to its place in it.
std::optional<double> readRanged(const ParameterRow& row, std::string_view text);
/// One of the words, exactly or else without regard to case; also "0", "1", "Off", "On" where there are two.
std::optional<double> readWord(const ParameterRow& row, std::string_view text);
/// "0", "1", "Off" or "On".
std::optional<double> readSwitch(const ParameterRow& row, std::string_view text);
/// Any text, by a walk over the host steps that compares with what they show. For laws without an inverse.
std::optional<double> searchShown(const ParameterRow& row, std::string_view text);

/// Building stones of the readers above, for rules of a kind of their own.
std::optional<double> readNumberOf(const ParseRule& rule, std::string_view text);
std::optional<double> placeInRange(const ParseRule& rule, double x);
std::optional<double> readSwitchText(std::string_view text);
/// @return the index of a word, exactly or else without regard to case.
std::optional<int> findWord(Words words, std::string_view text);
bool sameIgnoringCase(std::string_view a, std::string_view b);

namespace parse {

constexpr ParseRule linear(double low, double high)
{
    return {.read = readRanged, .low = low, .high = high, .origin = low};
}
constexpr ParseRule logarithmic(double low, double high)
{
    return {.read = readRanged, .low = low, .high = high, .origin = low, .logarithmic = true};
}
/// Logarithmic, the number read as a frequency.
constexpr ParseRule frequency(double low, double high)
{
    ParseRule rule = logarithmic(low, high);
    rule.kilo = true;
    return rule;
}
/// The place in the range bent by an exponent.
constexpr ParseRule tapered(ParseRule rule, double exponent)
{
    rule.exponent = exponent;
    return rule;
}
/// The range widened downward; what lies below the origin is held at 0.0.
constexpr ParseRule downTo(ParseRule rule, double low)
{
    rule.low = low;
    return rule;
}
/// The rule for which "abc" isn't 0.
constexpr ParseRule plainZero(ParseRule rule, std::string_view zeroText = {})
{
    rule.plainZero = true;
    rule.zeroText = zeroText;
    return rule;
}
constexpr ParseRule words(Words words)
{
    return {.read = readWord, .words = words};
}
constexpr ParseRule onOff()
{
    return {.read = readSwitch};
}
constexpr ParseRule search()
{
    return {.read = searchShown};
}
constexpr ParseRule custom(std::optional<double> (*read)(const ParameterRow&, std::string_view))
{
    return {.read = read};
}

} // namespace parse

} // namespace velmora
