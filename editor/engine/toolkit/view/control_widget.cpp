#include "editor/engine/toolkit/view/control_widget.h"

#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/draw/offscreen_context.h"
#include "editor/engine/toolkit/view/frame.h"
#include "editor/engine/toolkit/view/widget_listener.h"

namespace velmora::Qorvane {

CControlWidget::CControlWidget(QORBaseControl& ownControl)
    : CView(ownControl.getRect()),
      control(ownControl),
      value(ownControl.getValue()),
      tooltipText(ownControl.getHint())
{
}

CControlWidget::~CControlWidget()
{
    endGesture();
}

void CControlWidget::draw(CQORDrawContext& context, const Rect&)
{
    if (backgroundColor.alpha != 0) {
        context.setFillColor(backgroundColor);
        context.drawRect(rect, DrawStyle::Filled);
    }
    control.draw(&context);
}

CView* CControlWidget::viewAt(Point point)
{
    return control.isMouseEnabled() ? CView::viewAt(point) : nullptr;
}

// A press that the control takes opens a gesture, so that the host records one touch for a whole drag; at the
// latest before the first change.
int CControlWidget::onMouseDown(Point point, std::uint32_t buttons)
{
    pressed = (buttons & kLeftButton) != 0;
    const int handled = control.onMouseDown(point, buttons);
    if (handled != kMouseHandled)
        endPress();
    else if (pressed)
        beginGesture();
    return handled;
}

int CControlWidget::onMouseUp(Point point, std::uint32_t buttons)
{
    const int handled = control.onMouseUp(point, buttons);
    endPress();
    return handled;
}

// A control that waited for its button to go up mustn't wait for ever.
void CControlWidget::onMouseCancelled()
{
    const QORFrame* const frame = getFrame();
    control.onMouseUp(fromFrame(frame != nullptr ? frame->getMousePosition() : Point{}), 0);
    endPress();
}

void CControlWidget::endPress()
{
    pressed = false;
    endGesture();
}

int CControlWidget::onMouseMoved(Point point, std::uint32_t buttons)
{
    return control.onMouseMoved(point, buttons);
}

void CControlWidget::onMouseEntered(Point point, std::uint32_t buttons)
{
    control.onMouseEntered(point, buttons);
}

void CControlWidget::onMouseExited(Point point, std::uint32_t buttons)
{
    control.onMouseExited(point, buttons);
}

void CControlWidget::onMouseWheel(Point point, float distance, std::uint32_t buttons)
{
    control.onMouseWheel(point, distance, buttons);
}

void CControlWidget::markDirty(bool dirty)
{
    if (dirty) invalidate();
}

void CControlWidget::reportValue()
{
    storeValue(control.getValue());
    if (pressed) beginGesture();
    if (QORFrame* const frame = getFrame()) frame->getListener().valueChanged(control.getTag(), value);
}

void CControlWidget::storeValue(double newValue)
{
    if (newValue == value) return;
    value = newValue;
    invalidate();
}

void CControlWidget::resize(const Rect& place)
{
    setPlace(place);
}

void CControlWidget::beginGesture()
{
    if (gestureOpen) return;
    QORFrame* const frame = getFrame();
    if (frame == nullptr) return;
    gestureOpen = true;
    frame->getListener().controlBeginEdit(control.getTag());
}

void CControlWidget::endGesture()
{
    if (!gestureOpen) return;
    gestureOpen = false;
    if (QORFrame* const frame = getFrame()) frame->getListener().controlEndEdit(control.getTag());
}

QOROffscreenContext* CControlWidget::makeOffscreen(double width, double height) const
{
    return new CQOROffscreenContext(width, height);
}

void CControlWidget::storeBackgroundColor(Rgba colour)
{
    backgroundColor = colour;
    invalidate();
}

} // namespace velmora::Qorvane
