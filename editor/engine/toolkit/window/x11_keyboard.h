#pragma once

#include "editor/engine/toolkit/window/native_window.h"
#include "editor/engine/toolkit/window/x11_connection.h"

#include <optional>

#include <xkbcommon/xkbcommon-compose.h>
#include <xkbcommon/xkbcommon.h>

namespace velmora::Qorvane {

/// What keys mean under the user's layouts, with dead keys. Loaded at the first need: most editors are closed
/// without a key typed.
class X11Keyboard {
public:
    explicit X11Keyboard(X11Connection& connection) : connection_(connection) {}

    void load();
    /// Forgets a dead key that waits for its letter.
    void forget();
    /// @return nothing for a key that only changes what others mean, or waits for another
    std::optional<KeyPress> pressed(const xcb_key_press_event_t& event);
    /// @return true if the event told of other layouts
    bool handle(const xcb_generic_event_t& event);

private:
    struct Release {
        void operator()(xkb_context* context) const { xkb_context_unref(context); }
        void operator()(xkb_keymap* keymap) const { xkb_keymap_unref(keymap); }
        void operator()(xkb_state* state) const { xkb_state_unref(state); }
        void operator()(xkb_compose_table* table) const { xkb_compose_table_unref(table); }
        void operator()(xkb_compose_state* state) const { xkb_compose_state_unref(state); }
    };
    template <class T>
    using Held = std::unique_ptr<T, Release>;

    void selectChanges();
    void loadKeymap();
    void loadCompose();
    char32_t letterOf(xkb_keycode_t code) const;
    std::optional<std::string> typed(xkb_keysym_t symbol);

    X11Connection& connection_;
    bool loaded_ = false;
    std::uint8_t firstEvent_ = 0;
    bool stale_ = false; ///< the layouts have changed since
    std::int32_t device_ = -1;
    Held<xkb_context> context_;
    Held<xkb_keymap> keymap_;
    Held<xkb_state> state_;
    Held<xkb_compose_table> composeTable_;
    Held<xkb_compose_state> compose_;
};

} // namespace velmora::Qorvane
