#include "modules/input/component_spread.h"

#include <algorithm>
#include <atomic>

namespace velmora::preamp {

namespace {

struct SpreadRow {
    double a, b, c, d;
};

constexpr std::array<SpreadRow, kSpreadCount> kSpread{{
    {0.99, 1.0, 0.99, 1.05},
    {1.03, 1.19, 0.92, 0.99},
    {1.01, 0.99, 1.03, 1.15},
    {0.92, 0.83, 0.82, 0.81},
    {1.03, 1.0, 0.89, 0.89},
    {1.2, 1.12, 0.99, 1.12},
    {1.12, 1.21, 1.03, 1.0},
    {0.88, 0.82, 1.01, 1.19},
    {0.92, 0.89, 0.83, 1.21},
    {1.1, 0.96, 1.0, 0.96},
    {0.85, 0.9, 1.2, 1.02},
    {1.05, 0.97, 1.12, 0.81},
    {0.89, 0.95, 0.88, 0.97},
    {1.15, 1.17, 0.92, 1.17},
    {1.09, 0.97, 1.1, 1.09},
    {0.89, 0.95, 0.85, 0.95},
}};

using SeedTable = std::array<std::uint32_t, kSpreadCount>;
constexpr SeedTable kSeedsA{11731, 1137,  17077, 329,   23071, 23117, 39,   7043,
                            24073, 12037, 127,   17191, 5057,  201,   9337, 2091};
constexpr SeedTable kSeedsB{19763, 1101,  5021,  12139, 5297, 9127,  1123,  3193,
                            3141,  15271, 15731, 7133,  1227, 18117, 15101, 1015};
constexpr SeedTable kSeedsC{767,   29637, 2171, 1761, 9771, 7479, 23391, 15237,
                            71375, 377,   697,  893,  921,  757,  3729,  5987};

constexpr bool noneIsZero(const SeedTable& table)
{
    return std::none_of(table.begin(), table.end(), [](std::uint32_t seed) { return seed == 0; });
}
static_assert(noneIsZero(kSeedsA) && noneIsZero(kSeedsB) && noneIsZero(kSeedsC), "a zero word stays zero");

constexpr const SpreadRow& spreadRow(std::int32_t index)
{
    return kSpread[static_cast<unsigned>(index) % kSpreadCount];
}

} // namespace

ComponentSpread componentSpread(std::int32_t i)
{
    const auto a = [i](int offset) { return spreadRow(i + offset).a; };
    const auto b = [i](int offset) { return spreadRow(i + offset).b; };
    const auto c = [i](int offset) { return spreadRow(i + offset).c; };
    const auto d = [i](int offset) { return spreadRow(i + offset).d; };
    return {
        .tolerance = {a(3), b(1), a(5), a(-4), b(7), b(-2), a(-2), b(-8)},
        .noiseTrim = {b(3), a(0)},
        .curveTrim = {c(0), c(5)},
        .biasTrim = {c(1), d(6)},
    };
}

RailSeeds railSeeds(std::int32_t instanceIndex)
{
    const auto i = static_cast<unsigned>(instanceIndex) % kSpreadCount;
    const std::uint32_t t = kSeedsA[i];
    const std::uint32_t u = kSeedsB[i];
    const std::uint32_t v = kSeedsC[i];
    const GeneratorWords left{
        ((((t >> 9) ^ t) >> 15) & 15u) ^ (t * 16u),
        ((((u >> 2) ^ u) >> 24) & 7u) ^ (u * 8u),
        (v * 2u) ^ ((((v << 6) ^ v) * 2u) >> 31),
    };
    return {left, {t, u, v}};
}

std::int32_t nextInstanceIndex()
{
    static constinit std::atomic<std::uint32_t> counter{0};
    return static_cast<std::int32_t>(counter.fetch_add(1, std::memory_order_relaxed) % kSpreadCount);
}

} // namespace velmora::preamp
