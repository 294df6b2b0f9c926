#pragma once

#include "editor/engine/geometry.h"
#include "host/master/parameter_listener.h"

#include <cstdint>

namespace velmora {

class QORBaseParametersController;
class QORBasePresetStore;
class QORBitmap;
class QORViewContainer;

/// The one way from the editor to a view toolkit and to the host. All calls come on the thread that opened
/// the window.
class QORMasterGraphicalEngine : public QORParameterListener {
public:
    /// The ground of the plug-in area; the frame's own colour is cleared.
    virtual void setBackground(QORBitmap* bitmap) = 0;
    virtual void setBackgroundResource(std::uint32_t id) = 0;
    virtual void addView(QORViewContainer* container) = 0;
    virtual void removeView(QORViewContainer* container) = 0;
    /// @return a container without a parent; it stays the engine's, which ends it with the window.
    virtual QORViewContainer* createViewContainer(const Rect& rect) = 0;
    /// @param reserved 0 @return a bitmap with one reference, of 0 x 0 for an unknown id; null if `reserved`
    /// isn't 0.
    virtual QORBitmap* createBitmap(std::uint32_t id, std::uint32_t reserved) = 0;
    /// In the plug-in area's pixels.
    virtual void getMousePosition(Point& point) = 0;
    /// 0 without a window.
    virtual void getMouseButtons(std::uint32_t& buttons) = 0;
    virtual void setOption(std::uint32_t option) = 0;
    /// A change by the user, on its way to the host.
    virtual void editParameter(std::int32_t id, double value) = 0;
    /// Of the plug-in area, in pixels.
    virtual void resizeEditor(double width, double height) = 0;
    /// While on, sizes are noted only; the last one counts when it goes off, if both sides are positive.
    virtual void setResizeBatch(bool on) = 0;
    /// Paints everything at once.
    virtual void redraw() = 0;
    virtual QORBaseParametersController* getStateBlock() = 0;
    /// One tick of 17 ms.
    virtual void idle() = 0;
    virtual void setPresetHandler(QORBasePresetStore* store) = 0;
    virtual void setStateBlock(QORBaseParametersController* state) = 0;
    virtual double getZoomFactor() = 0;
};

} // namespace velmora
