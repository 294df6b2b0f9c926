#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 21, 22, 23};

constexpr PresetRow<8> kRows[]{
    //                Attack  Release  Thrs  Ratio   Mix   Makeup  HPF  Link
    {"Default",      {}},
    {"Soft comp",    {0.3333, 0.301,   0.74, 0.1882, 1,    0.15,   0,   1}},
    {"Density",      {0.2594, 0.0536,  0.68, 0.5,    1,    0.225,  0.5, 1}},
    {"Master Track", {0.159,  0.301,   0.68, 0.7249, 0.75, 0.3,    1,   1}},
    {"Fast Limit",   {0.1003, 0.301,   0.62, 0.856,  1,    0.45,   0,   1}},
    {"Hard Limit",   {0,      0.301,   0.62, 1,      1,    0.45,   0,   1}},
    {"Slow Limit",   {0.159,  0.5509,  0.68, 0.856,  1,    0.375,  0,   1}},
    {"Squeezer",     {0.159,  0.5509,  0.44, 0.856,  1,    0.45,   1,   1}},
    {"Destructor",   {0,      0,       0.56, 0.921,  1,    0.6,    0,   1}},
    {"Parallel",     {0.3,    0.4,     0.62, 0.856,  0.5,  0.45,   0.5, 1}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets compressorPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
