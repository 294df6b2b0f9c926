#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

constexpr double kStartQ = 0.636715681427498; // Q 6, the default

// clang-format off
constexpr ParameterId kColumns[]{16, 17, 18, 19, 20, 21};

constexpr PresetRow<6> kRows[]{
    //                    Freq    Q        Sensitivity  Range   Ratio  Split
    {"Default",          {}},
    {"Voice 1",          {0.8,    0.97,    0.5,         0.5,    0,     0}},
    {"Voice 2",          {0.72,   kStartQ, 0.5,         0.5,    0,     0}},
    {"Voice 3",          {0.5936, kStartQ, 0.4033,      0.3484, 0,     0}},
    {"Wind 1",           {0.4467, 0.75,    0.6867,      0.4967, 0,     1}},
    {"Wind 2",           {0.5617, 0.375,   0.7317,      0.535,  0,     1}},
    {"Drum Resonance 1", {0.4934, 0.6784,  0.87,        0.4983, 1,     1}},
    {"Drum Resonance 2", {0.57,   0.6784,  0.87,        0.4983, 1,     1}},
    {"Drum Resonance 3", {0.5393, 0.6292,  0.5901,      0.5823, 0,     0}},
    {"Hi-Hat",           {0.6984, 0.6784,  0.6867,      0.29,   1,     1}},
};
// clang-format on

constexpr auto kPresets = presetsOf(kColumns, kRows);

} // namespace

Presets deesserPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
