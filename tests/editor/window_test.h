#pragma once

#include "editor/engine/toolkit/window/native_window.h"
#include "tests/editor/x_client.h"
#include "tests/editor/x_server.h"

#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace velmora::test {

using Qorvane::NativeWindow;

/// Notes what a window tells, a line each.
class Notes : public Qorvane::WindowListener {
public:
    std::vector<std::string> lines;
    std::vector<std::string> texts; ///< that arrived
    std::vector<Rect> exposed;
    std::function<void(const std::string&)> onLine = [](const std::string&) {};

    void onPointerMoved(Point point, std::uint32_t buttons) override { note("moved", point, buttons); }
    void onPointerPressed(Point point, std::uint32_t buttons) override { note("pressed", point, buttons); }
    void onPointerReleased(Point point, std::uint32_t buttons) override { note("released", point, buttons); }
    void onPointerCrossed(Point, bool inside, std::uint32_t) override { note(inside ? "inside" : "outside"); }
    void onWheel(Point point, float distance, std::uint32_t buttons) override
    {
        note("wheel " + std::to_string(static_cast<int>(distance)), point, buttons);
    }
    void onKey(const Qorvane::KeyPress& press) override;
    void onKeyboardLost() override { note("keyboard lost"); }
    void onExposed(const Rect& rect) override { exposed.push_back(rect); }
    void onTextArrived(const std::string& text) override { texts.push_back(text); }

    bool has(const std::string& line) const;

private:
    void note(const std::string& what) { onLine(lines.emplace_back(what)); }
    void note(const std::string& what, Point point, std::uint32_t buttons);
};

/// A host's window on a display of the test's own, and ours in it at the host's (0, 0).
class WindowTest : public testing::Test {
protected:
    static constexpr int kHostX = 100, kHostY = 50;

    explicit WindowTest(const char* withoutExtension = nullptr) : server(withoutExtension) {}
    void SetUp() override;
    void TearDown() override { window.reset(); }
    std::unique_ptr<NativeWindow> open(int width = 200, int height = 100)
    {
        return Qorvane::openX11Window(parent, width, height);
    }
    /// Polls until `done`, at most two seconds. @return whether it came so far
    bool pollUntil(const std::function<bool()>& done);
    /// Polls once everything that was sent has arrived.
    std::vector<std::string> polled();
    /// Fills a part of the pixels and shows just that.
    void paint(const Rect& rect, std::uint32_t colour);
    /// Of the host's window as the screen shows it, once the server has read what was presented.
    std::uint32_t shown(int x, int y)
    {
        window->pixels();
        return host->pixelAt(parent, x, y);
    }
    void movePointer(int x, int y) { host->movePointer(kHostX + x, kHostY + y); }

    XServer server;
    std::unique_ptr<XClient> host;
    xcb_window_t parent = XCB_NONE;
    std::unique_ptr<NativeWindow> window;
    Notes notes;
};

} // namespace velmora::test
