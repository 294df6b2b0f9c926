#pragma once

#include "editor/engine/draw_context.h"
#include "editor/engine/resource.h"
#include "editor/engine/toolkit/window/native_window.h"

#include <array>

typedef struct _cairo cairo_t;
typedef struct _cairo_surface cairo_surface_t;

namespace velmora::Qorvane {

class Picture;

/// Draws into pixels. Coordinates count from an origin, in pixels at 100 %; the zoom enlarges everything,
/// text and lines sharply. Needs `openToolkit()`. Where pixels lie:
/// - filled shapes fill from edge to edge; strokes of rectangles, ellipses and arcs lie inside of them;
/// - coordinates of lines name pixels: from (2, 3) to (6, 3) fills five pixels, at odd widths their own row;
/// - a filled arc is a wedge with its tip in the middle, its stroke only the curve;
/// - text too wide for its rectangle starts at the left edge and is cut at the right one; its capitals stand
///   in the middle of the height.
/// What is no number draws nothing. Text is cut at 4096 bytes; what is no UTF-8 in it shows as a replacement
/// mark.
class CQORDrawContext : public QORDrawContext {
public:
    static constexpr std::size_t kMaxLimits = 32;

    /// @param zoomFactor 0.1..16
    CQORDrawContext(const PixelBuffer& pixels, double zoomFactor);
    /// Takes a reference of the surface; a null one draws nothing.
    CQORDrawContext(cairo_surface_t* target, double zoomFactor);
    ~CQORDrawContext() override;
    CQORDrawContext(const CQORDrawContext&) = delete;
    CQORDrawContext& operator=(const CQORDrawContext&) = delete;

    /// Where (0, 0) lies, in the pixels of the whole at 100 %.
    void setOrigin(Point newOrigin);
    Point getOrigin() const { return origin; }
    double getZoom() const { return zoom; }

    /// Nothing is drawn outside of this and of the limits before; takes the clip back to it. In the present
    /// origin's pixels, widened to whole pixels of the surface. Pushes beyond the 32nd count, but don't
    /// limit.
    void pushLimit(const Rect& rect);
    void popLimit();

    void drawRoundRect(const Rect& rect, double radius, DrawStyle style);

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
    void setFont(QORFont* newFont) override;
    void clearRect(const Rect& rect) override;
    void setFillColor(Rgba colour) override { fillColor = colour; }
    void setFrameColor(Rgba colour) override { frameColor = colour; }
    void setFontColor(Rgba colour) override { fontColor = colour; }
    void setClipRect(const Rect& rect) override;
    void getClipRect(Rect& rect) override;
    void resetClipRect() override;
    void beginDraw() override;
    void endDraw() override;
    void drawLine(double x1, double y1, double x2, double y2) override;
    double getStringWidth(std::string_view text) override;

private:
    /// Pixels of the surface.
    struct DeviceRect {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };

    void start(double newZoom);
    bool hasRoom() const { return cr != nullptr && clip.right > clip.left && clip.bottom > clip.top; }
    /// Asked before anything is drawn: makes the clip the surface's.
    bool canDraw();
    void placeUserSpace();
    /// @param widened to whole pixels around, else to the nearest
    DeviceRect onDevice(const Rect& rect, bool widened) const;
    DeviceRect limit() const;
    void applyClip(const DeviceRect& rect);
    void narrowClip(const Rect& rect);
    void fillPath();
    void strokePath();
    Rect strokedInside(const Rect& rect) const;
    template <typename Outline, typename Curve>
    void drawShape(const Rect& rect, DrawStyle style, const Outline& outline, const Curve& curve);
    void arcPath(const Rect& rect, double startAngle, double endAngle);
    void fillSource(const DeviceRect& rect, double alpha);
    void layPicture(const Picture& picture, int fromLeft, int fromTop, const DeviceRect& rect);

    cairo_surface_t* surface = nullptr;
    cairo_t* cr = nullptr;
    double zoom = 1.0;
    Point origin;
    Point pen;
    double lineWidth = 1.0;
    Rgba fillColor{255, 255, 255, 255};
    Rgba frameColor{0, 0, 0, 255};
    Rgba fontColor{0, 0, 0, 255};
    ResourceRef<QORFont> font;
    std::array<DeviceRect, kMaxLimits> limits{};
    std::size_t limitDepth = 0;
    DeviceRect whole;
    DeviceRect clip;
    bool clipWaits = false; ///< the surface doesn't know it yet: many a clip sees nothing drawn
};

} // namespace velmora::Qorvane
