#pragma once

#include <array>

namespace velmora::art {

/// A mark on the scale of a gain reduction meter.
struct MeterMark {
    double decibels;
    bool numbered;
    double nudge = 0.0; ///< of the number along the scale, in deflection, where two stand close
};

inline constexpr std::array<MeterMark, 15> kNeedleMarks{{
    {0, true},
    {1, true},
    {2, true},
    {3, true},
    {4, false},
    {5, true},
    {6, false},
    {7, true},
    {8, false},
    {9, false},
    {10, true},
    {12, false},
    {15, true, -0.012},
    {20, true, 0.018},
    {30, false},
}};

inline constexpr std::array<MeterMark, 14> kStripMarks{{
    {0, true},
    {1, true},
    {2, true},
    {3, true},
    {4, false},
    {5, true},
    {6, false},
    {7, true},
    {8, false},
    {10, true},
    {12, false},
    {15, false},
    {20, true},
    {30, false},
}};

} // namespace velmora::art
