#pragma once

#include "editor/engine/toolkit/window/native_window.h"

#include <cstring>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace velmora::test {

using Qorvane::Key;
using Qorvane::KeyPress;

/// What a fake window shows and what happens to it. Outlives the window.
struct FakeScreen {
    std::vector<std::uint32_t> pixels;
    int width = 0;
    int height = 0;
    bool exists = false;
    bool alive = true;
    std::deque<std::function<void(Qorvane::WindowListener&)>> events;
    std::vector<Rect> presented;
    int presents = 0;
    bool keyboardTaken = false;
    std::string clipboard;
    std::string selection;
    std::optional<std::string> asked; ///< the text that a request found, until it is delivered
    std::uint32_t held = 0;           ///< buttons and modifiers

    void move(double x, double y)
    {
        events.push_back([=, b = held](auto& to) { to.onPointerMoved({x, y}, b); });
    }
    void press(double x, double y, std::uint32_t button = kLeftButton, std::uint32_t more = 0)
    {
        held |= button;
        events.push_back([=, b = held | more](auto& to) { to.onPointerPressed({x, y}, b); });
    }
    void release(double x, double y, std::uint32_t button = kLeftButton)
    {
        held &= ~button;
        events.push_back([=, b = (held & 0xF0) | button](auto& to) { to.onPointerReleased({x, y}, b); });
    }
    void click(double x, double y, std::uint32_t button = kLeftButton, std::uint32_t more = 0)
    {
        press(x, y, button, more);
        release(x, y, button);
    }
    void leave()
    {
        events.push_back([b = held](auto& to) { to.onPointerCrossed({-5, -5}, false, b); });
    }
    void wheel(double x, double y, float distance)
    {
        events.push_back([=, b = held](auto& to) { to.onWheel({x, y}, distance, b); });
    }
    void key(Key key, std::uint32_t modifiers = 0)
    {
        put({.key = key, .text = {}, .letter = 0, .modifiers = modifiers});
    }
    void type(const std::string& text) { put({.key = Key::None, .text = text, .letter = 0, .modifiers = 0}); }
    void shortcut(char32_t letter)
    {
        put({.key = Key::None, .text = {}, .letter = letter, .modifiers = kControlKey});
    }
    void put(const KeyPress& stroke)
    {
        events.push_back([=](auto& to) { to.onKey(stroke); });
    }
    void deliverText()
    {
        events.push_back([text = asked.value_or("")](auto& to) { to.onTextArrived(text); });
        asked.reset();
    }

    std::uint32_t at(int x, int y) const { return pixels[static_cast<std::size_t>(y * width + x)]; }
    double presentedArea() const
    {
        double area = 0.0;
        for (const Rect& rect : presented) area += rect.width() * rect.height();
        return area;
    }
    void forgetPresented() { presented.clear(); }
};

class FakeWindow final : public Qorvane::NativeWindow {
public:
    FakeWindow(std::shared_ptr<FakeScreen> shown, int width, int height) : screen(std::move(shown))
    {
        screen->exists = true;
        FakeWindow::resize(width, height);
    }
    ~FakeWindow() override { screen->exists = false; }

    bool isAlive() const override { return screen->alive; }
    void resize(int width, int height) override
    {
        screen->width = width;
        screen->height = height;
        screen->pixels.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), 0);
    }
    Qorvane::PixelBuffer pixels() override
    {
        return {reinterpret_cast<std::uint8_t*>(screen->pixels.data()), screen->width, screen->height,
                screen->width * 4};
    }
    void present(std::span<const Rect> damage) override
    {
        ++screen->presents;
        screen->presented.insert(screen->presented.end(), damage.begin(), damage.end());
    }
    void pollEvents(Qorvane::WindowListener& listener) override
    {
        const auto mine = screen; // the listener may end the window
        while (mine->exists && !mine->events.empty()) {
            const auto event = std::move(mine->events.front());
            mine->events.pop_front();
            event(listener);
        }
    }
    void takeKeyboard() override { screen->keyboardTaken = true; }
    void returnKeyboard() override { screen->keyboardTaken = false; }
    void offerText(const std::string& text) override { screen->clipboard = text; }
    void requestText() override { screen->asked = screen->clipboard; }
    void offerSelection(const std::string& text) override { screen->selection = text; }
    void requestSelection() override { screen->asked = screen->selection; }
    bool queryPointer(Point&, std::uint32_t&) override { return false; }
    std::uint32_t id() const override { return 0; }

private:
    std::shared_ptr<FakeScreen> screen;
};

} // namespace velmora::test
