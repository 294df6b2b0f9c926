#include "editor/engine/toolkit/draw/text_engine.h"

#include "editor/engine/fonts.h"
#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/draw/utf8.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"

#include <functional>
#include <mutex>
#include <pango/pangocairo.h>
#include <strings.h>
#include <utility>

namespace velmora::Qorvane {
namespace {

constexpr std::size_t kMaxTextBytes = 4096;
constexpr std::size_t kLongText = 256; ///< bytes
constexpr char kAnySans[] = "sans-serif";

/// Who stands in for a family that isn't installed. The system's own substitutes would come from other houses
/// and run wider or narrower.
struct Substitute {
    std::string_view name;
    const char* family;
};

constexpr Substitute kSubstitutes[] = {
    {"Arial", "Liberation Sans"},
    {"Helvetica", "Liberation Sans"},
    {"Comic Sans MS", "Comic Neue"},
};

double pixels(int pangoUnits)
{
    return static_cast<double>(pangoUnits) / PANGO_SCALE;
}

} // namespace

TextEngine* TextEngine::instance()
{
    if (!openToolkit()) return nullptr;
    static TextEngine engine;
    return &engine;
}

TextEngine::TextEngine() : source(FontSource::ofProcess()), context(source.context()) {}

TextEngine::~TextEngine()
{
    const std::scoped_lock lock(source);
    forgetAll();
}

void TextEngine::forgetAll()
{
    for (RecentText& entry : recent) {
        if (entry.layout != nullptr) g_object_unref(entry.layout);
        entry = {};
    }
    for (const Face& face : faces) pango_font_description_free(face.description);
    faces.clear();
}

TextEngine::Metrics TextEngine::metricsOf(QORFont* font)
{
    const std::scoped_lock lock(source);
    return faces[static_cast<std::size_t>(faceOf(font))].metrics;
}

double TextEngine::widthOf(std::string_view text, QORFont* font)
{
    const std::scoped_lock lock(source);
    int width = 0;
    int height = 0;
    pango_layout_get_size(layoutOf(text, font), &width, &height);
    return pixels(width);
}

void TextEngine::show(cairo_t* cr, std::string_view text, QORFont* font)
{
    const std::scoped_lock lock(source);
    PangoLayout* const layout = layoutOf(text, font);
    cairo_move_to(cr, 0, -pixels(pango_layout_get_baseline(layout)));
    pango_cairo_show_layout(cr, layout);
}

int TextEngine::faceOf(QORFont* font)
{
    QORFont& wanted = font != nullptr ? *font : *fonts::standard.get();
    for (std::size_t i = 0; i < faces.size(); ++i)
        if (faces[i].size == wanted.getSize() && faces[i].name == wanted.getName())
            return static_cast<int>(i);

    if (faces.size() >= kMaxFaces) forgetAll();
    PangoFontDescription* const description = pango_font_description_new();
    pango_font_description_set_family(description, familyOf(wanted.getName()).c_str());
    pango_font_description_set_absolute_size(description, wanted.getSize() * PANGO_SCALE);
    faces.push_back({std::string(wanted.getName()), wanted.getSize(), description, measure(description)});
    return static_cast<int>(faces.size()) - 1;
}

std::string TextEngine::familyOf(std::string_view name)
{
    const std::string own(showableText(name, 100));
    if (hasFamily(own.c_str())) return own + "," + kAnySans;
    for (const Substitute& substitute : kSubstitutes)
        if (substitute.name == name && hasFamily(substitute.family))
            return std::string(substitute.family) + "," + kAnySans;
    return own + "," + kAnySans;
}

bool TextEngine::hasFamily(const char* family)
{
    PangoFontDescription* const wanted = pango_font_description_new();
    pango_font_description_set_family(wanted, family);
    pango_font_description_set_absolute_size(wanted, 12 * PANGO_SCALE);
    PangoFont* const font = pango_context_load_font(context, wanted);
    pango_font_description_free(wanted);
    if (font == nullptr) return false;
    PangoFontDescription* const found = pango_font_describe(font);
    const char* const name = pango_font_description_get_family(found);
    const bool same = name != nullptr && strcasecmp(name, family) == 0;
    pango_font_description_free(found);
    g_object_unref(font);
    return same;
}

TextEngine::Metrics TextEngine::measure(PangoFontDescription* description)
{
    PangoFontMetrics* const metrics = pango_context_get_metrics(context, description, nullptr);
    const double ascent = pixels(pango_font_metrics_get_ascent(metrics));
    const double descent = pixels(pango_font_metrics_get_descent(metrics));
    pango_font_metrics_unref(metrics);

    PangoLayout* const capital = layOut("H", description);
    PangoRectangle ink{};
    pango_layout_get_extents(capital, &ink, nullptr);
    const double capHeight = pixels(pango_layout_get_baseline(capital) - ink.y);
    g_object_unref(capital);
    return {ascent, descent, capHeight};
}

PangoLayout* TextEngine::layOut(std::string_view text, PangoFontDescription* description)
{
    const std::string shown = showableText(text, kMaxTextBytes);
    PangoLayout* const layout = pango_layout_new(context);
    pango_layout_set_font_description(layout, description);
    pango_layout_set_single_paragraph_mode(layout, TRUE);
    pango_layout_set_text(layout, shown.data(), static_cast<int>(shown.size()));
    return layout;
}

PangoLayout* TextEngine::layoutOf(std::string_view text, QORFont* font)
{
    const int face = faceOf(font);
    const std::size_t key = std::hash<std::string_view>{}(text) + static_cast<std::size_t>(face) * 7919;
    constexpr std::size_t kLast =
        kRecentTexts - 1; // for long texts, one of which takes as much as all others
    RecentText& entry = recent[text.size() <= kLongText ? key % kLast : kLast];
    if (entry.layout != nullptr && entry.face == face && entry.text == text) return entry.layout;

    RecentText laidOut{face, std::string(text), nullptr};
    laidOut.layout = layOut(text, faces[static_cast<std::size_t>(face)].description);
    if (entry.layout != nullptr) g_object_unref(entry.layout);
    entry = std::move(laidOut);
    return entry.layout;
}

double textWidth(std::string_view text, QORFont* font)
{
    TextEngine* const engine = TextEngine::instance();
    return engine != nullptr ? engine->widthOf(text, font) : 0.0;
}

TextHeight textHeight(QORFont* font)
{
    TextEngine* const engine = TextEngine::instance();
    if (engine == nullptr) return {};
    const TextEngine::Metrics metrics = engine->metricsOf(font);
    return {metrics.ascent, metrics.descent};
}

double centredBaseline(double top, double bottom, QORFont* font)
{
    TextEngine* const engine = TextEngine::instance();
    return (top + bottom + (engine != nullptr ? engine->metricsOf(font).capHeight : 0.0)) / 2;
}

} // namespace velmora::Qorvane
