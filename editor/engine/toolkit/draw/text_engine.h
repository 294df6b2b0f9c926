#pragma once

#include "editor/engine/resource.h"
#include "editor/engine/toolkit/draw/font_source.h"
#include "editor/engine/toolkit/draw/text_measure.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

typedef struct _cairo cairo_t;
typedef struct _PangoContext PangoContext;
typedef struct _PangoFontDescription PangoFontDescription;
typedef struct _PangoLayout PangoLayout;

namespace velmora::Qorvane {

/// Lays text out and finds the faces for it; keeps the layouts of recent short texts. One for all editors,
/// with a font map of its own, so that a host's is left alone; all calls are locked against each other. Needs
/// `openToolkit()`. Lengths are pixels at 100 %.
class TextEngine {
public:
    struct Metrics {
        double ascent;
        double descent;
        double capHeight;
    };

    /// @return null if the toolkit can't be had
    static TextEngine* instance();

    ~TextEngine();
    TextEngine(const TextEngine&) = delete;
    TextEngine& operator=(const TextEngine&) = delete;

    Metrics metricsOf(QORFont* font);
    double widthOf(std::string_view text, QORFont* font);
    std::vector<TextStop> stopsOf(std::string_view text);
    double caretPosition(std::string_view text, std::size_t byte, QORFont* font);
    std::size_t byteAt(std::string_view text, double x, QORFont* font);
    /// With the left end of the baseline at the origin of the context's user space.
    void show(cairo_t* cr, std::string_view text, QORFont* font);

private:
    /// A font's name and size, with the face that was found for it.
    struct Face {
        std::string name;
        double size;
        PangoFontDescription* description;
        Metrics metrics;
    };
    struct RecentText {
        int face = -1;
        std::string text;
        PangoLayout* layout = nullptr;
    };

    TextEngine();
    int faceOf(QORFont* font);
    std::string familyOf(std::string_view name);
    bool hasFamily(const char* family);
    Metrics measure(PangoFontDescription* description);
    PangoLayout* layOut(std::string_view text, PangoFontDescription* description);
    /// Of the recent ones; stays the engine's until the next call.
    PangoLayout* layoutOf(std::string_view text, QORFont* font);
    void forgetAll();

    static constexpr std::size_t kRecentTexts = 512;
    static constexpr std::size_t kMaxFaces = 64;

    FontSource& source;
    PangoContext* context;
    std::vector<Face> faces;
    std::array<RecentText, kRecentTexts> recent;
};

} // namespace velmora::Qorvane
