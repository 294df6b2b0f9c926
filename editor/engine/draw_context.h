#pragma once

#include "editor/engine/geometry.h"
#include "editor/engine/resource.h"

#include <span>
#include <string_view>

namespace velmora {

enum class DrawStyle { Stroked = 0, Filled = 1, FilledAndStroked = 2 };

/// Through which everything is drawn, in the control's own container's pixels. Text is UTF-8, drawn
/// antialiased.
class QORDrawContext {
public:
    static constexpr int kMaxPolygonPoints = 64;

    virtual ~QORDrawContext() = default;
    virtual void setLineWidth(double width) = 0;
    virtual void moveTo(Point point) = 0;
    /// From the last point of `moveTo` or `lineTo`.
    virtual void lineTo(Point point) = 0;
    virtual void drawRect(const Rect& rect, DrawStyle style) = 0;
    /// Of the ellipse in `rect`; angles in degrees, clockwise from 3 o'clock.
    virtual void drawArc(const Rect& rect, double startAngle, double endAngle, DrawStyle style) = 0;
    virtual void drawEllipse(const Rect& rect, DrawStyle style) = 0;
    virtual void drawPoint(Point point, Rgba colour) = 0;
    /// Closed; points beyond the 64th are left out.
    virtual void drawPolygon(const Point* points, int count, DrawStyle style) = 0;
    /// @param sourceOffset the place in the bitmap that comes to the rectangle's corner @range alpha 0..1
    virtual void drawBitmap(QORBitmap* bitmap, const Rect& dest, Point sourceOffset, double alpha) = 0;
    /// `point` is the left end of the baseline.
    virtual void drawString(std::string_view text, Point point) = 0;
    virtual void drawStringInRect(std::string_view text, const Rect& rect, TextAlign align) = 0;
    virtual void setFont(QORFont* font) = 0;
    /// To full transparency.
    virtual void clearRect(const Rect& rect) = 0;
    virtual void setFillColor(Rgba colour) = 0;
    virtual void setFrameColor(Rgba colour) = 0;
    virtual void setFontColor(Rgba colour) = 0;
    virtual void setClipRect(const Rect& rect) = 0;
    virtual void getClipRect(Rect& rect) = 0;
    virtual void resetClipRect() = 0;
    virtual void beginDraw() = 0;
    virtual void endDraw() = 0;
    virtual void drawLine(double x1, double y1, double x2, double y2) = 0;
    /// Pixels.
    virtual double getStringWidth(std::string_view text) = 0;
};

/// A surface of its own. Reference-counted, one reference at the start.
class QOROffscreenContext : public QORDrawContext {
public:
    virtual void remember() = 0;
    virtual void forget() = 0;
    /// The surface's place of its top left corner, for `copyTo`'s source.
    virtual void setOffset(Point offset) = 0;
    virtual void copyTo(QORDrawContext* context, const Rect& rect) = 0;
    /// @return null without a surface; the bitmap stays the context's.
    virtual QORBitmap* getBitmap() = 0;
};

} // namespace velmora
