#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

/// How the rows of the catalogue show a normalised value.
namespace velmora {

using Law = double (*)(double v);
using Words = std::span<const std::string_view>;

struct DisplayRule {
    std::string (*write)(const DisplayRule& rule, double v) = nullptr; ///< null shows nothing
    Law law = nullptr;
    int decimals = 0;
    std::string_view unit{}; ///< follows the number without a blank
    Words words{};
    std::string_view otherWord{};  ///< for a value that names none of the words
    bool undefinedOutside = false; ///< "UNDEF" for values outside 0..1
};

/// Display text of a value by its rule.
std::string show(const DisplayRule& rule, double v);

/// Index of one of `count` evenly spread choices: the whole part of v x (count - 1) + 0.5.
int choiceOf(double v, std::size_t count);

std::string showNumber(const DisplayRule& rule, double v);
std::string showFrequency(const DisplayRule& rule, double v);
std::string showFrequencyOrOff(const DisplayRule& rule, double v);
std::string showWord(const DisplayRule& rule, double v);

namespace display {

constexpr DisplayRule number(Law law, int decimals, std::string_view unit = {})
{
    return {.write = showNumber, .law = law, .decimals = decimals, .unit = unit};
}
constexpr DisplayRule frequency(Law law, std::string_view unit = {})
{
    return {.write = showFrequency, .law = law, .unit = unit};
}
/// A high pass that is out of the way at the bottom of its range, 10 Hz.
constexpr DisplayRule frequencyOrOff(Law law)
{
    return {.write = showFrequencyOrOff, .law = law};
}
constexpr DisplayRule words(Words words, std::string_view otherWord = {})
{
    return {.write = showWord, .words = words, .otherWord = otherWord};
}
constexpr DisplayRule custom(std::string (*write)(const DisplayRule&, double))
{
    return {.write = write};
}
/// The same rule, "UNDEF" for values outside 0..1.
constexpr DisplayRule checked(DisplayRule rule)
{
    rule.undefinedOutside = true;
    return rule;
}

} // namespace display

} // namespace velmora
