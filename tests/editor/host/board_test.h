#pragma once

#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "tests/editor/host/control_board.h"
#include "tests/editor/host/patience.h"
#include "tests/editor/host/recording_master.h"
#include "tests/editor/x_client.h"
#include "tests/editor/x_server.h"

#include <gtest/gtest.h>

#include <memory>

namespace velmora::test {

/// A board of controls in a host's window, with a user in front of it.
class BoardTest : public testing::Test {
protected:
    void SetUp() override;

    /// Shows the board in the host's window.
    bool open();
    ControlBoard& board() { return *ControlBoard::latest(); }
    /// Polls as a host's idle calls do, until `done`.
    bool idleUntil(const std::function<bool()>& done);
    /// Until the last line from the editor is this one.
    bool idleUntilLine(const std::string& line);
    bool isMenuOpen();
    /// The keyboard is the editor's.
    bool hasKeyboard();
    bool isKeyboardBack() { return desk->focus() == parent; }
    /// Lines from the editor that begin so.
    long linesWith(const std::string& start) const;

    void moveTo(double x, double y);
    void moveTo(const Rect& place) { moveTo(place.left + place.width() / 2, place.top + place.height() / 2); }
    void click(const Rect& place);
    /// Two clicks that no delay can part.
    void doubleClick(const Rect& place);
    void openMenu();
    void openText();
    /// An entry of the open menu.
    static Rect entryPlace(int index);

    XServer server;
    std::unique_ptr<XClient> desk;
    xcb_window_t parent = XCB_NONE;
    xcb_window_t child = XCB_NONE; ///< the editor's
    RecordingMaster master;
    std::unique_ptr<Qorvane::QORViewWrapper> view;

    static constexpr int kParentX = 100, kParentY = 50; ///< on the screen
    static constexpr int kKeyA = 38, kKeyUmlaut = 47, kKeyReturn = 36, kKeyEscape = 9, kKeyDown = 116;
};

} // namespace velmora::test
