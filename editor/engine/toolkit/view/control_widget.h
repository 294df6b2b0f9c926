#pragma once

#include "editor/engine/base_control.h"
#include "editor/engine/engine_view.h"
#include "editor/engine/toolkit/view/view.h"

#include <string>

namespace velmora::Qorvane {

/// What all widgets of controls share: the link to the control, the way of the mouse to it, gestures.
class CControlWidget : public CView {
public:
    explicit CControlWidget(QORBaseControl& ownControl);
    ~CControlWidget() override;

    QORBaseControl* getControl() const { return &control; }

    void draw(CQORDrawContext& context, const Rect& damage) override;
    CView* viewAt(Point point) override;
    int onMouseDown(Point point, std::uint32_t buttons) override;
    int onMouseUp(Point point, std::uint32_t buttons) override;
    int onMouseMoved(Point point, std::uint32_t buttons) override;
    void onMouseEntered(Point point, std::uint32_t buttons) override;
    void onMouseExited(Point point, std::uint32_t buttons) override;
    void onMouseWheel(Point point, float distance, std::uint32_t buttons) override;
    void onMouseCancelled() override;
    void onRemoved() override { endPress(); }
    std::string_view tooltip() const override { return tooltipText; }

    double getValue() const { return value; }

protected:
    /// The operations of a peer, which `ControlPeer` hands on to these.
    void markDirty(bool dirty);
    void reportValue();
    void storeValue(double newValue);
    void resize(const Rect& place);
    void beginGesture();
    void endGesture();
    QOROffscreenContext* makeOffscreen(double width, double height) const;
    void storeTooltip(std::string_view text) { tooltipText = text; }
    void storeBackgroundColor(Rgba colour);

    QORBaseControl& control;
    double value = 0.0;
    Rgba backgroundColor{0, 0, 0, 0};

private:
    void endPress();

    std::string tooltipText;
    bool pressed = false; // by the left button
    bool gestureOpen = false;
};

/// Gives a widget the face that its control sees.
template <typename Peer>
class ControlPeer : public CControlWidget, public Peer {
public:
    explicit ControlPeer(QORBaseControl& ownControl) : CControlWidget(ownControl)
    {
        ownControl.setPeer(this);
    }
    ~ControlPeer() override { control.setPeer(nullptr); }

    void setDirty(bool dirty) override { markDirty(dirty); }
    void valueChanged() override { reportValue(); }
    void setTooltip(std::string_view text) override { storeTooltip(text); }
    void setBackgroundColor(Rgba colour) override { storeBackgroundColor(colour); }
    void setValue(double newValue) override { storeValue(newValue); }
    void setViewSize(const Rect& place) override { resize(place); }
    bool isVisible() override { return getFrame() != nullptr; }
    QOROffscreenContext* createOffscreen(double width, double height) override
    {
        return makeOffscreen(width, height);
    }
    void beginEdit() override { beginGesture(); }
    void endEdit() override { endGesture(); }
};

/// The widget of every control that draws itself.
class CQORBaseControlWrapper : public ControlPeer<QOREngineView> {
public:
    using ControlPeer::ControlPeer;
};

} // namespace velmora::Qorvane
