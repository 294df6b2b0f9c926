#include "params/laws/compressor_laws.h"
#include "params/number_text.h"
#include "params/tables/module_tables.h"

#include <cmath>

namespace velmora {

namespace {

std::string showRatio(const DisplayRule&, double v)
{
    if (v >= compressor::kInfiniteRatio) return "oo:1";
    const double ratio = compressor::ratio(v);
    const int decimals = ratio < 2.0 ? 2 : ratio < 10.0 ? 1 : 0;
    return numberText(static_cast<float>(ratio), decimals) + ":1";
}

constexpr double kHighestRatio = 92.0;                // what is typed above it means infinity
constexpr double kRatioExponent = 2.4096385542168677; // 1 / 0.415

std::optional<double> readRatio(const ParameterRow& row, std::string_view text)
{
    if (text == "oo" || text == "oo:1") return 1.0;
    const auto x = readNumberOf(row.parse, text.substr(0, text.find(':')));
    if (!x || *x < 1.0) return std::nullopt;
    return *x > kHighestRatio ? 1.0 : std::pow(1.0 - 1.0 / *x, kRatioExponent);
}

std::string showMix(const DisplayRule&, double v)
{
    return fixedText(100.0 * v, 2, 0) + "%";
}

constexpr ParseRule highPass()
{
    ParseRule rule = parse::frequency(10.0, 1000.0);
    rule.zeroIsBottom = true;
    rule.bottomWord = "Off";
    return rule;
}

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "Attack",      "Att",  "", 0.5,   480, {48, 0.1}, checked(number(compressor::attackMs, 1)),         parse::logarithmic(0.1, 100.0)},
    {17, "Release",     "Rlse", "", 0.5,   480, {48, 0.1}, checked(number(compressor::releaseMs, 1)),        parse::logarithmic(25.0, 2500.0)},
    {18, "Threshold",   "Thrs", "", 0.5,   500, {50, 0.1}, checked(number(compressor::thresholdDb, 1)),      parse::plainZero(parse::linear(-40.0, 10.0))},
    {19, "Ratio",       "Rtio", "", 0.5,   480, {48, 0.1}, custom(showRatio),                                parse::custom(readRatio)},
    {20, "Mix",         "Mix",  "", 1.0,   500, {50, 0.1}, checked(custom(showMix)),                         parse::plainZero(parse::linear(0.0, 100.0), "0%")},
    {21, "Makeup Gain", "Gain", "", 0.145, 400, {40, 0.1}, checked(number(compressor::makeupDb, 1)),         parse::plainZero(parse::linear(0.0, 20.0))},
    {22, "HPF",         "HPF",  "", 0.5,   300, {30, 0.1}, checked(frequencyOrOff(compressor::highPassHz)),  highPass()},
    {23, "Link",        "Link", "", 1.0,   1,   {},        {},                                               parse::onOff()},
};
// clang-format on

} // namespace

Rows compressorRows() noexcept
{
    return kRows;
}

} // namespace velmora
