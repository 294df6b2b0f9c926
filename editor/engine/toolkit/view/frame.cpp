#include "editor/engine/toolkit/view/frame.h"

#include "editor/engine/toolkit/draw/draw_context.h"
#include "editor/engine/toolkit/view/key_target.h"
#include "editor/engine/toolkit/view/widget_listener.h"
#include "host/master/raised_flag.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora::Qorvane {

namespace {

/// Hears nothing: the listener of a frame that has been shut down.
class DeafListener : public WidgetListener {
public:
    void valueChanged(std::uint32_t, double) override {}
    void controlBeginEdit(std::uint32_t) override {}
    void controlEndEdit(std::uint32_t) override {}
};

WidgetListener& nobody()
{
    static DeafListener deaf;
    return deaf;
}

} // namespace

QORFrame::QORFrame(std::unique_ptr<NativeWindow> nativeWindow, WidgetListener& widgetListener,
                   const Rect& areaPlace, double width, double height, double zoomFactor)
    : window(std::move(nativeWindow)),
      listener(&widgetListener),
      zoom(zoomFactor),
      top(rectAt(0.0, 0.0, width, height)),
      area(areaPlace),
      hint(top)
{
    top.setFrame(this);
    top.addChild(&area);
    addDamage(top.getPlace());
    Point pointer;
    std::uint32_t buttons = 0;
    if (window->queryPointer(pointer, buttons)) route.setPosition(fromWindow(pointer), buttons);
}

QORFrame::~QORFrame()
{
    shutDown();
    top.removeChild(&area);
    top.setFrame(nullptr);
}

void QORFrame::releaseInput()
{
    route.cancel();
    setKeyTarget(nullptr);
    setPopup(nullptr);
    hint.hide();
}

void QORFrame::shutDown()
{
    if (closed) return;
    releaseInput();
    closed = true;
    listener = &nobody();
}

bool QORFrame::isAlive() const
{
    return !closed && window->isAlive();
}

void QORFrame::resize(double width, double height)
{
    if (painting) {
        waitingSize = Point{width, height};
        return;
    }
    if (popup != nullptr) setKeyTarget(nullptr); // a list was placed for the old size
    top.setPlace(rectAt(0.0, 0.0, width, height));
    const Rect& place = area.getPlace();
    area.setPlace({place.left, place.top, width, height});
    if (closed) return;
    window->resize(static_cast<int>(width * zoom), static_cast<int>(height * zoom));
    damage.clear();
    addDamage(top.getPlace());
}

// Whole pixels; sums that should have come out whole count as such.
Rect QORFrame::onWindow(const Rect& rect) const
{
    constexpr double kGrain = 1e-6;
    return {std::floor(rect.left * zoom + kGrain), std::floor(rect.top * zoom + kGrain),
            std::ceil(rect.right * zoom - kGrain), std::ceil(rect.bottom * zoom - kGrain)};
}

// A control that asks for a repaint while it draws gets it at the next one.
void QORFrame::paint()
{
    if (!isAlive() || damage.empty() || painting) return;
    std::vector<Rect> drawn;
    {
        const RaisedFlag mark(painting);
        drawn = drawDamage();
    }
    if (isAlive() && !drawn.empty()) window->present(drawn);
    if (const auto size = std::exchange(waitingSize, std::nullopt)) resize(size->x, size->y);
}

std::vector<Rect> QORFrame::drawDamage()
{
    const PixelBuffer pixels = window->pixels();
    const Rect surface = rectAt(0.0, 0.0, pixels.width, pixels.height);
    CQORDrawContext context(pixels, zoom);
    context.beginDraw();
    std::vector<Rect> drawn;
    for (const Rect& part : damage.take()) {
        const Rect whole = intersection(onWindow(part), surface);
        if (whole.empty()) continue;
        drawPart(context, {whole.left / zoom, whole.top / zoom, whole.right / zoom, whole.bottom / zoom});
        drawn.push_back(whole);
    }
    context.endDraw();
    return drawn;
}

