#include "editor/engine/toolkit/draw/draw_context.h"

#include "editor/engine/toolkit/draw/bitmap.h"
#include "editor/engine/toolkit/draw/coordinates.h"
#include "editor/engine/toolkit/draw/picture.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <numbers>
#include <utility>

namespace velmora::Qorvane {
namespace {

constexpr double kMinZoom = 0.1;
constexpr double kMaxZoom = 16.0;
constexpr double kMaxLineWidth = 1000.0;
constexpr double kFullTurn = 360.0;
constexpr double kRadians = std::numbers::pi / 180.0;

void setSource(cairo_t* cr, Rgba colour)
{
    cairo_set_source_rgba(cr, colour.red / 255.0, colour.green / 255.0, colour.blue / 255.0,
                          colour.alpha / 255.0);
}

bool fills(DrawStyle style)
{
    return style != DrawStyle::Stroked;
}

bool strokes(DrawStyle style)
{
    return style != DrawStyle::Filled;
}

} // namespace

CQORDrawContext::CQORDrawContext(const PixelBuffer& pixels, double zoomFactor)
{
    if (!openToolkit() || pixels.bytes == nullptr) return;
    surface = cairo_image_surface_create_for_data(pixels.bytes, CAIRO_FORMAT_ARGB32, pixels.width,
                                                  pixels.height, pixels.stride);
    start(zoomFactor);
}

CQORDrawContext::CQORDrawContext(cairo_surface_t* target, double zoomFactor)
{
    if (!openToolkit() || target == nullptr) return;
    surface = cairo_surface_reference(target);
    start(zoomFactor);
}

CQORDrawContext::~CQORDrawContext()
{
    if (surface == nullptr) return;
    cairo_destroy(cr);
    cairo_surface_flush(surface);
    cairo_surface_destroy(surface);
}

void CQORDrawContext::start(double newZoom)
{
    zoom = isCoordinate(newZoom) ? std::clamp(newZoom, kMinZoom, kMaxZoom) : 1.0;
    whole = {0, 0, cairo_image_surface_get_width(surface), cairo_image_surface_get_height(surface)};
    cr = cairo_create(surface);
    applyClip(whole);
}

void CQORDrawContext::setOrigin(Point newOrigin)
{
    if (cr == nullptr || !isCoordinate(newOrigin)) return;
    origin = newOrigin;
    placeUserSpace();
}

void CQORDrawContext::placeUserSpace()
{
    cairo_matrix_t matrix;
    cairo_matrix_init(&matrix, zoom, 0, 0, zoom, origin.x * zoom, origin.y * zoom);
    cairo_set_matrix(cr, &matrix);
}

CQORDrawContext::DeviceRect CQORDrawContext::onDevice(const Rect& rect, bool widened) const
{
    const Rect placed = rect.movedBy(origin.x, origin.y);
    constexpr double kGrain = 1e-6; // of sums that should have come out whole
    const auto low = [&](double x) {
        return static_cast<int>(widened ? std::floor(x + kGrain) : std::round(x));
    };
    const auto high = [&](double x) {
        return static_cast<int>(widened ? std::ceil(x - kGrain) : std::round(x));
    };
    return {low(placed.left * zoom), low(placed.top * zoom), high(placed.right * zoom),
            high(placed.bottom * zoom)};
}

CQORDrawContext::DeviceRect CQORDrawContext::limit() const
{
    return limitDepth > 0 ? limits[std::min(limitDepth, kMaxLimits) - 1] : whole;
}

void CQORDrawContext::applyClip(const DeviceRect& rect)
{
    const DeviceRect outer = limit();
    clip = {std::max(rect.left, outer.left), std::max(rect.top, outer.top), std::min(rect.right, outer.right),
            std::min(rect.bottom, outer.bottom)};
    clipWaits = true;
}

bool CQORDrawContext::canDraw()
{
    if (!hasRoom()) return false;
    if (!std::exchange(clipWaits, false)) return true;
    cairo_reset_clip(cr);
    cairo_identity_matrix(cr);
    cairo_new_path(cr);
    cairo_rectangle(cr, clip.left, clip.top, clip.right - clip.left, clip.bottom - clip.top);
    cairo_clip(cr);
    placeUserSpace();
    return true;
}

void CQORDrawContext::pushLimit(const Rect& rect)
{
    if (cr == nullptr) return;
    if (limitDepth < kMaxLimits) {
        const DeviceRect outer = limit();
        const DeviceRect wanted = isCoordinate(rect) ? onDevice(rect, true) : DeviceRect{};
        limits[limitDepth] = {std::max(wanted.left, outer.left), std::max(wanted.top, outer.top),
                              std::min(wanted.right, outer.right), std::min(wanted.bottom, outer.bottom)};
    }
    ++limitDepth;
    applyClip(limit());
}

void CQORDrawContext::popLimit()
{
    if (cr == nullptr || limitDepth == 0) return;
    --limitDepth;
    applyClip(limit());
}

void CQORDrawContext::setClipRect(const Rect& rect)
{
    if (cr == nullptr) return;
    applyClip(isCoordinate(rect) ? onDevice(rect, false) : DeviceRect{});
}

void CQORDrawContext::narrowClip(const Rect& rect)
{
    const DeviceRect wanted = onDevice(rect, false);
    applyClip({std::max(wanted.left, clip.left), std::max(wanted.top, clip.top),
               std::min(wanted.right, clip.right), std::min(wanted.bottom, clip.bottom)});
}

void CQORDrawContext::getClipRect(Rect& rect)
{
    rect = {};
    if (!hasRoom()) return;
    rect = Rect{clip.left / zoom, clip.top / zoom, clip.right / zoom, clip.bottom / zoom}.movedBy(-origin.x,
                                                                                                  -origin.y);
}

void CQORDrawContext::resetClipRect()
{
    if (cr != nullptr) applyClip(limit());
}

void CQORDrawContext::beginDraw() {}

void CQORDrawContext::endDraw()
{
    if (surface != nullptr) cairo_surface_flush(surface);
}

void CQORDrawContext::setLineWidth(double width)
{
    if (!std::isnan(width)) lineWidth = std::clamp(width, 0.0, kMaxLineWidth);
}

void CQORDrawContext::fillPath()
{
    setSource(cr, fillColor);
    cairo_fill(cr);
}

void CQORDrawContext::strokePath()
{
    setSource(cr, frameColor);
    cairo_set_line_width(cr, lineWidth);
    cairo_stroke(cr);
}

void CQORDrawContext::moveTo(Point point)
{
    if (isCoordinate(point)) pen = point;
}

void CQORDrawContext::lineTo(Point point)
{
    if (!isCoordinate(point)) return;
    drawLine(pen.x, pen.y, point.x, point.y);
    pen = point;
}

void CQORDrawContext::drawLine(double x1, double y1, double x2, double y2)
{
    if (!canDraw() || !isCoordinate(Rect{x1, y1, x2, y2}) || lineWidth == 0.0) return;
    const bool odd = std::lround(lineWidth) % 2 != 0;
    const double middle = odd ? 0.5 : 0.0;
    const bool straight = x1 == x2 || y1 == y2;
    cairo_set_line_cap(cr, straight && odd ? CAIRO_LINE_CAP_SQUARE : CAIRO_LINE_CAP_BUTT);
    cairo_move_to(cr, x1 + middle, y1 + middle);
    cairo_line_to(cr, x2 + middle, y2 + middle);
    strokePath();
    cairo_set_line_cap(cr, CAIRO_LINE_CAP_BUTT);
}

/// Where the middle of a stroke runs that lies inside the rectangle.
Rect CQORDrawContext::strokedInside(const Rect& rect) const
{
    const double half = lineWidth / 2;
    return {rect.left + half, rect.top + half, rect.right - half, rect.bottom - half};
}

void CQORDrawContext::drawRect(const Rect& rect, DrawStyle style)
{
    if (!canDraw() || !isCoordinate(rect) || rect.empty()) return;
    const auto path = [this](const Rect& r) { cairo_rectangle(cr, r.left, r.top, r.width(), r.height()); };
    drawShape(rect, style, path, path);
}

void CQORDrawContext::drawRoundRect(const Rect& rect, double radius, DrawStyle style)
{
    if (!canDraw() || !isCoordinate(rect) || rect.empty() || !isCoordinate(radius)) return;
    const auto path = [&](const Rect& r) {
        const double inset = r.left - rect.left;
        const double corner = std::clamp(radius - inset, 0.0, std::min(r.width(), r.height()) / 2);
        cairo_new_sub_path(cr);
        cairo_arc(cr, r.right - corner, r.top + corner, corner, -90 * kRadians, 0);
        cairo_arc(cr, r.right - corner, r.bottom - corner, corner, 0, 90 * kRadians);
        cairo_arc(cr, r.left + corner, r.bottom - corner, corner, 90 * kRadians, 180 * kRadians);
        cairo_arc(cr, r.left + corner, r.top + corner, corner, 180 * kRadians, 270 * kRadians);
        cairo_close_path(cr);
    };
    drawShape(rect, style, path, path);
}

void CQORDrawContext::drawArc(const Rect& rect, double startAngle, double endAngle, DrawStyle style)
{
    if (!canDraw() || !isCoordinate(rect) || rect.empty()) return;
    if (!isCoordinate(startAngle) || !isCoordinate(endAngle)) return;
    const auto wedge = [&](const Rect& r) {
        cairo_move_to(cr, (r.left + r.right) / 2, (r.top + r.bottom) / 2);
        arcPath(r, startAngle, endAngle);
        cairo_close_path(cr);
    };
    const auto curve = [&](const Rect& r) { arcPath(r, startAngle, endAngle); };
    drawShape(rect, style, wedge, curve);
}

void CQORDrawContext::drawEllipse(const Rect& rect, DrawStyle style)
{
    if (!canDraw() || !isCoordinate(rect) || rect.empty()) return;
    const auto path = [this](const Rect& r) {
        cairo_new_sub_path(cr);
        arcPath(r, 0, kFullTurn);
        cairo_close_path(cr);
    };
    drawShape(rect, style, path, path);
}

void CQORDrawContext::arcPath(const Rect& rect, double startAngle, double endAngle)
{
    constexpr double kLeastSide = 1e-6; // a scale near zero would end all drawing in this context
    if (rect.width() < kLeastSide || rect.height() < kLeastSide) return;
    cairo_save(cr);
    cairo_translate(cr, (rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2);
    cairo_scale(cr, rect.width() / 2, rect.height() / 2);
    const double turn = std::clamp(endAngle - startAngle, -kFullTurn, kFullTurn);
    cairo_arc(cr, 0, 0, 1, startAngle * kRadians,
              (startAngle + (turn < 0 ? turn + kFullTurn : turn)) * kRadians);
    cairo_restore(cr);
}

template <typename Outline, typename Curve>
void CQORDrawContext::drawShape(const Rect& rect, DrawStyle style, const Outline& outline, const Curve& curve)
{
    cairo_new_path(cr);
    if (fills(style)) {
        outline(rect);
        fillPath();
    }
    if (!strokes(style) || lineWidth == 0.0) return;
    const Rect inside = strokedInside(rect);
    if (inside.empty()) { // nothing but stroke
        outline(rect);
        setSource(cr, frameColor);
        cairo_fill(cr);
        return;
    }
    curve(inside);
    strokePath();
}

void CQORDrawContext::drawPoint(Point point, Rgba colour)
{
    if (!canDraw() || !isCoordinate(point)) return;
    cairo_rectangle(cr, point.x, point.y, 1, 1);
    setSource(cr, colour);
    cairo_fill(cr);
}

void CQORDrawContext::drawPolygon(const Point* points, int count, DrawStyle style)
{
    if (!canDraw() || points == nullptr || count < 2) return;
    const auto used = std::span(points, static_cast<std::size_t>(std::min(count, kMaxPolygonPoints)));
    if (!std::ranges::all_of(used, [](Point p) { return isCoordinate(p); })) return;
    const auto path = [&] {
        cairo_new_path(cr);
        for (const Point& point : used) cairo_line_to(cr, point.x, point.y);
        cairo_close_path(cr);
    };
    if (fills(style)) {
        path();
        fillPath();
    }
    if (strokes(style) && lineWidth > 0.0) {
        path();
        strokePath();
    }
}

void CQORDrawContext::clearRect(const Rect& rect)
{
    if (!canDraw() || !isCoordinate(rect) || rect.empty()) return;
    const DeviceRect device = onDevice(rect, false);
    cairo_identity_matrix(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_CLEAR);
    cairo_rectangle(cr, device.left, device.top, device.right - device.left, device.bottom - device.top);
    cairo_fill(cr);
    cairo_set_operator(cr, CAIRO_OPERATOR_OVER);
    placeUserSpace();
}

} // namespace velmora::Qorvane
