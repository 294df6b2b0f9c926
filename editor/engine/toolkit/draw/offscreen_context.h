#pragma once

#include "editor/engine/draw_context.h"
#include "editor/engine/toolkit/draw/bitmap.h"
#include "editor/engine/toolkit/draw/draw_context.h"

#include <atomic>
#include <memory>

namespace velmora::Qorvane {

class Picture;

/// Draws into transparent pixels of its own, at 100 %. A part of a pixel counts as a whole one; without a
/// surface, that is if a side is below 1 or above 16384, it draws nothing.
class CQOROffscreenContext final : public QOROffscreenContext {
public:
    CQOROffscreenContext(double width, double height);

    void remember() override;
    void forget() override;
    void setOffset(Point newOffset) override { offset = newOffset; }
    void copyTo(QORDrawContext* context, const Rect& rect) override;
    QORBitmap* getBitmap() override;

    void setLineWidth(double width) override;
    void moveTo(Point point) override;
    void lineTo(Point point) override;
    void drawRect(const Rect& rect, DrawStyle style) override;
    void drawArc(const Rect& rect, double startAngle, double endAngle, DrawStyle style) override;
    void drawEllipse(const Rect& rect, DrawStyle style) override;
    void drawPoint(Point point, Rgba colour) override;
    void drawPolygon(const Point* points, int count, DrawStyle style) override;
    void drawBitmap(QORBitmap* bitmap, const Rect& dest, Point sourceOffset, double alpha) override;
    void drawString(std::string_view text, Point point) override;
    void drawStringInRect(std::string_view text, const Rect& rect, TextAlign align) override;
    void setFont(QORFont* font) override;
    void clearRect(const Rect& rect) override;
    void setFillColor(Rgba colour) override;
    void setFrameColor(Rgba colour) override;
    void setFontColor(Rgba colour) override;
    void setClipRect(const Rect& rect) override;
    void getClipRect(Rect& rect) override;
    void resetClipRect() override;
    void beginDraw() override;
    void endDraw() override;
    void drawLine(double x1, double y1, double x2, double y2) override;
    double getStringWidth(std::string_view text) override;

private:
    ~CQOROffscreenContext() override = default;

    std::atomic<int> references{1};
    Point offset;
    std::unique_ptr<CQORDrawContext> drawing;
    ResourceRef<CQORBitmap> pixels;
};

} // namespace velmora::Qorvane
