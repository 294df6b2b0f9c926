#pragma once

#include "editor/engine/geometry.h"

#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace velmora::Qorvane {

/// Keys that mean something besides the text they type.
enum class Key {
    None,
    Left,
    Right,
    Up,
    Down,
    Home,
    End,
    PageUp,
    PageDown,
    Backspace,
    Delete,
    Return,
    Escape,
    Tab,
};

struct KeyPress {
    Key key = Key::None;
    std::string text;    ///< UTF-8 that the key types; empty for keys that type nothing or with control held
    char32_t letter = 0; ///< lower-case letter of the key whatever is held, for shortcuts; 0 if none
    std::uint32_t modifiers = 0; ///< `kShiftKey`, `kControlKey`, `kAltKey`
};

/// What a window tells its owner, only from inside `pollEvents`. Points in the window's pixels; `buttons` is
/// the button word, for a press with the button in question set, for a release with it as the only one.
class WindowListener {
public:
    virtual ~WindowListener() = default;
    virtual void onPointerMoved(Point point, std::uint32_t buttons) = 0;
    virtual void onPointerPressed(Point point, std::uint32_t buttons) = 0;
    virtual void onPointerReleased(Point point, std::uint32_t buttons) = 0;
    /// @param inside false once the pointer has gone
    virtual void onPointerCrossed(Point point, bool inside, std::uint32_t buttons) = 0;
    /// @param distance notches, up is positive; several that wait come as one
    virtual void onWheel(Point point, float distance, std::uint32_t buttons) = 0;
    virtual void onKey(const KeyPress& press) = 0;
    /// The keyboard went elsewhere.
    virtual void onKeyboardLost() = 0;
    virtual void onExposed(const Rect& rect) = 0;
    /// The answer to `requestText`. Valid UTF-8, at most `kMaxPastedBytes`.
    virtual void onTextArrived(const std::string& text) = 0;
};

inline constexpr std::size_t kMaxPastedBytes = 1 << 16;
inline constexpr int kMostWindowSide = 8192; ///< pixels; larger windows are cut to it

/// Pixels that a frame draws into: 32 bits each, premultiplied alpha, red in bits 16 to 23.
struct PixelBuffer {
    std::uint8_t* bytes = nullptr;
    int width = 0;
    int height = 0;
    int stride = 0; ///< bytes from row to row
};

/// A child window in a host's window, or an image in its stead. Belongs to one thread at a time.
class NativeWindow {
public:
    virtual ~NativeWindow() = default;

    /// False once the window or the display server has gone; every operation then does nothing.
    virtual bool isAlive() const = 0;
    /// Sizes in pixels, at least 1 x 1. The pixels are blank afterwards; `pixels()` may have moved.
    virtual void resize(int width, int height) = 0;
    virtual PixelBuffer pixels() = 0;
    /// Shows these parts of the pixels. May wait until the server has read what was sent last.
    virtual void present(std::span<const Rect> damage) = 0;
    /// Hands all that has happened to the listener; returns at once if nothing has. The listener may close
    /// the window's owner from inside: see `pollEvents` of the frame.
    virtual void pollEvents(WindowListener& listener) = 0;

    /// Asks for the keyboard while text is edited or a menu is open, and gives it back to who had it.
    virtual void takeKeyboard() = 0;
    virtual void returnKeyboard() = 0;

    /// The clipboard. What was offered stays available as long as the window lives.
    virtual void offerText(const std::string& text) = 0;
    virtual void requestText() = 0;
    /// The selection that the middle button pastes.
    virtual void offerSelection(const std::string& text) = 0;
    virtual void requestSelection() = 0;

    /// Where the pointer is now, and the button word. @return false if it isn't in the window.
    virtual bool queryPointer(Point& point, std::uint32_t& buttons) = 0;
    /// The window's id for others; 0 for an image.
    virtual std::uint32_t id() const = 0;
};

/// @param parent X11 window of the host @return null if the display or the parent can't be had
std::unique_ptr<NativeWindow> openX11Window(std::uint32_t parent, int width, int height);

/// A window without a display. `bytes()` of its pixels are what a screen would show; nothing ever happens in
/// it.
std::unique_ptr<NativeWindow> openImageWindow(int width, int height);

} // namespace velmora::Qorvane
