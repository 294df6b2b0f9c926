#include "params/parse_rules.h"

#include "params/number_text.h"
#include "params/parameter_row.h"

#include <cmath>

#include <algorithm>

namespace velmora {

namespace {

char lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isPlainZero(const ParseRule& rule, std::string_view text)
{
    return text == "0" || text == "0." || (!rule.zeroText.empty() && text == rule.zeroText);
}

/// Whether a text that reads as 0 does so by a zero that stands in it.
bool beginsWithZero(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of("+-.kK"), text.size()));
    return text.starts_with('0');
}

/// A value of which the row shows exactly the text, if one of its steps does.
std::optional<double> stepThatShows(const ParameterRow& row, std::string_view text)
{
    const int steps = searchSteps(row);
    for (int i = 0; i <= steps; ++i) {
        const double v = static_cast<double>(i) / steps;
        if (trimmed(show(row.display, v)) == text) return v;
    }
    return std::nullopt;
}

} // namespace

bool sameIgnoringCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(a, b, {}, lower, lower);
}

std::optional<int> findWord(Words words, std::string_view text)
{
    auto found = std::ranges::find(words, text);
    if (found == words.end())
        found = std::ranges::find_if(words, [text](auto word) { return sameIgnoringCase(word, text); });
    if (found == words.end()) return std::nullopt;
    return static_cast<int>(found - words.begin());
}

std::optional<double> readNumberOf(const ParseRule& rule, std::string_view text)
{
    const auto x = rule.kilo ? readFrequency(text) : readNumber(text);
    if (!x || *x != 0.0) return x;
    if (rule.plainZero && !isPlainZero(rule, text)) return std::nullopt;
    if (rule.needsNumber && !beginsWithZero(text)) return std::nullopt;
    return x;
}

std::optional<double> placeInRange(const ParseRule& rule, double x)
{
    if (x == 0.0 && rule.zeroIsBottom) return 0.0;
    if (x < rule.low || x > rule.high) return std::nullopt;
    const double place = rule.logarithmic ? std::log(x / rule.origin) / std::log(rule.high / rule.origin)
                                          : (x - rule.origin) / (rule.high - rule.origin);
    const double held = std::clamp(place, 0.0, 1.0);
    return rule.exponent == 1.0 ? held : std::pow(held, rule.exponent);
}

std::optional<double> readRanged(const ParameterRow& row, std::string_view text)
{
    const ParseRule& rule = row.parse;
    if (!rule.bottomWord.empty() && sameIgnoringCase(text, rule.bottomWord)) return 0.0;
    const auto x = readNumberOf(rule, text);
    return x ? placeInRange(rule, *x) : std::nullopt;
}

std::optional<double> readSwitchText(std::string_view text)
{
    if (text == "0" || sameIgnoringCase(text, "Off")) return 0.0;
    if (text == "1" || sameIgnoringCase(text, "On")) return 1.0;
    return std::nullopt;
}

std::optional<double> readSwitch(const ParameterRow&, std::string_view text)
{
    return readSwitchText(text);
}

std::optional<double> readWord(const ParameterRow& row, std::string_view text)
{
    const Words words = row.parse.words;
    if (const auto index = findWord(words, text)) return *index / static_cast<double>(words.size() - 1);
    return words.size() == 2 ? readSwitchText(text) : std::nullopt;
}

std::optional<double> searchShown(const ParameterRow& row, std::string_view text)
{
    const auto number = readFrequency(text);
    if (!number) return std::nullopt;
    const int steps = searchSteps(row);
    const double step = 1.0 / steps;
    const auto valueAt = [step](int i) { return std::min(i * step, 1.0); };

    if (*number == 0.0 && !text.starts_with('0')) {
        for (int i = 0; i <= steps; ++i)
            if (show(row.display, valueAt(i)).starts_with(text)) return valueAt(i);
    }

    const auto thousandths = [](double x) { return std::trunc(1000.0 * x + 0.5); };
    const auto shownAt = [&](double v) {
        return thousandths(readFrequency(show(row.display, v)).value_or(0.0));
    };
    const double target = thousandths(*number);
    if (target <= shownAt(0.0)) return 0.0;
    if (target >= shownAt(1.0)) return 1.0;
    double previous = shownAt(0.0);
    for (int i = 1; i <= steps; ++i) {
        const double shown = shownAt(valueAt(i));
        if (shown == target || (shown > target && previous < target)) return valueAt(i);
        previous = shown;
    }
    return 0.0;
}

std::optional<double> parseRow(const ParameterRow& row, std::string_view text)
{
    text = trimmed(text);
    if (!row.parse.read || text.empty()) return std::nullopt;
    const auto value = row.parse.read(row, text);
    if (!value) return std::nullopt;
    const double held = std::clamp(*value, 0.0, 1.0);
    if (trimmed(show(row.display, held)) == text) return held;
    return stepThatShows(row, text).value_or(held);
}

std::optional<double> parseRowStrictly(const ParameterRow& row, std::string_view text)
{
    ParameterRow strict = row;
    strict.parse.needsNumber = true;
    return parseRow(strict, text);
}

} // namespace velmora
