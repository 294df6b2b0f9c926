#pragma once

#include "editor/engine/geometry.h"

/// The editor's colours.
namespace velmora::palette {

inline constexpr Rgba kClear{0, 0, 0, 0};
inline constexpr Rgba kValueText{210, 210, 210, 255}; ///< light grey
inline constexpr Rgba kOrange{251, 168, 60, 255};
inline constexpr Rgba kDark{50, 45, 30, 255};
inline constexpr Rgba kDimRed{100, 20, 0, 100};
inline constexpr Rgba kRed{220, 0, 0, 255};
inline constexpr Rgba kNearWhite{240, 240, 250, 255};
inline constexpr Rgba kWhite{255, 255, 255, 255};
inline constexpr Rgba kBlackVeil{10, 10, 10, 210};
inline constexpr Rgba kVeil160{10, 10, 10, 160};
inline constexpr Rgba kVeil100{10, 10, 10, 100};
inline constexpr Rgba kVeil120{10, 10, 10, 120};
inline constexpr Rgba kGrey131{131, 131, 131, 255};
inline constexpr Rgba kGrey160{160, 160, 160, 255};
inline constexpr Rgba kDarkGrey{21, 21, 21, 255};
inline constexpr Rgba kBlue{19, 59, 124, 255};
inline constexpr Rgba kWarmYellow{250, 230, 110, 100};
inline constexpr Rgba kSand{200, 184, 88, 60};
inline constexpr Rgba kTeal{10, 100, 100, 80};
inline constexpr Rgba kShade{40, 40, 40, 110};
inline constexpr Rgba kWarningRed{255, 70, 70, 255};
inline constexpr Rgba kGreen{125, 255, 70, 255};
inline constexpr Rgba kIvory{255, 244, 244, 220};

} // namespace velmora::palette
