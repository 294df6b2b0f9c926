#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26};

constexpr PresetRow<11> kRows[]{
    //                   Attack  Release  Ratio   Hold    Thrs    Shape   Range   HpIn  HpFreq  LpIn  LpFreq
    {"Default",         {}},
    {"Kick 1",          {0.195,  0.6924,  0.5,    0.1682, 0.6157, 0.5,    0.4702, 0,    0,      1,    0.6354}},
    {"Kick 2",          {0.3251, 0.7297,  0.5,    0.1682, 0.7244, 0.3994, 0.2611, 0,    0,      1,    0.6654}},
    {"Kick 3",          {0.1646, 0.4567,  0.4,    0.5,    0.5,    0.76,   0.5933, 0,    0,      0,    1}},
    {"Snare 1",         {0.255,  0.365,   0.7225, 0.4517, 0.425,  0.5333, 0.3817, 1,    0,      1,    0.25}},
    {"Snare 2",         {0.2515, 0.6093,  0.5,    0.2268, 0.5121, 0.3994, 0.5745, 0,    0,      1,    0.3059}},
    {"Snare @Bottom 1", {0.2515, 0.6093,  0.5,    0.2268, 0.1206, 0.3994, 0.5745, 0,    0,      1,    0.3059}},
    {"Snare @Bottom 2", {0.255,  0.4767,  0.7225, 0.4517, 0.3867, 0.5333, 0.0417, 1,    0,      1,    0.25}},
    {"Hi-Hat 1",        {0,      0.4125,  0.5897, 0.5624, 0.6781, 0.386,  0.4336, 1,    0.2314, 1,    0.7893}},
    {"Hi-Hat 2",        {0.1,    0.3225,  0.5797, 0.6124, 0.6901, 0.486,  0.5336, 1,    0.3821, 1,    0.7993}},
    {"Init",            {0.5,    0.5,     0.5,    0.5,    0.5,    0.5,    0.5,    0.5,  0.5,    0.5,  0.5}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets dynamicsPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
