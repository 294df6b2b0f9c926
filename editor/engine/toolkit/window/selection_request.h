#pragma once

#include "editor/engine/toolkit/window/x11_connection.h"

#include <optional>
#include <string>

namespace velmora::Qorvane {

/// A text on its way from another program's selection to us, whole or in pieces.
class SelectionRequest {
public:
    SelectionRequest(X11Connection& connection, xcb_window_t window)
        : connection_(connection), window_(window)
    {
    }

    /// Gives up what was asked before.
    void ask(xcb_atom_t selection);
    /// @return the text once it is complete: clean UTF-8, at most `kMaxPastedBytes`
    std::optional<std::string> handle(const xcb_generic_event_t& event);

private:
    /// What comes next: nothing, the answer, or further pieces.
    enum class Stage { Idle, Asked, Pieces };

    struct Piece {
        xcb_atom_t type;
        std::string bytes;
    };

    void convert(xcb_atom_t target);
    std::optional<std::string> answered(const xcb_selection_notify_event_t& notify);
    std::optional<std::string> nextPiece(const xcb_property_notify_event_t& notify);
    std::optional<std::string> complete();
    Piece takePiece();

    X11Connection& connection_;
    xcb_window_t window_;
    Stage stage_ = Stage::Idle;
    xcb_atom_t selection_ = XCB_NONE, target_ = XCB_NONE;
    unsigned askedBy_ = 0; ///< number of the request
    std::string bytes_;
};

} // namespace velmora::Qorvane
