#include "params/laws/special_laws.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

namespace velmora {

namespace {

constexpr double kSixThousandHertz = 0.636715681427498; // and Q 6

constexpr std::string_view kRatios[]{"2:1", "4:1"};

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {5,  "Monitor",     "Monitor",     "", 0.0,               1,   {},         words(kOffOn),                    parse::words(kOffOn)},
    {16, "Freq",        "Freq",        "", kSixThousandHertz, 480, {48, 0.1},  frequency(deesser::frequencyHz),  parse::tapered(parse::frequency(500.0, 16000.0), deesser::kTaperInverse)},
    {17, "Q",           "Q",           "", kSixThousandHertz, 480, {48, 0.1},  number(deesser::q, 2),            parse::tapered(parse::logarithmic(0.5, 16.0), deesser::kTaperInverse)},
    {18, "Sensitivity", "Sensitivity", "", 0.5,               100, {25, 0.25}, number(percent, 0),    parse::linear(0.0, 100.0)},
    {19, "Range",       "Range",       "", 0.5,               240, {48, 0.2},  number(deesser::rangeDb, 1),      parse::tapered(parse::linear(-24.0, 0.0), kHalfwayInverse)},
    {20, "Ratio",       "Ratio",       "", 0.0,               1,   {},         words(kRatios),                   parse::words(kRatios)},
    {21, "Split",       "Split",       "", 0.0,               1,   {},         words(kOffOn),                    parse::words(kOffOn)},
};
// clang-format on

} // namespace

Rows deesserRows() noexcept
{
    return kRows;
}

} // namespace velmora
