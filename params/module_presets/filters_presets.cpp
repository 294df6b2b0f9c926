#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// clang-format off
constexpr ParameterId kColumns[]{24, 25, 26, 19, 20, 21, 22, 23};

constexpr PresetRow<8> kRows[]{
    //                         HpIn  HpFreq  HpSlope  PrmIn  PrmGain  PrmFreq  PrmQ    PrmType
    {"Default",               {}},
    {"Vocal Basic",           {1,    0.301,  1,       1,     0.4583,  0.4337,  0.555,  0.5}},
    {"Acoustic Gtr Basic",    {1,    0.272,  0.5,     1,     0.4583,  0.2594,  0.5,    0.5}},
    {"Electric Guitar Basic", {1,    0.199,  0,       1,     0.5,     0.159,   0.5,    0.75}},
    {"Bass Guitar Basic",     {1,    0.1505, 0,       1,     0.4583,  0.2917,  0.555,  0.5}},
    {"Piano Basic",           {1,    0.301,  0.5}},
    {"Horn Basic",            {1,    0.3891, 1,       1,     0.4379,  0.5663,  0.5,    1}},
    {"Snare Basic",           {1,    0.301,  0.5,     1,     0.5208,  0.3656,  0.4628, 0.5}},
    {"Kick Basic",            {1,    0,      0,       1,     0.5208,  0.2007,  0.4628, 0.5}},
    {"OverHeads Basic",       {1,    0.5485, 1,       1,     0.4583,  0.5663,  0.568,  0.5}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets filtersPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
