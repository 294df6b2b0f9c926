#include "editor/engine/toolkit/draw/font_source.h"

#include <pango/pangocairo.h>

namespace velmora::Qorvane {
namespace {

/// Lies in memory of the toolkit's, where every load of the library finds it. Its form goes with the name.
struct Shared {
    GMutex mutex;
    PangoFontMap* fontMap;
    PangoContext* context;
};

constexpr char kName[] = "velmora-font-source-1";

Shared* makeShared()
{
    auto* const shared = static_cast<Shared*>(g_malloc0(sizeof(Shared)));
    g_mutex_init(&shared->mutex);
    shared->fontMap = pango_cairo_font_map_new();
    shared->context = pango_font_map_create_context(shared->fontMap);

    // Widths that don't depend on the zoom, shapes that stand on the pixel rows.
    cairo_font_options_t* const options = cairo_font_options_create();
    cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_SLIGHT);
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    pango_cairo_context_set_font_options(shared->context, options);
    cairo_font_options_destroy(options);
    return shared;
}

Shared* sharedOfProcess()
{
    static Shared* const shared = [] {
        const GQuark name = g_quark_from_string(kName);
        auto* found = static_cast<Shared*>(g_type_get_qdata(G_TYPE_OBJECT, name));
        if (found == nullptr) {
            found = makeShared();
            g_type_set_qdata(G_TYPE_OBJECT, name, found);
        }
        return found;
    }();
    return shared;
}

} // namespace

FontSource& FontSource::ofProcess()
{
    static FontSource source;
    return source;
}

void FontSource::lock()
{
    g_mutex_lock(&sharedOfProcess()->mutex);
}

void FontSource::unlock()
{
    g_mutex_unlock(&sharedOfProcess()->mutex);
}

PangoContext* FontSource::context() const
{
    return sharedOfProcess()->context;
}

} // namespace velmora::Qorvane
