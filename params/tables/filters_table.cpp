#include "params/laws/filters_laws.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

namespace velmora {

namespace {

constexpr std::string_view kLowPassSlopes[]{"6", "12", "18"};
constexpr std::string_view kHighPassSlopes[]{"12", "18", "24"};
constexpr std::string_view kBellTypes[]{"LoShelf", "Bell", "Peak", "Notch", "HiShelf"};

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "LPF In",          "LpfIn", " ",    1.0, 1,   {},        words(kOutIn),                                    parse::words(kOutIn)},
    {17, "LPF Freq",        "LpFrq", " Hz ", 1.0, 520, {52, 0.1}, checked(frequency(filters::lowPassHz)),           parse::frequency(300.0, 30000.0)},
    {18, "LPF Slope",       "LpSlp", " ",    0.5, 2,   {},        words(kLowPassSlopes),                            parse::words(kLowPassSlopes)},
    {19, "Parametric In",   "PrmIn", " ",    1.0, 1,   {},        words(kOutIn),                                    parse::words(kOutIn)},
    {20, "Parametric Gain", "PrmGn", " dB ", 0.5, 480, {48, 0.1}, checked(number(filters::parametricGainDb, 1, "dB")), parse::linear(-24.0, 24.0)},
    {21, "Parametric Freq", "PmFrq", " Hz ", 0.5, 520, {52, 0.1}, checked(frequency(filters::parametricHz, "Hz")),  parse::frequency(20.0, 20000.0)},
    {22, "Parametric Q",    "PrmQ",  " ",    0.5, 520, {52, 0.1}, checked(number(filters::parametricQ, 2)),         parse::logarithmic(0.05, 20.0)},
    {23, "Parametric Type", "PrmTp", " ",    0.5, 4,   {},        checked(words(kBellTypes)),                       parse::words(kBellTypes)},
    {24, "HPF In",          "HpfIn", " ",    1.0, 1,   {},        words(kOutIn),                                    parse::words(kOutIn)},
    {25, "HPF Freq",        "HpFrq", " Hz ", 0.0, 520, {52, 0.1}, checked(frequency(filters::highPassHz)),          parse::frequency(20.0, 2000.0)},
    {26, "HPF Slope",       "HpSlp", " ",    0.5, 2,   {},        words(kHighPassSlopes),                           parse::words(kHighPassSlopes)},
};
// clang-format on

} // namespace

Rows filtersRows() noexcept
{
    return kRows;
}

} // namespace velmora
