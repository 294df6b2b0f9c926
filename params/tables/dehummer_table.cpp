#include "params/laws/special_laws.h"
#include "params/number_text.h"
#include "params/tables/module_tables.h"
#include "params/tables/switch_words.h"

namespace velmora {

namespace {

/// Odd against even harmonics, in percent.
std::string showEvenOdd(const DisplayRule&, double v)
{
    const int share = wholePart(200.0 * v + 0.5);
    return share <= 100 ? "100/" + std::to_string(share) : std::to_string(200 - share) + "/100";
}

/// "a/b" with one of the two at 100, or one number of -100..100.
std::optional<double> readEvenOdd(const ParameterRow& row, std::string_view text)
{
    const auto slash = text.find_first_of("/\\");
    const auto a = readNumberOf(row.parse, text.substr(0, slash));
    if (!a) return std::nullopt;
    if (slash == text.npos) {
        if (*a < -100.0 || *a > 100.0) return std::nullopt;
        return (*a + 100.0) / 200.0;
    }
    if (*a >= 0.0 && *a < 100.0) return (100.0 - *a) / 200.0 + 0.5;
    const auto b = readNumberOf(row.parse, trimmed(text.substr(slash + 1)));
    if (*a != 100.0 || !b || *b < 0.0 || *b > 100.0) return std::nullopt;
    return (*b - 100.0) / 200.0 + 0.5;
}

std::string showOffset(const DisplayRule&, double v)
{
    const double hertz = dehummer::offsetHz(v);
    if (hertz == 0.0) return "0";
    std::string text = fixedText(hertz, 4, 2);
    if (hertz > 0.0) text.insert(0, 1, '+');
    return text;
}

constexpr std::string_view kMains[]{"50Hz", "60Hz"};

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {5,  "Monitor",     "Monitor",     "", 0.0, 1,    {},         words(kOffOn),                      parse::words(kOffOn)},
    {16, "EvenOdd",     "EvenOdd",     "", 0.5, 250,  {50, 0.2},  custom(showEvenOdd),                parse::custom(readEvenOdd)},
    {17, "Brightness",  "Brightness",  "", 0.5, 100,  {25, 0.25}, number(percent, 0, "%"),  parse::plainZero(parse::linear(0.0, 100.0))},
    {18, "Attenuation", "Attenuation", "", 0.5, 480,  {48, 0.1},  number(dehummer::attenuationDb, 1), parse::plainZero(parse::tapered(parse::linear(-48.0, 0.0), kHalfwayInverse))},
    {19, "Frequency",   "Frequency",   "", 1.0, 1,    {},         words(kMains),                      parse::words(kMains)},
    {20, "Offset",      "Offset",      "", 0.5, 2000, {80, 0.04}, custom(showOffset),                 parse::plainZero(parse::linear(-10.0, 10.0))},
};
// clang-format on

} // namespace

Rows dehummerRows() noexcept
{
    return kRows;
}

} // namespace velmora
