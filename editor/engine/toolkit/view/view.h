#pragma once

#include "editor/engine/geometry.h"

#include <cstdint>
#include <string_view>

namespace velmora::Qorvane {

class CQORDrawContext;
class CQORViewContainer;
class QORFrame;

/// Something with a place in a container. Rectangles and points are in the container's pixels.
class CView {
public:
    explicit CView(const Rect& place) : rect(place) {}
    virtual ~CView();
    CView(const CView&) = delete;
    CView& operator=(const CView&) = delete;

    const Rect& getPlace() const { return rect; }
    /// Marks the old and the new place dirty.
    void setPlace(const Rect& place);

    virtual void draw(CQORDrawContext& context, const Rect& damage) = 0;
    /// True if nothing behind it shows within `part`.
    virtual bool covers(const Rect&) const { return false; }

    /// The innermost view that takes the mouse at a point, or null.
    virtual CView* viewAt(Point point);
    /// @return `kMouseHandled` or `kMouseNotHandled`.
    virtual int onMouseDown(Point, std::uint32_t) { return kMouseNotHandled; }
    virtual int onMouseUp(Point, std::uint32_t) { return kMouseNotHandled; }
    virtual int onMouseMoved(Point, std::uint32_t) { return kMouseNotHandled; }
    virtual void onMouseEntered(Point, std::uint32_t) {}
    virtual void onMouseExited(Point, std::uint32_t) {}
    virtual void onMouseWheel(Point, float, std::uint32_t) {}
    /// It goes out of the frame, which is still there.
    virtual void onRemoved() {}
    /// It goes out of the frame while it holds the mouse.
    virtual void onMouseCancelled() {}
    /// One tick of 17 ms, for what lies above all others.
    virtual void onTick() {}
    /// What a hint says about it; empty for none.
    virtual std::string_view tooltip() const { return {}; }

    void invalidate() { invalidateRect(rect); }
    void invalidateRect(const Rect& part);

    /// Null while it is in no frame.
    virtual QORFrame* getFrame() const;
    /// The place of the container's origin in the frame.
    Point containerOrigin() const;
    Rect inFrame(const Rect& part) const;
    Point fromFrame(Point point) const;

    /// True for itself and for whatever lies in it, however deep.
    bool holds(const CView* view) const;
    void setParent(CQORViewContainer* container) { parent = container; }
    CQORViewContainer* getParent() const { return parent; }

protected:
    Rect rect;
    CQORViewContainer* parent = nullptr;
};

} // namespace velmora::Qorvane
