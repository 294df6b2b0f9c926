#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

// One setting serves the opto, the VCA, the brick wall and the saturator: Attack speaks to the first two, the
// high pass to all but the brick wall, Mode to the brick wall, Smooth and Shape to the saturator. Output makes
// up for less than the ceiling takes, so that what stays at the ceiling leaves below full scale.
// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 22, 25, 28, 29};

constexpr PresetRow<9> kRows[]{
    //                     Attack  Release  Ceiling  Output  HPF     Soft  Mode  Smooth  Shape
    {"Default",           {}},
    {"Density",           {0.5663, 0.4515,  0.48,    0.65,   0.3891, 1,    0.2,  0.4,    0.2}}, // 5 ms, 80 ms, -16 dB, +6 dB, 60 Hz; Mode 3, Tape 1
    {"Full Bass Control", {0.4924, 0.588,   0.52,    0.6,    0,      1,    0.2,  0.75,   0.3}}, // 3 ms, 150 ms, -14 dB, +4 dB, off; Mode 3, Tape 2
    {"Almost Brickwall",  {0,      0.2386,  0.68,    0.625,  0,      0,    0,    0,      0.5}}, // 0.1 ms, 30 ms, -6 dB, +5 dB, off; Mode 1, Hard Clip
    {"Fat Bass",          {0.7254, 0.5,     0.44,    0.65,   0.588,  1,    0.2,  0.6,    0.1}}, // 15 ms, 100 ms, -18 dB, +6 dB, 150 Hz; Mode 3, Valve 2
    {"A little smash",    {0.3333, 0.199,   0.48,    0.675,  0.301,  0,    0.1,  0.2,    0.3}}, // 1 ms, 25 ms, -16 dB, +7 dB, 40 Hz; Mode 2, Tape 2
    {"Kick It",           {0.6667, 0.301,   0.6,     0.6,    0,      0,    0,    0.3,    0.4}}, // 10 ms, 40 ms, -10 dB, +4 dB, off; Mode 1, Soft Clip
    {"Funky",             {0.6344, 0.301,   0.52,    0.625,  0.4515, 1,    0.1,  0.3,    0.2}}, // 8 ms, 40 ms, -14 dB, +5 dB, 80 Hz; Mode 2, Tape 1
    {"Group",             {0.5663, 0.588,   0.64,    0.575,  0.4515, 1,    0.2,  0.6,    0.2}}, // 5 ms, 150 ms, -8 dB, +3 dB, 80 Hz; Mode 3, Tape 1
    {"Walking Bass",      {0.6667, 0.6505,  0.56,    0.575,  0.2386, 1,    0.2,  0.8,    0}},   // 10 ms, 200 ms, -12 dB, +3 dB, 30 Hz; Mode 3, Valve 1
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets limiterPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
