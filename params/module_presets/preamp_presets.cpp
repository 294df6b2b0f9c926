#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 23, 24, 25, 26};

constexpr PresetRow<9> kRows[]{
    //                     Gain  AutoIn  RefLevel  Detect  LevelMode  Analog  Drive   NoiseIn  NoiseLevel
    {"Default",           {}},
    {"Clean",             {0.5,  0,      0.5,      1,      0,         0,      0.5,    0,       0.5}},
    {"Soft",              {0.5,  0,      0.5,      1,      0,         1,      0.3333, 0,       0.5}},
    {"Saturated",         {0.5,  0,      0.5,      1,      0,         1,      0.7333, 0,       0.5}},
    {"Driven",            {0.5,  0,      0.5,      1,      0,         1,      1.0,    0,       0.5}},
    {"Analog",            {0.5,  0,      0.5,      1,      0,         1,      0.7333, 0.5,     0.6667}},
    {"Clean [-18dB]",     {0.5,  1,      0.6,      1,      1,         0,      0.5,    0,       0.5}},
    {"Soft [-18dB]",      {0.5,  1,      0.6,      1,      1,         1,      0.3333, 0,       0.5}},
    {"Saturated [-18dB]", {0.5,  1,      0.6,      1,      1,         1,      0.7333, 0,       0.5}},
    {"Driven [-18dB]",    {0.5,  1,      0.6,      1,      1,         1,      1.0,    0,       0.5}},
    {"Analog [-18dB]",    {0.5,  1,      0.6,      1,      1,         1,      0.7333, 0.5,     0.6667}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets preampPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
