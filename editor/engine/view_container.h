#pragma once

#include "editor/engine/geometry.h"
#include "editor/engine/resource.h"

#include <cstdint>

namespace velmora {

class QORBaseControl;

inline constexpr std::uint32_t kNoTag = 0xFFFFFFFF;

/// A group of controls with a ground of its own. Controls lie in the container's own pixels.
class QORViewContainer {
public:
    virtual ~QORViewContainer() = default;
    virtual void setViewSize(const Rect& rect) = 0;
    virtual void setBackground(QORBitmap* bitmap) = 0;
    virtual void setBackgroundResource(std::uint32_t id) = 0;
    virtual void setBackgroundColor(Rgba colour) = 0;
    virtual void invalidate() = 0;
    /// At once.
    virtual void redraw() = 0;
    virtual bool isVisible() = 0;
    /// While on, the container marks itself dirty after every draw; for moves of a whole panel.
    virtual void setContinuousRedraw(bool on) = 0;
    /// Builds the widget of the control's kind, or puts the one it has back. The control stays the caller's
    /// until the container takes it with itself at its end.
    virtual void addControl(QORBaseControl* control) = 0;
    /// Out of the container; control and widget live on for a later `addControl`.
    virtual void removeControl(QORBaseControl* control) = 0;
    /// @return the tag of the control under a point of the plug-in area, or `kNoTag`.
    virtual std::uint32_t getTagAt(Point point, std::uint32_t buttons) = 0;
    /// Mouse events pass through to what lies below.
    virtual void setMouseTransparent(bool transparent) = 0;

    bool frameLevel = false; ///< lies on the frame itself, not in the plug-in area
};

} // namespace velmora
