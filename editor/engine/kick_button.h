#pragma once

#include "editor/engine/base_control.h"

namespace velmora {

/// Has its value only while it is pressed. Three frames of the rectangle's height: idle, hovered, pressed.
class QORKickButton : public QORBaseControl {
public:
    /// @param doubleClickAware answers double clicks only, with control held by half the value
    QORKickButton(const Rect& place, std::uint32_t controlTag, QORBitmap* picture,
                  bool doubleClickAware = false);

    void draw(QORDrawContext* context) override;
    int onMouseDown(Point point, std::uint32_t buttons) override;
    int onMouseUp(Point point, std::uint32_t buttons) override;
    int onMouseEntered(Point point, std::uint32_t buttons) override;
    int onMouseExited(Point point, std::uint32_t buttons) override;

private:
    bool doubleClickAware;
    bool hovering = false;
    bool pressed = false;
};

} // namespace velmora
