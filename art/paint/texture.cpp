#include "art/paint/texture.h"

#include "art/paint/grain_field.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <memory>
#include <mutex>
#include <tuple>

namespace velmora::art {
namespace {

using Surface = std::shared_ptr<cairo_surface_t>;
using Key = std::tuple<Grain, int, int, double, std::uint32_t>;

/// White where the relief rises, black where it falls; both in steps of 2/255.
Surface makeTile(Grain grain, int width, int height, double amplitude, std::uint32_t seed)
{
    const GrainField field = makeGrainField(grain, width, height, seed);
    Surface tile(cairo_image_surface_create(CAIRO_FORMAT_ARGB32, width, height), &cairo_surface_destroy);
    unsigned char* const bytes = cairo_image_surface_get_data(tile.get());
    const int stride = cairo_image_surface_get_stride(tile.get());
    const double limit = amplitude * 1.4;
    for (int y = 0; y < height; ++y) {
        auto* const row = reinterpret_cast<std::uint32_t*>(bytes + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < width; ++x) {
            const double value = std::clamp(field.at(x, y) * amplitude * 0.5, -limit, limit);
            const double steps = std::nearbyint(value * 255.0 / 2.0) * 2.0;
            const auto alpha = static_cast<std::uint32_t>(std::abs(steps));
            row[x] = alpha * (steps > 0.0 ? 0x01010101u : 0x01000000u);
        }
    }
    cairo_surface_mark_dirty(tile.get());
    return tile;
}

// Every panel of a unit wants the same tile, from whichever thread.
Surface findTile(Grain grain, int width, int height, double amplitude, std::uint32_t seed)
{
    static std::mutex mutex;
    static std::map<Key, Surface> tiles;
    const std::lock_guard lock(mutex);
    Surface& tile = tiles[Key{grain, width, height, amplitude, seed}];
    if (!tile) tile = makeTile(grain, width, height, amplitude, seed);
    return tile;
}

} // namespace

void paintGrain(cairo_t* cr, Grain grain, double x, double y, double width, double height, double amplitude,
                std::uint32_t seed)
{
    const Surface tile =
        findTile(grain, static_cast<int>(width) + 1, static_cast<int>(height) + 1, amplitude, seed);
    cairo_save(cr);
    cairo_rectangle(cr, x, y, width, height);
    cairo_clip(cr);
    cairo_set_source_surface(cr, tile.get(), std::trunc(x), std::trunc(y));
    cairo_paint(cr);
    cairo_restore(cr);
}

} // namespace velmora::art
