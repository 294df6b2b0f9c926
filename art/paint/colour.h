#pragma once

#include <cstdint>

namespace velmora::art {

/// A colour without transparency. @range each channel 0..1
struct Colour {
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;

    constexpr bool operator==(const Colour&) const = default;
};

/// A colour from its six hexadecimal digits, for example 0x3d4247.
constexpr Colour hex(std::uint32_t rgb)
{
    return {((rgb >> 16) & 0xff) / 255.0, ((rgb >> 8) & 0xff) / 255.0, (rgb & 0xff) / 255.0};
}

inline constexpr Colour kWhite{1.0, 1.0, 1.0};
inline constexpr Colour kBlack{0.0, 0.0, 0.0};

/// @range share 0 gives `from`, 1 gives `to`
constexpr Colour mix(Colour from, Colour to, double share)
{
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

constexpr Colour lighter(Colour colour, double share)
{
    return mix(colour, kWhite, share);
}

constexpr Colour darker(Colour colour, double share)
{
    return mix(colour, kBlack, share);
}

} // namespace velmora::art
