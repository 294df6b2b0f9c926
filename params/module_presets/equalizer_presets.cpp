#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33};

constexpr PresetRow<18> kRows[]{
    //                     HiIn  Gain    Freq    Q  HmIn  Gain    Freq    Q    LmIn  Gain    Freq    Q    LoIn  Gain    Freq    Q  Out     Analog
    {"Default",           {}},
    {"A little help",     {1,    0.515,  0.3533, 0, 0,    0.5,    0.5,    0.5, 1,    0.485,  0,      0,   1,    0.545,  0.5,    1, 0.5,    1}},
    {"Walking Low End",   {0,    0.535,  0.3683, 0, 0,    0.375,  0.43,   0.5, 1,    0.319,  0.6263, 0.5, 1,    0.5646, 0.3967, 0, 0.5,    1}},
    {"Opened like piano", {1,    0.67,   0.8,    0, 1,    0.5554, 0.7867, 0,   1,    0.4661, 0.1732, 0.5, 1,    0.6634, 0.3779, 1, 0.5,    1}},
    {"Darker",            {1,    0.4444, 0.0593, 0, 1,    0.5556, 0.1963, 0.5, 1,    0.4444, 0.5,    0.5, 1,    0.5556, 0.7685, 0, 0.5,    1}},
    {"Warmer, brighter",  {1,    0.555,  0.6333, 0, 1,    0.5,    0.5,    0.5, 1,    0.59,   0.2667, 0,   1,    0.5,    0.4933, 0, 0.5,    1}},
    {"Extra presence",    {1,    0.5564, 1,      0, 0,    0.6654, 0.5,    0,   1,    0.4448, 0,      0,   1,    0.6105, 0.0852, 1, 0.5,    1}},
    {"Warmer",            {1,    0.445,  0.8,    0, 1,    0.5654, 0.3667, 0,   0,    0.4661, 0.1732, 0.5, 1,    0.5684, 0.5446, 0, 0.4324, 1}},
    {"Telefunkenstein",   {1,    0.44,   0.74,   0, 1,    0.38,   0.8533, 0.5, 1,    0.435,  0.6,    0.5, 1,    0.5,    0.5,    0, 0.5,    1}},
    {"Not so boxy",       {1,    0.545,  0.71,   0, 1,    0.475,  0.0233, 1,   1,    0.445,  0.4241, 0,   1,    0.56,   0.5833, 0, 0.5,    1}},
    {"Future preset",     {}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets equalizerPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
