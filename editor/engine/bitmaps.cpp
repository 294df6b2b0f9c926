#include "editor/engine/bitmaps.h"

#include "editor/engine/resource_factory.h"

#include <algorithm>
#include <utility>

namespace velmora {

// clang-format off
constexpr std::array<std::uint32_t, kPictureCount> kPictureIds{
    // chassis
    30000, 30001, 30002, 30003, 30004, 30005, 30020, 30050, 30051,
    30060, 30061, 30062, 30063, 30064, 30065, 30066, 30067, 30068, 30070,
    30120, 30122, 30123, 30124, 30125, 30126, 30200, 30201,
    // preamps
    31000, 31001, 31100, 31101, 31102, 31103, 31104, 31200, 31201, 31202, 31203,
    31300, 31301, 31302, 31303, 31304, 31305, 31400, 31401,
    // filters
    32000, 32001, 32002, 32003, 32004, 32100, 32105, 32200, 32201,
    // dynamics
    33000, 33001, 33002, 33003, 33004, 33005, 33006, 33100, 33101, 33200,
    // compressors
    34000, 34001, 34002, 34004, 34005, 34006, 34100, 34101, 34102, 34103, 34104, 34105,
    34200, 34201, 34202, 34203, 34204, 34205,
    // equalizers
    35000, 35001, 35002, 35003, 35004, 35100, 35101, 35102, 35104, 35105, 35106,
    35200, 35201, 35203, 35204, 35205, 35206,
    // limiters
    36000, 36001, 36002, 36003, 36005, 36006, 36100, 36101, 36103, 36104,
    36200, 36201, 36202, 36300, 36301, 36302, 36303,
    // master control
    37000, 37001, 37002, 37003, 37004, 37005, 37006,
    // special modules
    38000, 38001, 38002, 38100, 38101, 38200, 38201, 38202, 38203,
    // spare strip, portraits
    90000,
    90001, 90002, 90003, 90004, 90005, 90006, 90007, 90008, 90009, 90010, 90011, 90012,
    90013, 90014, 90015, 90016, 90017, 90018, 90019, 90020, 90021, 90022, 90023,
};
// clang-format on

static_assert(std::ranges::is_sorted(kPictureIds) && kPictureIds.front() > 0);

QORBitmapAutoReleaseHandler::QORBitmapAutoReleaseHandler(std::uint32_t id) : bitmap(createBitmap(id)) {}

QORBitmapAutoReleaseHandler::~QORBitmapAutoReleaseHandler()
{
    bitmap->forget();
}

namespace {

using Handlers = std::array<QORBitmapAutoReleaseHandler, kPictureCount>;

template <std::size_t... Index>
Handlers makeHandlers(std::index_sequence<Index...>)
{
    return {{QORBitmapAutoReleaseHandler(kPictureIds[Index])...}};
}

const Handlers handlers = makeHandlers(std::make_index_sequence<kPictureCount>());

} // namespace

QORBitmap* bitmapOf(std::uint32_t id)
{
    const auto* const found = std::ranges::lower_bound(kPictureIds, id);
    if (found == kPictureIds.end() || *found != id) return nullptr;
    return handlers[static_cast<std::size_t>(found - kPictureIds.begin())].get();
}

} // namespace velmora
