#include "editor/engine/toolkit/draw/coordinates.h"
#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/text_engine.h"
#include "editor/engine/toolkit/draw/text_measure.h"

#include <cairo.h>
#include <cmath>

namespace velmora::Qorvane {

void CQORDrawContext::setFont(QORFont* newFont)
{
    font = ResourceRef<QORFont>(newFont);
}

double CQORDrawContext::getStringWidth(std::string_view text)
{
    return textWidth(text, font.get());
}

void CQORDrawContext::drawString(std::string_view text, Point point)
{
    if (!canDraw() || text.empty() || !isCoordinate(point)) return;
    // Glyphs stand on whole pixels of the surface: blurred feet would make small text grey.
    const double x = std::round((point.x + origin.x) * zoom);
    const double y = std::round((point.y + origin.y) * zoom);
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, zoom, 0, 0, zoom, x, y);
    cairo_set_matrix(cr, &matrix);
    cairo_set_source_rgba(cr, fontColor.red / 255.0, fontColor.green / 255.0, fontColor.blue / 255.0,
                          fontColor.alpha / 255.0);
    TextEngine::instance()->show(cr, text, font.get());
    cairo_new_path(cr);
    placeUserSpace();
}

void CQORDrawContext::drawStringInRect(std::string_view text, const Rect& rect, TextAlign align)
{
    if (!canDraw() || text.empty() || !isCoordinate(rect) || rect.empty()) return;
    const double free = rect.width() - getStringWidth(text);
    double left = rect.left;
    if (free > 0.0 && align == TextAlign::Centre) left += free / 2;
    if (free > 0.0 && align == TextAlign::Right) left += free;

    const DeviceRect before = clip;
    const bool cut = free < 0.0;
    if (cut) narrowClip(rect);
    drawString(text, {left, centredBaseline(rect.top, rect.bottom, font.get())});
    if (cut) applyClip(before);
}

} // namespace velmora::Qorvane
