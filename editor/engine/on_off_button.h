#pragma once

#include "editor/engine/base_control.h"

namespace velmora {

/// Two frames, the lower one is on.
class QOROnOffButton : public QORBaseControl {
public:
    QOROnOffButton(const Rect& place, std::uint32_t controlTag, QORBitmap* picture);

    void draw(QORDrawContext* context) override;
    int onMouseDown(Point point, std::uint32_t buttons) override;
    /// Up switches off, down on.
    void onMouseWheel(Point point, float distance, std::uint32_t buttons) override;

    bool isOn() const { return value >= 0.5; }

private:
    void switchTo(bool on);
};

} // namespace velmora
