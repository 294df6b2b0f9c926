#include "params/laws/output_laws.h"
#include "params/number_text.h"
#include "params/tables/module_tables.h"

#include <cmath>

#include <algorithm>

namespace velmora {

namespace {

std::string showBalance(const DisplayRule&, double v)
{
    const int percent = wholePart(100.0 * v + 0.5) - 50;
    if (percent == 0) return "C";
    return numberText(static_cast<float>(std::abs(percent)), 0) + (percent < 0 ? "L" : "R");
}

std::optional<double> readBalance(const ParameterRow& row, std::string_view text)
{
    if (text == "0" || text == "0." || text == "0.0" || text == "C" || text == "c") return 0.5;
    const auto x = readNumberOf(row.parse, text);
    if (!x) return std::nullopt;
    const auto holds = [text](char side) { return text.find(side) != text.npos; };
    if (holds('L')) return (50.0 - *x) * 0.01;
    if (*x < 0.0) return (*x + 50.0) * 0.01;
    if (holds('l')) return (50.0 - *x) * 0.01;
    if (holds('R') || *x > 0.0) return (*x + 50.0) * 0.01;
    return std::nullopt;
}

std::string showGain(const DisplayRule&, double v)
{
    if (!(v > 0.0)) return "-oo";
    return numberText(static_cast<float>(20.0 * std::log10(output::faderGain(v))), 2);
}

std::optional<double> readGain(const ParameterRow& row, std::string_view text)
{
    if (text == "oo" || text == "-oo") return 0.0;
    const auto x = readNumberOf(row.parse, text);
    if (!x) return std::nullopt;
    if (*x < -100.0) return 0.0;
    if (*x > 10.0) return 1.0;
    const double decades = std::log10(std::pow(10.0, *x / 20.0) * 100000.0);
    return std::pow(std::max(decades * 0.18181818181818182, 0.0), 3.003003003003003);
}

constexpr std::string_view kMeasurementPoints[]{"In", "Pre", "Post", "Out"};

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "Width",            "Width", " ",    0.5,    200, {50, 0.25}, number(output::widthPercent, 0, "\n%"), parse::plainZero(parse::linear(0.0, 200.0))},
    {17, "Balance",          "Blnce", " ",    0.5,    100, {50, 0.5},  custom(showBalance),                    parse::custom(readBalance)},
    {18, "Gain",             "Gain",  " dB ", 0.7511, 800, {80, 0.1},  custom(showGain),                       parse::plainZero(parse::custom(readGain))},
    {19, "MeasurementPoint", "MeasP", " ",    0.625,  3,   {3, 1.0},   words(kMeasurementPoints),              parse::words(kMeasurementPoints)},
};
// clang-format on

} // namespace

Rows outputRows() noexcept
{
    return kRows;
}

} // namespace velmora
