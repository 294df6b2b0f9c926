#include "params/laws/dynamics_laws.h"
#include "params/number_text.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

#include <cmath>

namespace velmora {

namespace {

double shapePercent(double v)
{
    return wholePart(200.0 * v + 0.5) - 100;
}

std::string showRatio(const DisplayRule&, double v)
{
    const int index = std::clamp(wholePart(10.0 * v + 0.5), 0, 10);
    return "1:" + numberText(static_cast<float>(dynamics::kShownRatios[index]), 1);
}

/// The number behind ":", or the whole text; the steepest ratio that it reaches.
std::optional<double> readRatio(const ParameterRow& row, std::string_view text)
{
    if (const auto colon = text.find(':'); colon != text.npos) text = trimmed(text.substr(colon + 1));
    const auto x = readNumberOf(row.parse, text);
    if (!x || *x < dynamics::kShownRatios.front() || *x > dynamics::kShownRatios.back()) return std::nullopt;
    int index = 0;
    while (index < 10 && *x >= dynamics::kShownRatios[index + 1]) ++index;
    return index * 0.1;
}

std::string showHold(const DisplayRule&, double v)
{
    return fixedText(dynamics::holdMs(v), 4, 1);
}

constexpr double kClosedGain = 0.001; // -60 dB, shown as silence

std::string showRange(const DisplayRule&, double v)
{
    const double gain = dynamics::rangeGain(v);
    if (!(gain > kClosedGain)) return "-oo";
    return numberText(static_cast<float>(20.0 * std::log10(gain)), 1);
}

std::optional<double> readRange(const ParameterRow& row, std::string_view text)
{
    if (text == "oo" || text == "-oo") return 0.0;
    const auto x = readNumberOf(row.parse, text);
    if (!x) return std::nullopt;
    return *x <= -60.0 ? 0.0 : std::sqrt(std::pow(10.0, *x / 20.0));
}

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "Attack",    "Att",  "",     0.5, 480, {48, 0.1}, number(dynamics::attackMs, 1),      parse::logarithmic(0.1, 250.0)},
    {17, "Release",   "Rlse", "",     0.5, 600, {60, 0.1}, number(dynamics::releaseMs, 0),     parse::logarithmic(10.0, 3000.0)},
    {18, "Ratio",     "Rtio", "",     0.5, 10,  {10, 1.0}, custom(showRatio),                  parse::custom(readRatio)},
    {19, "Hold",      "Hold", "ms",   0.5, 480, {48, 0.1}, custom(showHold),                   parse::tapered(parse::linear(0.0, 400.0), 0.5)},
    {20, "Threshold", "Thrs", " dB ", 0.5, 600, {60, 0.1}, number(dynamics::thresholdDb, 1),   parse::linear(-60.0, 0.0)},
    {21, "Shape",     "Shpe", "",     0.5, 600, {60, 0.1}, number(shapePercent, 1),            parse::linear(-100.0, 100.0)},
    {22, "Range",     "Rnge", "",     0.0, 600, {60, 0.1}, custom(showRange),                  parse::custom(readRange)},
    {23, "HPF In",    "HpIn", "",     0.0, 1,   {},        words(kOutIn),                      parse::words(kOutIn)},
    {24, "HPF Freq",  "HFrq", "",     0.0, 480, {48, 0.1}, number(dynamics::keyHighPassHz, 0), parse::frequency(20.0, 8000.0)},
    {25, "LPF In",    "LpIn", "",     0.0, 1,   {},        words(kOutIn),                      parse::words(kOutIn)},
    {26, "LPF Freq",  "LFrq", "",     1.0, 480, {48, 0.1}, number(dynamics::keyLowPassHz, 0),  parse::frequency(50.0, 20000.0)},
};
// clang-format on

} // namespace

Rows dynamicsRows() noexcept
{
    return kRows;
}

} // namespace velmora
