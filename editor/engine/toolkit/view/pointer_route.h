#pragma once

#include "editor/engine/geometry.h"

#include <cstdint>

namespace velmora::Qorvane {

class CView;

/// Which view has the mouse: hovered while no button is down, captured from a press that it takes until every
/// button is up. An overlay, as a menu, has all events instead; whoever was captured when it came still hears
/// of the release.
class PointerRoute {
public:
    /// @param hit the view at the point, or null; all points in frame pixels
    void moved(CView* hit, Point point, std::uint32_t buttons);
    void pressed(CView* hit, Point point, std::uint32_t buttons);
    void released(Point point, std::uint32_t buttons);
    void left(std::uint32_t buttons);
    /// Null ends it.
    void setOverlay(CView* view) { overlay = view; }
    /// Neither it nor what lies in it is hovered or captured any more.
    void forget(CView* view);
    /// Whoever holds the mouse loses it.
    void cancel();

    Point position() const { return last; }
    bool isInside() const { return inside; }
    /// Held buttons and modifiers.
    std::uint32_t buttons() const { return word; }
    bool isCaptured() const { return captured != nullptr; }
    void setPosition(Point point, std::uint32_t buttons);

private:
    void hover(CView* view, Point point, std::uint32_t buttons);
    void endCapture(Point point, std::uint32_t buttons);

    CView* hovered = nullptr;
    CView* captured = nullptr;
    CView* overlay = nullptr;
    Point last;
    std::uint32_t word = 0;
    bool inside = false;
};

} // namespace velmora::Qorvane
