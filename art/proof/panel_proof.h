#pragma once

#include "art/parts/face.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace velmora::art {

/// A control as the editor puts it on a panel, at a value that shows something.
struct Control {
    enum class Kind {
        Film,       ///< the frame of the value
        Lamps,      ///< a bar of lamps, from the bottom
        Reduction,  ///< a bar of lamps, from the top
        Needle,     ///< dial, needle, glass
        Mark,       ///< a mark that runs left over a strip
        FromRight,  ///< a picture revealed from its right end
        FromBottom, ///< a picture revealed from below
    };
    Kind kind;
    std::uint32_t picture;
    int x;
    int y;
    double value;                   ///< position 0..1; of lamps how many are lit
    int height = 0;                 ///< of a bar of lamps, in pixels
    int low = 0, mid = 0, high = 0; ///< lamps of a bar by colour
};

struct PanelProof {
    std::string_view name;
    std::uint32_t background;
    Unit unit;
    std::uint32_t sideChain; ///< key of the foot, 0: it has neither that nor a monitor key
    std::span<const Control> controls;
};

/// Every module panel, in the order of the roles.
std::span<const PanelProof> panelProofs();

constexpr Control film(std::uint32_t picture, int x, int y, double value)
{
    return {Control::Kind::Film, picture, x, y, value};
}

/// The bar of 12 reduction lamps that many panels have. @param lit 0..12
constexpr Control reductionBar(std::uint32_t picture, int x, int y, double lit, int low = 4, int mid = 4,
                               int high = 4)
{
    return {Control::Kind::Reduction, picture, x, y, lit, 180, low, mid, high};
}

} // namespace velmora::art
