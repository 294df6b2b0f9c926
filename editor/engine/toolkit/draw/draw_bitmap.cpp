#include "editor/engine/toolkit/draw/bitmap.h"
#include "editor/engine/toolkit/draw/coordinates.h"
#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/picture.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>

namespace velmora::Qorvane {
namespace {

int nearest(double x)
{
    return static_cast<int>(std::lround(x));
}

} // namespace

/// The part of the picture is cut out as an image of its own, so that at any zoom nothing of a neighbouring
/// frame bleeds in; its corners lie on whole pixels of the surface.
void CQORDrawContext::drawBitmap(QORBitmap* bitmap, const Rect& dest, Point sourceOffset, double alpha)
{
    if (!hasRoom() || !isCoordinate(dest) || !isCoordinate(sourceOffset) || !(alpha > 0.0)) return;
    auto* const ours = dynamic_cast<CQORBitmap*>(bitmap);
    const Picture* const picture = ours != nullptr ? ours->pixels() : nullptr;
    if (picture == nullptr) return;

    const int offsetX = nearest(sourceOffset.x);
    const int offsetY = nearest(sourceOffset.y);
    const int left = std::max(0, offsetX);
    const int top = std::max(0, offsetY);
    const int right = std::min(picture->width(), offsetX + nearest(dest.width()));
    const int bottom = std::min(picture->height(), offsetY + nearest(dest.height()));
    if (left >= right || top >= bottom) return;

    const Rect covered =
        rectAt(dest.left + left - offsetX, dest.top + top - offsetY, right - left, bottom - top);
    const DeviceRect device = onDevice(covered, false);
    const DeviceRect visible{std::max(device.left, clip.left), std::max(device.top, clip.top),
                             std::min(device.right, clip.right), std::min(device.bottom, clip.bottom)};
    if (visible.left >= visible.right || visible.top >= visible.bottom) return;

    const bool exact =
        device.right - device.left == right - left && device.bottom - device.top == bottom - top;
    if (exact && alpha >= 1.0 && picture->target() != surface) {
        layPicture(*picture, left + visible.left - device.left, top + visible.top - device.top, visible);
        return;
    }

    canDraw();
    cairo_surface_t* const part = picture->part(left, top, right - left, bottom - top);
    const double scaleX = static_cast<double>(right - left) / (device.right - device.left);
    const double scaleY = static_cast<double>(bottom - top) / (device.bottom - device.top);
    cairo_identity_matrix(cr);
    cairo_set_source_surface(cr, part, 0, 0);
    cairo_pattern_t* const pattern = cairo_get_source(cr);
    cairo_matrix_t toPart;
    cairo_matrix_init(&toPart, scaleX, 0, 0, scaleY, -device.left * scaleX, -device.top * scaleY);
    cairo_pattern_set_matrix(pattern, &toPart);
    cairo_pattern_set_filter(pattern, exact ? CAIRO_FILTER_NEAREST : CAIRO_FILTER_GOOD);
    cairo_pattern_set_extend(pattern, exact ? CAIRO_EXTEND_NONE : CAIRO_EXTEND_PAD);
    fillSource(visible, alpha);
    cairo_surface_destroy(part);
    placeUserSpace();
}

/// Small and narrow parts, as of meters, come out two to three times as fast as by the library.
void CQORDrawContext::layPicture(const Picture& picture, int fromLeft, int fromTop, const DeviceRect& rect)
{
    constexpr int kPixelBytes = 4;
    cairo_surface_flush(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    std::uint8_t* const to = cairo_image_surface_get_data(surface) +
                             static_cast<std::ptrdiff_t>(rect.top) * stride + rect.left * kPixelBytes;
    picture.layPart(fromLeft, fromTop, rect.right - rect.left, rect.bottom - rect.top, to, stride);
    cairo_surface_mark_dirty(surface);
}

void CQORDrawContext::fillSource(const DeviceRect& rect, double alpha)
{
    cairo_rectangle(cr, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top);
    if (alpha >= 1.0) {
        cairo_fill(cr);
    } else {
        cairo_save(cr);
        cairo_clip(cr);
        cairo_paint_with_alpha(cr, alpha);
        cairo_restore(cr);
    }
    cairo_set_source_rgba(cr, 0, 0, 0, 1); // lets the part go
}

} // namespace velmora::Qorvane
