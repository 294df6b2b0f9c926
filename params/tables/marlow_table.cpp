#include "params/laws/special_laws.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

namespace velmora {

namespace {

/// Half of what the module works with: the distance from the threshold to either end.
double transitionDb(double v)
{
    return 24.0 * v;
}

constexpr std::string_view kFilterTypes[]{"LowShelf", "Peak", "HiShelf"};
constexpr std::string_view kControlFilters[]{"Off", "Direct", "Complement"};

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {5,  "Monitor",        "Monitor",        "", 0.0, 1,   {},         words(kOffOn),                   parse::words(kOffOn)},
    {16, "Threshold",      "Threshold",      "", 0.5, 240, {48, 0.2},  number(marlow::thresholdDb, 1),  parse::plainZero(parse::linear(-80.0, 20.0))},
    {17, "Time",           "Time",           "", 0.5, 200, {20, 0.1},  number(marlow::timeFactor, 2),   parse::logarithmic(0.1, 10.0)},
    {18, "Frequency",      "Frequency",      "", 0.5, 480, {48, 0.1},  frequency(marlow::frequencyHz),  parse::frequency(20.0, 20000.0)},
    {19, "Above",          "Above",          "", 0.5, 480, {48, 0.1},  number(marlow::gainDb, 1, "dB"), parse::plainZero(parse::linear(-24.0, 24.0))},
    {20, "Below",          "Below",          "", 0.5, 480, {48, 0.1},  number(marlow::gainDb, 1, "dB"), parse::plainZero(parse::linear(-24.0, 24.0))},
    {21, "Q",              "Q",              "", 0.5, 100, {25, 0.25}, number(marlow::peakQ, 2),        parse::logarithmic(0.1, 10.0)},
    {22, "Transition",     "Transition",     "", 0.5, 240, {24, 0.1},  number(transitionDb, 1),         parse::linear(0.0, 24.0)},
    {23, "Filter type",    "Filter type",    "", 0.5, 2,   {},         words(kFilterTypes),             parse::words(kFilterTypes)},
    {24, "Control filter", "Control filter", "", 0.5, 2,   {},         words(kControlFilters),          parse::words(kControlFilters)},
};
// clang-format on

} // namespace

Rows marlowRows() noexcept
{
    return kRows;
}

} // namespace velmora
