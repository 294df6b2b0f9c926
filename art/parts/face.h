#pragma once

#include "art/paint/colour.h"
#include "art/paint/lettering.h"
#include "art/paint/texture.h"

namespace velmora::art {

inline constexpr int kPanelWidth = 152;
inline constexpr int kPanelHeight = 538;

/// Units whose panels share a face.
enum class Unit {
    Gain,
    Pre60s,
    Pre70s,
    Pre80s,
    Adc90s,
    Filters,
    Dynamics,
    Opto,
    Fet,
    Vca,
    Sorrel,
    Tamarin,
    Juniper,
    OptoLimiter,
    VcaLimiter,
    BrickWall,
    Saturator,
    Master,
    Special,
};

/// Grounds of the value windows.
enum class WindowStyle { Dark, Smoke, Cream, Lcd, Sage, Olive, White, Lavender };

/// What a unit's panel is made of.
struct UnitFace {
    Colour base;
    Grain grain;
    double grainAmount;
    Colour ink;
    Relief relief; ///< how the ink sits in the face
    Colour tint;   ///< of the name on the title plate
    WindowStyle window;
    Colour accent;

    /// Light faces carry dark ink.
    bool isLight() const { return relief == Relief::DarkInk; }
};

const UnitFace& faceOf(Unit unit);

} // namespace velmora::art
