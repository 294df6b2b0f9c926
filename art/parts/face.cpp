#include "art/parts/face.h"

#include <array>

namespace velmora::art {
namespace {

using enum Grain;
constexpr Relief kDark = Relief::DarkInk;
constexpr Relief kLight = Relief::LightInk;

// In the order of Unit; a row without an accent of its own repeats its ink.
// clang-format off
constexpr std::array<UnitFace, 19> kFaces{{
    // base        grain, amount         ink            relief   tint           window                 accent
    {hex(0x3d4247), BrushedAcross, 0.050, hex(0xe3e6e8), kLight, hex(0xdfe4e8), WindowStyle::Dark,     hex(0xe3e6e8)},
    {hex(0xded0ab), Fine,          0.035, hex(0x33231b), kDark,  hex(0xf0e2bf), WindowStyle::Cream,    hex(0x7c2a22)},
    {hex(0x526574), Hammer,        0.045, hex(0xf1f4f5), kLight, hex(0xc4dbea), WindowStyle::Dark,     hex(0xb5452f)},
    {hex(0x1e1f21), Crinkle,       0.070, hex(0xe6e8ea), kLight, hex(0xe2e4e6), WindowStyle::Dark,     hex(0xd8433a)},
    {hex(0xcfcabc), Fine,          0.030, hex(0x2b2c2d), kDark,  hex(0xd9dccb), WindowStyle::Lcd,      hex(0x4c6a72)},
    {hex(0x333a40), BrushedAcross, 0.055, hex(0xe4e8ea), kLight, hex(0xbfd3de), WindowStyle::Dark,     hex(0x7fb2cc)},
    {hex(0x20292d), Fine,          0.040, hex(0xdfe6e6), kLight, hex(0xcfdedd), WindowStyle::Dark,     hex(0x35a79c)},
    {hex(0xeae3d1), Fine,          0.025, hex(0x3b2c1f), kDark,  hex(0xefdcae), WindowStyle::Smoke,    hex(0x9a7b3e)},
    {hex(0x131416), BrushedAcross, 0.050, hex(0xeceef0), kLight, hex(0xffcf7a), WindowStyle::Dark,     hex(0xf59a26)},
    {hex(0x3b4046), BrushedDown,   0.050, hex(0xe3e9ee), kLight, hex(0xb6cbdd), WindowStyle::Dark,     hex(0x8fb0ca)},
    {hex(0x4c332c), Leather,       0.050, hex(0xf3e6dc), kLight, hex(0xf0cdb6), WindowStyle::Dark,     hex(0xd98f68)},
    {hex(0x2a2825), Crinkle,       0.060, hex(0xefe8dc), kLight, hex(0xffb65c), WindowStyle::Dark,     hex(0xff9f2e)},
    {hex(0xbcc7bb), Fine,          0.030, hex(0x1d2d27), kDark,  hex(0xc4e0d0), WindowStyle::Sage,     hex(0x1f5546)},
    {hex(0xa5ae96), Hammer,        0.040, hex(0x20241c), kDark,  hex(0xdbe3c6), WindowStyle::Olive,    hex(0x55603f)},
    {hex(0x2a3239), BrushedAcross, 0.050, hex(0xe0e7ec), kLight, hex(0xa9cdee), WindowStyle::Dark,     hex(0x6fb4ff)},
    {hex(0xcdd1d4), BrushedAcross, 0.060, hex(0x23272b), kDark,  hex(0xe7ecef), WindowStyle::White,    hex(0xd2562f)},
    {hex(0x222a3d), Crinkle,       0.050, hex(0xead9ac), kLight, hex(0xecd9a4), WindowStyle::Dark,     hex(0xc6a45c)},
    {hex(0x2e3135), BrushedDown,   0.050, hex(0xe2e5e8), kLight, hex(0xe8ebee), WindowStyle::Dark,     hex(0xc3c8cc)},
    {hex(0xa9aebd), BrushedAcross, 0.055, hex(0x20232e), kDark,  hex(0xd5daec), WindowStyle::Lavender, hex(0x4a5480)},
}};
// clang-format on

} // namespace

const UnitFace& faceOf(Unit unit)
{
    return kFaces[static_cast<std::size_t>(unit)];
}

} // namespace velmora::art
