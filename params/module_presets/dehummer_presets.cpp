#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

constexpr double kDeepest = 0.0; // -48 dB
constexpr double k50Hz = 0.0;
constexpr double k60Hz = 1.0;

// clang-format off
constexpr ParameterId kColumns[]{18, 19};

constexpr PresetRow<2> kRows[]{
    //                   Attenuation  Frequency
    {"Default",         {}},
    {"USA basic",       {kDeepest,    k60Hz}},
    {"China basic",     {kDeepest,    k50Hz}},
    {"India basic",     {kDeepest,    k50Hz}},
    {"Japan 1",         {kDeepest,    k50Hz}},
    {"Japan 2",         {kDeepest,    k60Hz}},
    {"Europe basic",    {kDeepest,    k50Hz}},
    {"Australia basic", {kDeepest,    k50Hz}},
    {"Venezuela",       {kDeepest,    k60Hz}},
    {"Nepal",           {kDeepest,    k50Hz}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets dehummerPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
