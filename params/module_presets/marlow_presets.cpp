#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 21, 22, 23, 24};

constexpr PresetRow<9> kRows[]{
    //                      Thrs  Time  Freq  Above  Below  Q     Trans  Type  Control
    {"Default",            {}},
    {"Acc Gtr Res Cntr 1", {0.51, 0.5,  0.31, 0.28,  0.5,   0.57, 0.5,   0.5,  0.5}},
    {"Acc Gtr Res Cntr 2", {0.59, 0.5,  0.23, 0.28,  0.5,   0.57, 0.5,   0.5,  0.5}},
    {"Brighten Up",        {0.21, 0.65, 0.62, 0.5,   0.61,  0.26, 1,     1,    0.5}},
    {"Deessing 1",         {0.51, 0.35, 0.85, 0.25,  0.5,   0.57, 0.5,   0.5,  0.5}},
    {"High Shelf Control", {0.5,  0.2,  0.77, 0.25,  0.62,  0.51, 0.5,   1,    0.5}},
    {"Low Extension",      {0.21, 0.35, 0.3,  0.5,   0.71,  0.26, 1,     0,    0.5}},
    {"Plosive Control",    {0.6,  0,    0.29, 0,     0.5,   0.26, 0.25,  0,    0.5}},
    {"Snr Springs Ext",    {0.5,  0,    0.6,  0.31,  0.69,  0.51, 0.5,   1,    0.5}},
    {"Init",               {}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets marlowPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
