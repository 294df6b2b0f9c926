#include "art/paint/lettering.h"

#include "art/paint/gradient.h"

#include <fontconfig/fontconfig.h>

#include <array>
#include <cmath>
#include <memory>
#include <string>

namespace velmora::art {
namespace {

// In the order of Face.
constexpr std::array<const char*, 6> kFamilies = {
    "Liberation Sans", "Liberation Sans Narrow", "URW Gothic", "C059", "Liberation Mono", "URW Bookman"};

/// Half the height of capitals, as a share of the size.
constexpr double kCapitalMiddle = 0.358;

struct FontOptions {
    cairo_font_options_t* options = cairo_font_options_create();

    FontOptions()
    {
        cairo_font_options_set_antialias(options, CAIRO_ANTIALIAS_GRAY);
        cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
        cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    }
    ~FontOptions() { cairo_font_options_destroy(options); }
    FontOptions(const FontOptions&) = delete;
    FontOptions& operator=(const FontOptions&) = delete;
};

void useFont(cairo_t* cr, const Lettering& lettering)
{
    const FontOptions font;
    cairo_select_font_face(cr, kFamilies[static_cast<std::size_t>(lettering.face)],
                           lettering.italic ? CAIRO_FONT_SLANT_ITALIC : CAIRO_FONT_SLANT_NORMAL,
                           lettering.bold ? CAIRO_FONT_WEIGHT_BOLD : CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_font_size(cr, lettering.size);
    cairo_set_font_options(cr, font.options);
}

double advance(cairo_t* cr, const std::string& text)
{
    cairo_text_extents_t extents;
    cairo_text_extents(cr, text.c_str(), &extents);
    return extents.x_advance;
}

/// The first letter of UTF-8 text, with its following bytes.
std::string firstLetter(std::string_view text)
{
    if (text.empty()) return {};
    std::size_t length = 1;
    while (length < text.size() && (static_cast<unsigned char>(text[length]) & 0xc0) == 0x80) ++length;
    return std::string(text.substr(0, length));
}

double widthInUse(cairo_t* cr, std::string_view text, double spacing)
{
    if (spacing == 0.0) return advance(cr, std::string(text));
    double width = 0.0;
    while (!text.empty()) {
        const std::string letter = firstLetter(text);
        text.remove_prefix(letter.size());
        width += advance(cr, letter) + (text.empty() ? 0.0 : spacing);
    }
    return width;
}

// As outlines: glyphs would be moved to whole pixels, and the letters of small print stand unevenly.
void write(cairo_t* cr, std::string_view text, double x, double baseline, double spacing)
{
    cairo_new_path(cr);
    if (spacing == 0.0) {
        cairo_move_to(cr, x, baseline);
        cairo_text_path(cr, std::string(text).c_str());
    } else {
        while (!text.empty()) {
            const std::string letter = firstLetter(text);
            text.remove_prefix(letter.size());
            cairo_move_to(cr, x, baseline);
            cairo_text_path(cr, letter.c_str());
            x += advance(cr, letter) + spacing;
        }
    }
    cairo_fill(cr);
}

/// The baseline comes to stand on a whole pixel, and so does the left of a lone letter.
void moveToWholePixel(cairo_t* cr, std::string_view text, double& x, double& y)
{
    cairo_user_to_device(cr, &x, &y);
    if (firstLetter(text).size() == text.size()) x = std::nearbyint(x);
    y = std::nearbyint(y);
    cairo_device_to_user(cr, &x, &y);
}

bool isInstalled(const char* family)
{
    const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> wanted(
        FcPatternBuild(nullptr, FC_FAMILY, FcTypeString, family, static_cast<const char*>(nullptr)),
        &FcPatternDestroy);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const std::unique_ptr<FcPattern, decltype(&FcPatternDestroy)> found(
        FcFontMatch(nullptr, wanted.get(), &result), &FcPatternDestroy);
    if (!found) return false;
    FcChar8* name = nullptr;
    for (int index = 0; FcPatternGetString(found.get(), FC_FAMILY, index, &name) == FcResultMatch; ++index)
        if (std::string_view(reinterpret_cast<const char*>(name)) == family) return true;
    return false;
}

} // namespace

double textWidth(cairo_t* cr, std::string_view text, const Lettering& lettering)
{
    useFont(cr, lettering);
    return widthInUse(cr, text, lettering.spacing);
}

double drawText(cairo_t* cr, std::string_view text, double x, double y, const Lettering& lettering)
{
    const double width = textWidth(cr, text, lettering);
    if (lettering.align == Align::Centre) x -= width / 2;
    if (lettering.align == Align::Right) x -= width;
    double baseline = y + kCapitalMiddle * lettering.size;
    if (lettering.snap) moveToWholePixel(cr, text, x, baseline);

    if (lettering.relief == Relief::DarkInk) {
        useColour(cr, kWhite, 0.55 * lettering.alpha);
        write(cr, text, x + 0.35, baseline + 0.8, lettering.spacing);
    } else if (lettering.relief == Relief::LightInk) {
        useColour(cr, kBlack, 0.6 * lettering.alpha);
        write(cr, text, x - 0.3, baseline - 0.7, lettering.spacing);
    }
    useColour(cr, lettering.colour, lettering.alpha);
    write(cr, text, x, baseline, lettering.spacing);
    return width;
}

std::string missingFamilies()
{
    std::string missing;
    for (const char* family : kFamilies)
        if (!isInstalled(family)) missing += (missing.empty() ? "" : ", ") + std::string(family);
    return missing;
}

void releaseFonts()
{
    cairo_debug_reset_static_data();
    FcFini();
}

} // namespace velmora::art
