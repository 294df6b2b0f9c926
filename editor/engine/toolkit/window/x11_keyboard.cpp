#include "editor/engine/toolkit/window/x11_keyboard.h"

#include "editor/engine/toolkit/window/clean_text.h"
#include "editor/engine/toolkit/window/quiet_pipe.h"
#include "editor/engine/toolkit/window/x11_pointer.h"

#include <utility>

#define explicit explicit_ // the name of a member there
#include <xcb/xkb.h>
#undef explicit
#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

namespace velmora::Qorvane {
namespace {

struct NamedKey {
    xkb_keysym_t symbol, onKeypad;
    Key key;
};
constexpr NamedKey kKeys[] = {
    {XKB_KEY_Left, XKB_KEY_KP_Left, Key::Left},
    {XKB_KEY_Right, XKB_KEY_KP_Right, Key::Right},
    {XKB_KEY_Up, XKB_KEY_KP_Up, Key::Up},
    {XKB_KEY_Down, XKB_KEY_KP_Down, Key::Down},
    {XKB_KEY_Home, XKB_KEY_KP_Home, Key::Home},
    {XKB_KEY_End, XKB_KEY_KP_End, Key::End},
    {XKB_KEY_Page_Up, XKB_KEY_KP_Page_Up, Key::PageUp},
    {XKB_KEY_Page_Down, XKB_KEY_KP_Page_Down, Key::PageDown},
    {XKB_KEY_BackSpace, XKB_KEY_BackSpace, Key::Backspace},
    {XKB_KEY_Delete, XKB_KEY_KP_Delete, Key::Delete},
    {XKB_KEY_Return, XKB_KEY_KP_Enter, Key::Return},
    {XKB_KEY_Escape, XKB_KEY_Escape, Key::Escape},
    {XKB_KEY_Tab, XKB_KEY_KP_Tab, Key::Tab},
    {XKB_KEY_ISO_Left_Tab, XKB_KEY_ISO_Left_Tab, Key::Tab}, // with shift
};

Key keyOf(xkb_keysym_t symbol)
{
    for (const NamedKey& named : kKeys)
        if (symbol == named.symbol || symbol == named.onKeypad) return named.key;
    return Key::None;
}

constexpr bool isAsciiLetter(char32_t character)
{
    return character >= U'a' && character <= U'z';
}
constexpr bool isControl(char32_t character)
{
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

/// The environment's locale as C programs choose it; ours is the host's to set.
const char* localeName()
{
    for (const char* variable : {"LC_ALL", "LC_CTYPE", "LANG"}) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return "C";
}

/// The layout that was in use at an event.
constexpr xkb_layout_index_t layoutOf(unsigned state)
{
    return state >> 13 & 3;
}

} // namespace

void X11Keyboard::load()
{
    if (loaded_) return;
    loaded_ = true;
    const QuietPipe quiet;
    if (xkb_x11_setup_xkb_extension(connection_.get(), XKB_X11_MIN_MAJOR_XKB_VERSION,
                                    XKB_X11_MIN_MINOR_XKB_VERSION, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS,
                                    nullptr, nullptr, &firstEvent_, nullptr) == 0)
        return;
    device_ = xkb_x11_get_core_keyboard_device_id(connection_.get());
    context_.reset(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES));
    if (device_ < 0 || !context_) return;
    xkb_context_set_log_level(context_.get(), XKB_LOG_LEVEL_CRITICAL);
    selectChanges();
    loadKeymap();
    loadCompose();
}

void X11Keyboard::selectChanges()
{
    constexpr std::uint16_t kChanges = XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY;
    constexpr std::uint16_t kEveryPart = 0xFF;
    xcb_xkb_select_events(connection_.get(), static_cast<xcb_xkb_device_spec_t>(device_), kChanges, 0,
                          kChanges, kEveryPart, kEveryPart, nullptr);
}

void X11Keyboard::loadKeymap()
{
    const QuietPipe quiet;
    Held<xkb_keymap> keymap(xkb_x11_keymap_new_from_device(context_.get(), connection_.get(), device_,
                                                           XKB_KEYMAP_COMPILE_NO_FLAGS));
    if (!keymap) return; // what was known is better than nothing
    state_.reset(xkb_state_new(keymap.get()));
    keymap_ = std::move(keymap);
}

void X11Keyboard::loadCompose()
{
    composeTable_.reset(
        xkb_compose_table_new_from_locale(context_.get(), localeName(), XKB_COMPOSE_COMPILE_NO_FLAGS));
    if (composeTable_) compose_.reset(xkb_compose_state_new(composeTable_.get(), XKB_COMPOSE_STATE_NO_FLAGS));
}

void X11Keyboard::forget()
{
    if (compose_) xkb_compose_state_reset(compose_.get());
}

bool X11Keyboard::handle(const xcb_generic_event_t& event)
{
    if (firstEvent_ == 0 || typeOf(event) != firstEvent_) return false;
    const std::uint8_t kind = event.pad0; // all events of the extension are of one type
    // Several come at once, so it is read again when a key is pressed.
    if (kind == XCB_XKB_NEW_KEYBOARD_NOTIFY || kind == XCB_XKB_MAP_NOTIFY) stale_ = true;
    return true;
}

std::optional<KeyPress> X11Keyboard::pressed(const xcb_key_press_event_t& event)
{
    constexpr std::uint32_t kModifiers = kShiftKey | kControlKey | kAltKey;
    if (!state_) return std::nullopt;
    if (std::exchange(stale_, false)) loadKeymap();
    // The event tells what was held when it happened, also when it was sent on by another program.
    xkb_state_update_mask(state_.get(), event.state & 0xFF, 0, 0, 0, 0, layoutOf(event.state));
    const xkb_keysym_t symbol = xkb_state_key_get_one_sym(state_.get(), event.detail);
    KeyPress press;
    press.key = keyOf(symbol);
    press.letter = letterOf(event.detail);
    press.modifiers = buttonsOf(event.state) & kModifiers;
    if ((press.modifiers & (kControlKey | kAltKey)) == 0) {
        const std::optional<std::string> text = typed(symbol);
        if (!text) return std::nullopt;
        if (press.key == Key::None) press.text = *text;
    }
    const bool means = press.key != Key::None || !press.text.empty() || press.letter != 0;
    return means ? std::optional(press) : std::nullopt;
}

/// @return the text behind a key and the dead keys before it, or nothing while more must come
std::optional<std::string> X11Keyboard::typed(xkb_keysym_t symbol)
{
    const char32_t character = xkb_keysym_to_utf32(symbol);
    const std::string plain = isControl(character) ? std::string() : utf8FromCharacter(character);
    if (!compose_ || xkb_compose_state_feed(compose_.get(), symbol) == XKB_COMPOSE_FEED_IGNORED) return plain;
    switch (xkb_compose_state_get_status(compose_.get())) {
    case XKB_COMPOSE_COMPOSING:
        return std::nullopt;
    case XKB_COMPOSE_CANCELLED:
        xkb_compose_state_reset(compose_.get());
        return std::string();
    case XKB_COMPOSE_COMPOSED: {
        char text[64] = {};
        xkb_compose_state_get_utf8(compose_.get(), text, sizeof text);
        return cleanUtf8(text, sizeof text);
    }
    case XKB_COMPOSE_NOTHING:
        break;
    }
    return plain;
}

/// The letter on a key without shift: that of the layout in use, of another one if that isn't Latin.
char32_t X11Keyboard::letterOf(xkb_keycode_t code) const
{
    const auto letterIn = [&](xkb_layout_index_t layout) -> char32_t {
        const xkb_keysym_t* symbols = nullptr;
        const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), code, layout, 0, &symbols);
        return count == 1 ? xkb_keysym_to_utf32(xkb_keysym_to_lower(symbols[0])) : 0;
    };
    const xkb_layout_index_t layout = xkb_state_key_get_layout(state_.get(), code);
    if (layout == XKB_LAYOUT_INVALID) return 0;
    const char32_t own = letterIn(layout);
    if (isAsciiLetter(own)) return own;
    const xkb_layout_index_t count = xkb_keymap_num_layouts_for_key(keymap_.get(), code);
    for (xkb_layout_index_t other = 0; other < count; ++other)
        if (isAsciiLetter(letterIn(other))) return letterIn(other);
    return isControl(own) ? 0 : own;
}

} // namespace velmora::Qorvane
