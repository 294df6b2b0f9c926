#pragma once

#include "editor/engine/toolkit/window/keyboard_focus.h"
#include "editor/engine/toolkit/window/native_window.h"
#include "editor/engine/toolkit/window/notice.h"
#include "editor/engine/toolkit/window/selection_offer.h"
#include "editor/engine/toolkit/window/selection_request.h"
#include "editor/engine/toolkit/window/x11_connection.h"
#include "editor/engine/toolkit/window/x11_image.h"
#include "editor/engine/toolkit/window/x11_keyboard.h"
#include "editor/engine/toolkit/window/x11_pointer.h"
#include "editor/engine/toolkit/window/x11_visual.h"

#include <optional>

namespace velmora::Qorvane {

/// A window below a host's, over a connection of its own.
class X11Window final : public NativeWindow {
public:
    /// @return null if the display or the parent can't be had
    static std::unique_ptr<X11Window> open(xcb_window_t parent, int width, int height);
    ~X11Window() override;

    bool isAlive() const override { return !destroyed_ && connection_->isAlive(); }
    void resize(int width, int height) override;
    PixelBuffer pixels() override;
    void present(std::span<const Rect> damage) override;
    void pollEvents(WindowListener& listener) override;
    void takeKeyboard() override;
    void returnKeyboard() override;
    void offerText(const std::string& text) override { offer(clipboard_, text); }
    void requestText() override { request(clipboard_); }
    void offerSelection(const std::string& text) override { offer(primary_, text); }
    void requestSelection() override { request(primary_); }
    bool queryPointer(Point& point, std::uint32_t& buttons) override;
    std::uint32_t id() const override { return window_; }

private:
    X11Window(std::unique_ptr<X11Connection> connection, xcb_window_t window, xcb_window_t parent,
              std::uint8_t depth);

    void offer(SelectionOffer& selection, const std::string& text);
    void request(const SelectionOffer& selection);
    void noteTime(const xcb_generic_event_t& event);
    std::optional<Notice> nextNotice();
    std::optional<Notice> noticeOf(const xcb_generic_event_t& event);
    std::optional<Notice> inputNotice(const xcb_generic_event_t& event);
    std::optional<Notice> textNotice(std::optional<std::string> text);

    std::unique_ptr<X11Connection> connection_;
    xcb_window_t window_;
    int width_ = 0, height_ = 0;
    bool heard_ = false; // an event came since the last flush
    bool destroyed_ = false;
    X11Image image_;
    X11Pointer pointer_;
    X11Keyboard keyboard_;
    KeyboardFocus focus_;
    SelectionOffer clipboard_, primary_;
    SelectionRequest request_;
    std::optional<std::string> ownText_; ///< asked for while we own the selection
    xcb_timestamp_t userTime_ = XCB_CURRENT_TIME;
    std::shared_ptr<bool> life_ = std::make_shared<bool>(); ///< ends with this, for whoever calls a listener
};

} // namespace velmora::Qorvane
