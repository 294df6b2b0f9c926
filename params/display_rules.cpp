#include "params/display_rules.h"

#include "params/number_text.h"

namespace velmora {

namespace {

constexpr double kHighPassOff = 10.0; // Hz

} // namespace

std::string show(const DisplayRule& rule, double v)
{
    if (!rule.write) return {};
    if (rule.undefinedOutside && !(v >= 0.0 && v <= 1.0)) return "UNDEF";
    return rule.write(rule, v);
}

int choiceOf(double v, std::size_t count)
{
    return wholePart(v * static_cast<double>(count - 1) + 0.5);
}

std::string showNumber(const DisplayRule& rule, double v)
{
    return numberText(static_cast<float>(rule.law(v)), rule.decimals).append(rule.unit);
}

std::string showFrequency(const DisplayRule& rule, double v)
{
    return frequencyText(rule.law(v)).append(rule.unit);
}

std::string showFrequencyOrOff(const DisplayRule& rule, double v)
{
    return rule.law(v) <= kHighPassOff ? "Off" : showFrequency(rule, v);
}

std::string showWord(const DisplayRule& rule, double v)
{
    const int choice = choiceOf(v, rule.words.size());
    const bool known = choice >= 0 && static_cast<std::size_t>(choice) < rule.words.size();
    return std::string(known ? rule.words[static_cast<std::size_t>(choice)] : rule.otherWord);
}

} // namespace velmora