void QORFrame::drawPart(CQORDrawContext& context, const Rect& part)
{
    context.setOrigin({0.0, 0.0});
    context.pushLimit(part);
    if (!top.covers(part)) { // or what is transparent would lie on its own last picture
        context.setFillColor({0, 0, 0, 255});
        context.drawRect(part, DrawStyle::Filled);
    }
    top.draw(context, part);
    context.setOrigin({0.0, 0.0});
    for (CView* above : {popup, static_cast<CView*>(hint.isShown() ? &hint : nullptr)})
        if (above != nullptr && !intersection(above->getPlace(), part).empty()) above->draw(context, part);
    context.popLimit();
}

void QORFrame::pollEvents()
{
    if (isAlive()) window->pollEvents(*this);
}

CView* QORFrame::viewUnderMouse()
{
    return popup == nullptr && isMouseInside() ? top.viewAt(route.position()) : nullptr;
}

void QORFrame::setKeyTarget(KeyTarget* target)
{
    if (keyTarget == target) return;
    KeyTarget* const before = std::exchange(keyTarget, target);
    if (!closed && window->isAlive()) {
        if (target != nullptr && before == nullptr)
            window->takeKeyboard();
        else if (target == nullptr)
            window->returnKeyboard();
    }
    if (before != nullptr) before->onKeysLost();
}

bool QORFrame::onHostKey(const KeyPress& press)
{
    return !closed && keyTarget != nullptr && keyTarget->onKeyPress(press);
}

void QORFrame::setPopup(CView* view)
{
    if (popup == view) return;
    if (CView* const before = std::exchange(popup, view)) {
        addDamage(before->getPlace());
        route.setOverlay(nullptr);
        route.forget(before);
        before->setParent(nullptr);
    }
    if (popup == nullptr) return;
    hint.hide();
    route.setOverlay(popup);
    popup->setParent(&top);
    addDamage(popup->getPlace());
}

void QORFrame::forgetView(CView* view)
{
    if (popup == view) setPopup(nullptr);
    route.forget(view);
    if (keyTarget != nullptr && view->holds(keyTarget->keyView())) setKeyTarget(nullptr);
}

void QORFrame::tick()
{
    if (popup != nullptr) popup->onTick();
}

void QORFrame::onPointerMoved(Point point, std::uint32_t buttons)
{
    if (closed) return;
    const Point place = fromWindow(point);
    route.moved(viewAt(place), place, buttons);
}

// A press beside an open edit ends the edit first; one beside a menu only closes the menu.
void QORFrame::onPointerPressed(Point point, std::uint32_t buttons)
{
    if (closed) return;
    const Point place = fromWindow(point);
    hint.hide();
    if (keyTarget != nullptr && popup == nullptr && !keyTarget->holdsPoint(place)) setKeyTarget(nullptr);
    if (closed) return;
    route.pressed(viewAt(place), place, buttons);
}

void QORFrame::onPointerReleased(Point point, std::uint32_t buttons)
{
    if (closed) return;
    const Point place = fromWindow(point);
    route.released(place, buttons);
    if (closed || route.isCaptured()) return;
    route.moved(viewAt(place), place, route.buttons());
}

void QORFrame::onPointerCrossed(Point point, bool inside, std::uint32_t buttons)
{
    if (closed) return;
    if (inside) return onPointerMoved(point, buttons);
    hint.hide();
    route.left(buttons);
}

void QORFrame::onWheel(Point point, float distance, std::uint32_t buttons)
{
    if (closed) return;
    const Point place = fromWindow(point);
    route.setPosition(place, buttons);
    hint.hide();
    CView* const target = viewAt(place);
    if (target != nullptr) target->onMouseWheel(target->fromFrame(place), distance, buttons);
}

void QORFrame::onKey(const KeyPress& press)
{
    if (keyTarget != nullptr) keyTarget->onKeyPress(press);
}

void QORFrame::onExposed(const Rect& rect)
{
    addDamage({std::floor(rect.left / zoom), std::floor(rect.top / zoom), std::ceil(rect.right / zoom),
               std::ceil(rect.bottom / zoom)});
}

void QORFrame::onTextArrived(const std::string& text)
{
    if (keyTarget != nullptr) keyTarget->onPasted(text);
}

} // namespace velmora::Qorvane
