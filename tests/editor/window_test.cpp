#include "tests/editor/window_test.h"

#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "platform/clock.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <thread>

namespace velmora::test {

void Notes::note(const std::string& what, Point point, std::uint32_t buttons)
{
    char rest[64];
    std::snprintf(rest, sizeof rest, " at %g,%g with %X", point.x, point.y, buttons);
    note(what + rest);
}

void Notes::onKey(const Qorvane::KeyPress& press)
{
    constexpr const char* kNames[] = {"",       "Left",     "Right",     "Up",     "Down",   "Home",   "End",
                                      "PageUp", "PageDown", "Backspace", "Delete", "Return", "Escape", "Tab"};
    char rest[64];
    std::snprintf(rest, sizeof rest, "key %s'%s' %X with %X", kNames[static_cast<int>(press.key)],
                  press.text.c_str(), static_cast<unsigned>(press.letter), press.modifiers);
    note(rest);
}

bool Notes::has(const std::string& line) const
{
    return std::find(lines.begin(), lines.end(), line) != lines.end();
}

void WindowTest::SetUp()
{
    setenv("LC_ALL", "en_US.UTF-8", 1); // for the dead keys
    ASSERT_TRUE(Qorvane::openToolkit()) << Qorvane::missingFromToolkit();
    ASSERT_TRUE(server.isRunning()) << "no Xvfb";
    host = std::make_unique<XClient>();
    ASSERT_TRUE(host->isConnected());
    host->movePointer(5, 5);
    parent = host->openWindow(kHostX, kHostY, 400, 300);
    window = open();
    ASSERT_TRUE(window);
}

bool WindowTest::pollUntil(const std::function<bool()>& done)
{
    constexpr std::uint32_t kPatience = 2000;
    const std::uint32_t start = tickMilliseconds();
    while (!done()) {
        if (tickMilliseconds() - start > kPatience) return false;
        window->pollEvents(notes);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

std::vector<std::string> WindowTest::polled()
{
    host->sync();
    Point point;
    std::uint32_t buttons = 0;
    window->queryPointer(point, buttons); // an answer of the server: what came before is here
    notes.lines.clear();
    window->pollEvents(notes);
    return notes.lines;
}

void WindowTest::paint(const Rect& rect, std::uint32_t colour)
{
    const Qorvane::PixelBuffer pixels = window->pixels();
    const Rect part = intersection(rect, rectAt(0, 0, pixels.width, pixels.height));
    for (int y = static_cast<int>(part.top); y < part.bottom; ++y)
        for (int x = static_cast<int>(part.left); x < part.right; ++x)
            std::memcpy(pixels.bytes + y * pixels.stride + x * 4, &colour, sizeof colour);
    window->present({&rect, 1});
}

} // namespace velmora::test
