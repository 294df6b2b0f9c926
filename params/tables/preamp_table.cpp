#include "params/laws/preamp_laws.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

#include <cmath>

namespace velmora {

namespace {

double driveDb(double v)
{
    return 20.0 * std::log10(preamp::driveGain(v));
}
double noiseDb(double v)
{
    return 20.0 * std::log10(preamp::noiseGain(v));
}

/// The middle still counts as "Down".
std::string showLevelMode(const DisplayRule&, double v)
{
    return v > 0.5 ? "Up&Down" : "Down";
}

constexpr std::string_view kLevelModes[]{"Down", "Up&Down"};
constexpr std::string_view kNoiseModes[]{"Off", "Auto Mute", "On"};

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "Gain",           "Gain",  " dB ", 0.5, 600, {60, 0.1}, checked(number(preamp::gainDb, 1)),            parse::linear(-30.0, 30.0)},
    {17, "AutoIn",         "AutIn", "",     0.0, 1,   {},        {},                                            parse::onOff()},
    {18, "RefLevel",       "RefLv", " dB ", 0.5, 300, {30, 0.1}, checked(number(preamp::referenceDb, 1, "dB")), parse::linear(-30.0, 0.0)},
    {19, "AutoDetectMode", "DtMod", "",     1.0, 1,   {},        {},                                            parse::onOff()},
    {20, "AutoLevelMode",  "AtLvM", "",     0.0, 1,   {},        custom(showLevelMode),                         parse::words(kLevelModes)},
    {21, "PhaseL",         "PhsL",  "",     0.0, 1,   {},        {},                                            parse::onOff()},
    {22, "PhaseR",         "PhsR",  "",     0.0, 1,   {},        {},                                            parse::onOff()},
    {23, "Analog",         "Anlg",  "",     1.0, 1,   {},        words(kOutIn),                                 parse::words(kOutIn)},
    {24, "Drive",          "Drive", "",     0.5, 600, {60, 0.1}, checked(number(driveDb, 1)),                   parse::linear(-30.0, 30.0)},
    {25, "NoiseIn",        "NseIn", "",     0.0, 2,   {},        words(kNoiseModes),                            parse::words(kNoiseModes)},
    {26, "NoiseLevel",     "NseLv", "",     0.5, 600, {60, 0.1}, checked(number(noiseDb, 1)),                   parse::linear(-120.0, -60.0)},
};
// clang-format on

} // namespace

Rows preampRows() noexcept
{
    return kRows;
}

} // namespace velmora
