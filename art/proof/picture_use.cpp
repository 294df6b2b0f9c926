#include "art/proof/picture_use.h"

#include <algorithm>
#include <array>

namespace velmora::art {
namespace {

// clang-format off
constexpr std::array kUses = std::to_array<PictureUse>({
    {30002, 2}, {30003, 3}, {30004, 3}, {30005, 3}, {30122, 2}, {30123, 2}, {30124, 4}, {30125, 2}, {30126, 2},
    {31101, 301, 17, Unit::Pre60s}, {31102, 2, 1, Unit::Pre60s}, {31103, 2, 1, Unit::Pre60s},
    {31201, 301, 17, Unit::Pre70s}, {31202, 2, 1, Unit::Pre70s},
    {31301, 4}, {31302, 2}, {31303, 2}, {31304, 301, 17, Unit::Pre80s},
    {32001, 301, 17, Unit::Filters}, {32002, 301, 17, Unit::Filters}, {32003, 3, 1, Unit::Filters},
    {32004, 2, 1, Unit::Filters}, {32105, 5, 1, Unit::Filters}, {32201, 1, 1, Unit::Filters},
    {33001, 301, 17, Unit::Dynamics}, {33002, 301, 17, Unit::Dynamics}, {33003, 301, 17, Unit::Dynamics},
    {33004, 301, 17, Unit::Dynamics}, {33005, 301, 17, Unit::Dynamics}, {33006, 301, 17, Unit::VcaLimiter},
    {33101, 4, 1, Unit::Dynamics},
    {34001, 301, 17, Unit::Opto}, {34002, 301, 17, Unit::Opto}, {34004, 2, 1, Unit::Opto}, {34005, 2, 1, Unit::OptoLimiter},
    {34101, 301, 17, Unit::Fet}, {34102, 301, 17, Unit::Fet}, {34103, 2, 1, Unit::Fet}, {34104, 2, 1, Unit::Fet},
    {34201, 301, 17, Unit::Vca}, {34202, 301, 17, Unit::Vca}, {34203, 2, 1, Unit::Vca}, {34204, 2, 1, Unit::Vca},
    {35001, 301, 17, Unit::Sorrel}, {35002, 301, 17, Unit::Sorrel}, {35003, 3, 1, Unit::Sorrel}, {35004, 2, 1, Unit::Sorrel},
    {35101, 301, 17, Unit::Tamarin}, {35102, 2, 1, Unit::Tamarin}, {35104, 2, 1, Unit::Tamarin},
    {35105, 1, 1, Unit::Tamarin}, {35106, 3, 1, Unit::Tamarin},
    {35201, 301, 17, Unit::Juniper}, {35203, 117, 11, Unit::Juniper}, {35204, 3, 1, Unit::Juniper},
    {35205, 2, 1, Unit::Juniper}, {35206, 2, 1, Unit::Juniper},
    {36001, 301, 17, Unit::OptoLimiter}, {36002, 301, 17, Unit::OptoLimiter}, {36003, 2, 1, Unit::OptoLimiter},
    {36005, 291, 17, Unit::Special}, {36103, 2, 1, Unit::VcaLimiter}, {36104, 14, 1, Unit::VcaLimiter},
    {36202, 1, 1, Unit::BrickWall}, {36302, 110, 10, Unit::Saturator}, {36303, 1, 1, Unit::Saturator},
    {37002, 1, 1, Unit::Master}, {37003, 1, 1, Unit::Master}, {37004, 1, 1, Unit::Master}, {37005, 1, 1, Unit::Master},
    {37006, 2, 1, Unit::Master},
    {38001, 2, 1, Unit::Special}, {38002, 1, 1, Unit::Special}, {38101, 1, 1, Unit::Special},
    {38201, 3, 1, Unit::Special}, {38202, 1, 1, Unit::Special}, {38203, 2, 1, Unit::Special},
});
// clang-format on

static_assert(std::ranges::is_sorted(kUses, {}, &PictureUse::id));

} // namespace

PictureUse useOf(std::uint32_t id)
{
    const auto row = std::ranges::lower_bound(kUses, id, {}, &PictureUse::id);
    return row != kUses.end() && row->id == id ? *row : PictureUse{id};
}

} // namespace velmora::art
