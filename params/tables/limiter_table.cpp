#include "params/laws/limiter_laws.h"
#include "params/number_text.h"
#include "params/tables/module_tables.h"

namespace velmora {

namespace {

double smoothPercent(double v)
{
    return wholePart(100.0 * v + 0.5);
}

constexpr std::string_view kLinked[]{"-", "Linked"};
constexpr std::string_view kSoft[]{"-", "Soft"};
constexpr std::string_view kModes[]{"Mode 1", "Mode 2", "Mode 3", "undef", "undef", "undef",
                                    "undef",  "undef",  "undef",  "undef", "undef"};
constexpr std::string_view kShapes[]{"Valve 1", "Valve 2", "Tape 1", "Tape 2", "Soft Clip", "Hard Clip",
                                     "undef",   "undef",   "undef",  "undef",  "undef"};

/// Release and high pass share their text form; what is typed below 10 ends at the bottom.
constexpr ParseRule kDecades = parse::downTo(parse::frequency(10.0, 1000.0), 0.1);
constexpr ParseRule kDecadesOrOff = [] {
    ParseRule rule = kDecades;
    rule.bottomWord = "Off";
    return rule;
}();

using namespace display;

// clang-format off
constexpr ParameterRow kRows[]{
    {16, "Attack",  "Att",     " ms ", 0.5, 480,  {48, 0.1},  number(limiter::attackMs, 1),                parse::logarithmic(0.1, 100.0)},
    {17, "Release", "Rel",     " ms ", 0.5, 480,  {48, 0.1},  number(limiter::releaseMs, 0),               kDecades},
    {18, "Ceiling", "Clng",    " dB ", 0.8, 200,  {20, 0.1},  checked(number(limiter::ceilingDb, 1)),      parse::plainZero(parse::linear(-40.0, 10.0))},
    {19, "Output",  "Out",     " dB ", 0.5, 400,  {40, 0.1},  number(limiter::outputDb, 1),                parse::plainZero(parse::linear(-20.0, 20.0))},
    {20, "HPF",     "HPF",     " Hz ", 0.0, 480,  {48, 0.1},  checked(frequencyOrOff(limiter::highPassHz)), kDecadesOrOff},
    {21, "Link",    "Link",    "  ",   0.0, 1,    {},         words(kLinked, "-"),                         parse::words(kLinked)},
    {22, "Soft",    "Soft",    "  ",   0.0, 1,    {},         words(kSoft, "-"),                           parse::words(kSoft)},
    {25, "Mode",    "Lim:Mod", "",     0.0, 10,   {10, 1.0},  words(kModes, "Mode ?"),                     parse::search()},
    {28, "Smooth",  "Smth",    "",     0.5, 1000, {100, 0.1}, number(smoothPercent, 0),                    parse::plainZero(parse::linear(0.0, 100.0))},
    {29, "Shape",   "Shpe",    "",     0.2, 10,   {10, 1.0},  words(kShapes, "Shape ?"),                   parse::search()},
    {30, "-[30]",   "Bias",    "",     0.5, 480,  {},         {},                                          {}, true},
};
// clang-format on

} // namespace

Rows limiterRows() noexcept
{
    return kRows;
}

} // namespace velmora
