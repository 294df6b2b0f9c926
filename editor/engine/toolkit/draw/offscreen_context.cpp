#include "editor/engine/toolkit/draw/offscreen_context.h"

#include "editor/engine/toolkit/draw/picture.h"

#include <cmath>

namespace velmora::Qorvane {

CQOROffscreenContext::CQOROffscreenContext(double width, double height)
{
    const bool fits =
        width >= 1.0 && height >= 1.0 && width <= Picture::kMaxSide && height <= Picture::kMaxSide;
    if (!fits) return;
    auto picture = Picture::blank({static_cast<int>(std::ceil(width)), static_cast<int>(std::ceil(height))});
    if (!picture) return;
    drawing = std::make_unique<CQORDrawContext>(picture->target(), 1.0);
    pixels = ResourceRef<CQORBitmap>::adopt(new CQORBitmap(std::move(picture)));
}

void CQOROffscreenContext::remember()
{
    references.fetch_add(1, std::memory_order_relaxed);
}

void CQOROffscreenContext::forget()
{
    if (references.fetch_sub(1, std::memory_order_acq_rel) == 1) delete this;
}

void CQOROffscreenContext::copyTo(QORDrawContext* context, const Rect& rect)
{
    if (context == nullptr || !pixels) return;
    endDraw();
    context->drawBitmap(pixels.get(), rect, offset, 1.0);
}

QORBitmap* CQOROffscreenContext::getBitmap()
{
    endDraw();
    return pixels.get();
}

void CQOROffscreenContext::setLineWidth(double width)
{
    if (drawing) drawing->setLineWidth(width);
}

void CQOROffscreenContext::moveTo(Point point)
{
    if (drawing) drawing->moveTo(point);
}

void CQOROffscreenContext::lineTo(Point point)
{
    if (drawing) drawing->lineTo(point);
}

void CQOROffscreenContext::drawRect(const Rect& rect, DrawStyle style)
{
    if (drawing) drawing->drawRect(rect, style);
}

void CQOROffscreenContext::drawArc(const Rect& rect, double startAngle, double endAngle, DrawStyle style)
{
    if (drawing) drawing->drawArc(rect, startAngle, endAngle, style);
}

void CQOROffscreenContext::drawEllipse(const Rect& rect, DrawStyle style)
{
    if (drawing) drawing->drawEllipse(rect, style);
}

void CQOROffscreenContext::drawPoint(Point point, Rgba colour)
{
    if (drawing) drawing->drawPoint(point, colour);
}

void CQOROffscreenContext::drawPolygon(const Point* points, int count, DrawStyle style)
{
    if (drawing) drawing->drawPolygon(points, count, style);
}

void CQOROffscreenContext::drawBitmap(QORBitmap* bitmap, const Rect& dest, Point sourceOffset, double alpha)
{
    if (drawing) drawing->drawBitmap(bitmap, dest, sourceOffset, alpha);
}

void CQOROffscreenContext::drawString(std::string_view text, Point point)
{
    if (drawing) drawing->drawString(text, point);
}

void CQOROffscreenContext::drawStringInRect(std::string_view text, const Rect& rect, TextAlign align)
{
    if (drawing) drawing->drawStringInRect(text, rect, align);
}

void CQOROffscreenContext::setFont(QORFont* font)
{
    if (drawing) drawing->setFont(font);
}

void CQOROffscreenContext::clearRect(const Rect& rect)
{
    if (drawing) drawing->clearRect(rect);
}

void CQOROffscreenContext::setFillColor(Rgba colour)
{
    if (drawing) drawing->setFillColor(colour);
}

void CQOROffscreenContext::setFrameColor(Rgba colour)
{
    if (drawing) drawing->setFrameColor(colour);
}

void CQOROffscreenContext::setFontColor(Rgba colour)
{
    if (drawing) drawing->setFontColor(colour);
}

void CQOROffscreenContext::setClipRect(const Rect& rect)
{
    if (drawing) drawing->setClipRect(rect);
}

void CQOROffscreenContext::getClipRect(Rect& rect)
{
    rect = {};
    if (drawing) drawing->getClipRect(rect);
}

void CQOROffscreenContext::resetClipRect()
{
    if (drawing) drawing->resetClipRect();
}

void CQOROffscreenContext::beginDraw()
{
    if (drawing) drawing->beginDraw();
}

void CQOROffscreenContext::endDraw()
{
    if (drawing) drawing->endDraw();
}

void CQOROffscreenContext::drawLine(double x1, double y1, double x2, double y2)
{
    if (drawing) drawing->drawLine(x1, y1, x2, y2);
}

double CQOROffscreenContext::getStringWidth(std::string_view text)
{
    return drawing ? drawing->getStringWidth(text) : 0.0;
}

} // namespace velmora::Qorvane
