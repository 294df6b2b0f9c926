#pragma once

#include "editor/engine/toolkit/window/native_window.h"

#include <string>

namespace velmora::Qorvane {

class CView;

/// What has the keyboard for a while: an open text edit or menu.
class KeyTarget {
public:
    virtual ~KeyTarget() = default;
    /// @return whether the key was used.
    virtual bool onKeyPress(const KeyPress& press) = 0;
    /// Pasted text that was asked for.
    virtual void onPasted(const std::string&) {}
    /// The keyboard went to somebody else, or the window closes.
    virtual void onKeysLost() = 0;
    /// A press outside: an edit commits, a menu closes.
    virtual bool holdsPoint(Point framePoint) const = 0;
    /// The widget that it belongs to.
    virtual const CView* keyView() const = 0;
};

} // namespace velmora::Qorvane
