#pragma once

#include "editor/engine/toolkit/view/damage.h"
#include "editor/engine/toolkit/view/hint_view.h"
#include "editor/engine/toolkit/view/pointer_route.h"
#include "editor/engine/toolkit/view/view_container.h"
#include "editor/engine/toolkit/window/native_window.h"

#include <memory>
#include <optional>
#include <vector>

namespace velmora::Qorvane {

class KeyTarget;
class WidgetListener;

/// All that one window shows: the plug-in area, what lies on the frame itself, hint and menu above all. Takes
/// the window's events to the views and the views' pixels to the window. Everything is measured in pixels at
/// 100 %; `zoom` is what one of them takes on the screen.
class QORFrame : private WindowListener {
public:
    /// @param area where the plug-in area lies in the frame
    QORFrame(std::unique_ptr<NativeWindow> nativeWindow, WidgetListener& widgetListener, const Rect& area,
             double width, double height, double zoom);
    ~QORFrame() override;
    QORFrame(const QORFrame&) = delete;
    QORFrame& operator=(const QORFrame&) = delete;

    /// Presses, edits, menus and hints end.
    void releaseInput();
    /// From here on nobody hears of anything that happens here. Views stay, and so do window and pixels: who
    /// reads events or draws may be on the stack.
    void shutDown();
    bool isAlive() const;
    WidgetListener& getListener() { return *listener; }

    CQORViewContainer& plugArea() { return area; }
    CQORViewContainer& outermost() { return top; }
    Point areaOrigin() const { return {area.getPlace().left, area.getPlace().top}; }
    /// In pixels at 100 %. Waits while something is being drawn.
    void resize(double width, double height);
    double getWidth() const { return top.getPlace().width(); }
    double getHeight() const { return top.getPlace().height(); }

    void addDamage(const Rect& rect) { damage.add(intersection(rect, top.getPlace())); }
    /// Draws and shows what waits.
    void paint();
    /// Takes in what happened in the window.
    void pollEvents();

    Point getMousePosition() const { return route.position(); }
    bool isMouseInside() const { return route.isInside() && top.getPlace().contains(route.position()); }
    /// Buttons held and modifiers of the last event.
    std::uint32_t getCurrentMouseButtons() const { return route.buttons(); }
    CView* viewUnderMouse();
    void showHint(std::string_view text, const Rect& anchor) { hint.show(text, anchor); }
    void hideHint() { hint.hide(); }
    bool isHintShown() const { return hint.isShown(); }

    /// A text edit or menu that has the keyboard; the one before loses it. Null gives it back.
    void setKeyTarget(KeyTarget* target);
    KeyTarget* getKeyTarget() const { return keyTarget; }
    /// A key that the host saw. @return whether it was used.
    bool onHostKey(const KeyPress& press);
    /// A view above all others that takes every press, also those beside it; null takes it away.
    void setPopup(CView* view);
    CView* getPopup() const { return popup; }
    /// One tick of 17 ms.
    void tick();
    NativeWindow& getWindow() { return *window; }

    /// The view goes, with all that lies in it: nothing may point at it any more.
    void forgetView(CView* view);

private:
    void onPointerMoved(Point point, std::uint32_t buttons) override;
    void onPointerPressed(Point point, std::uint32_t buttons) override;
    void onPointerReleased(Point point, std::uint32_t buttons) override;
    void onPointerCrossed(Point point, bool inside, std::uint32_t buttons) override;
    void onWheel(Point point, float distance, std::uint32_t buttons) override;
    void onKey(const KeyPress& press) override;
    void onKeyboardLost() override { setKeyTarget(nullptr); }
    void onExposed(const Rect& rect) override;
    void onTextArrived(const std::string& text) override;

    Point fromWindow(Point point) const { return {point.x / zoom, point.y / zoom}; }
    Rect onWindow(const Rect& rect) const;
    CView* viewAt(Point point) { return popup != nullptr ? popup : top.viewAt(point); }
    std::vector<Rect> drawDamage();
    void drawPart(CQORDrawContext& context, const Rect& part);

    std::unique_ptr<NativeWindow> window;
    WidgetListener* listener;
    double zoom;
    Damage damage;
    CQORViewContainer top;
    CQORViewContainer area;
    HintView hint;
    PointerRoute route;
    KeyTarget* keyTarget = nullptr;
    CView* popup = nullptr;
    std::optional<Point> waitingSize;
    bool closed = false;
    bool painting = false;
};

} // namespace velmora::Qorvane
