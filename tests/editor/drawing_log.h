#pragma once

#include "editor/engine/draw_context.h"

#include <vector>

namespace velmora {

/// Has a size, but no pixels.
class SizedBitmap : public QORBitmap {
public:
    SizedBitmap(int sizeX, int sizeY) : width(sizeX), height(sizeY) {}
    void remember() override { ++references; }
    void forget() override
    {
        if (--references == 0) delete this;
    }
    int getWidth() override { return width; }
    int getHeight() override { return height; }
    QORBitmapPixelAcces* getPixelAccess() override { return nullptr; }

private:
    int references = 1;
    int width;
    int height;
};

/// Notes which rows of a bitmap are drawn.
class FrameLog : public QORDrawContext {
public:
    void setLineWidth(double) override {}
    void moveTo(Point) override {}
    void lineTo(Point) override {}
    void drawRect(const Rect&, DrawStyle) override {}
    void drawArc(const Rect&, double, double, DrawStyle) override {}
    void drawEllipse(const Rect&, DrawStyle) override {}
    void drawPoint(Point, Rgba) override {}
    void drawPolygon(const Point*, int, DrawStyle) override {}
    void drawBitmap(QORBitmap*, const Rect&, Point sourceOffset, double) override
    {
        tops.push_back(sourceOffset.y);
    }
    void drawString(std::string_view, Point) override {}
    void drawStringInRect(std::string_view, const Rect&, TextAlign) override {}
    void setFont(QORFont*) override {}
    void clearRect(const Rect&) override {}
    void setFillColor(Rgba) override {}
    void setFrameColor(Rgba) override {}
    void setFontColor(Rgba) override {}
    void setClipRect(const Rect&) override {}
    void getClipRect(Rect&) override {}
    void resetClipRect() override {}
    void beginDraw() override {}
    void endDraw() override {}
    void drawLine(double, double, double, double) override {}
    double getStringWidth(std::string_view) override { return 0.0; }

    std::vector<double> tops;
};

} // namespace velmora
