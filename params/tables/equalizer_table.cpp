#include "params/laws/equalizer_laws.h"
#include "params/tables/module_tables.h"

namespace velmora {

namespace {

constexpr std::string_view kOutIn[]{"OUT", "IN"};
constexpr std::string_view kWidths[]{"Wide", "Normal", "Narrow"};
constexpr std::string_view kSaturation[]{"SatOff", "SatOn"};

using namespace display;

constexpr DisplayRule kGain = checked(number(equalizer::gainDb, 1));
constexpr ParseRule kGainText = parse::plainZero(parse::linear(-18.0, 18.0));

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "HI In",   "HiIn", " ",    1.0, 1,   {},        words(kOutIn),                           parse::words(kOutIn)},
    {17, "HI Gain", "HiGn", " dB ", 0.5, 360, {},        kGain,                                   kGainText},
    {18, "HI Freq", "HiFq", " Hz ", 0.5, 540, {54, 0.1}, checked(frequency(equalizer::highHz)),   parse::search()},
    {19, "HI Q",    "HiQ",  " ",    0.0, 2,   {},        words(kWidths),                          parse::words(kWidths)},

    {20, "HM In",   "HmIn", " ",    1.0, 1,   {},        words(kOutIn),                           parse::words(kOutIn)},
    {21, "HM Gain", "HmGn", " dB ", 0.5, 360, {},        kGain,                                   kGainText},
    {22, "HM Freq", "HmFq", " Hz ", 0.5, 540, {54, 0.1}, checked(frequency(equalizer::highMidHz)), parse::search()},
    {23, "HM Q",    "HmQ",  " ",    0.5, 2,   {},        words(kWidths),                          parse::words(kWidths)},

    {24, "LM In",   "LmIn", " ",    1.0, 1,   {},        words(kOutIn),                           parse::words(kOutIn)},
    {25, "LM Gain", "LmGn", " dB ", 0.5, 360, {},        kGain,                                   kGainText},
    {26, "LM Freq", "LmFq", " Hz ", 0.5, 540, {54, 0.1}, checked(frequency(equalizer::lowMidHz)), parse::search()},
    {27, "LM Q",    "LmQ",  " ",    0.5, 2,   {},        words(kWidths),                          parse::words(kWidths)},

    {28, "LO In",   "LoIn", " ",    1.0, 1,   {},        words(kOutIn),                           parse::words(kOutIn)},
    {29, "LO Gain", "LoGn", " dB ", 0.5, 360, {},        kGain,                                   kGainText},
    {30, "LO Freq", "LoFq", " Hz ", 0.5, 540, {54, 0.1}, checked(frequency(equalizer::lowHz)),    parse::search()},
    {31, "LO Q",    "LoQ",  " ",    0.0, 2,   {},        words(kWidths),                          parse::words(kWidths)},

    {32, "Out",     "Out",  " dB ", 0.5, 360, {},        kGain,                                   kGainText},
    {33, "Analog",  "Anlg", " ",    1.0, 1,   {},        words(kSaturation),                      parse::words(kSaturation)},
};
// clang-format on

} // namespace

Rows equalizerRows() noexcept
{
    return kRows;
}

} // namespace velmora
