#pragma once

#include "editor/engine/custom_control.h"
#include "editor/engine/engine_view.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/view/frame.h"
#include "editor/engine/toolkit/view/widget_listener.h"
#include "tests/editor/fake_window.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora::test {

/// Follows the mouse while it is held, draws its value as a translucent box, notes what it hears.
class DragControl : public QORCustomControl {
public:
    explicit DragControl(const Rect& place, std::uint32_t controlTag = 5)
        : QORCustomControl(place, controlTag, nullptr)
    {
        value = 0.0;
    }

    void draw(QORDrawContext* context) override
    {
        ++draws;
        if (onDraw) onDraw();
        context->setFillColor({static_cast<std::uint8_t>(value * 255.0), 80, 160, 120});
        context->drawRect(getRect(), DrawStyle::Filled);
        context->setFrameColor({255, 255, 255, 90});
        context->drawEllipse(getRect(), DrawStyle::Stroked);
    }
    int onMouseDown(Point, std::uint32_t buttons) override
    {
        log += 'd';
        if (onDown) onDown();
        if ((buttons & kLeftButton) == 0) return kMouseNotHandled;
        dragging = true;
        return kMouseHandled;
    }
    int onMouseUp(Point, std::uint32_t buttons) override
    {
        log += buttons == 0 ? 'c' : 'u';
        dragging = false;
        return kMouseHandled;
    }
    int onMouseMoved(Point point, std::uint32_t) override
    {
        log += 'm';
        if (dragging) commitValue((point.x - getRect().left) / getRect().width());
        return kMouseHandled;
    }
    int onMouseEntered(Point point, std::uint32_t buttons) override
    {
        log += 'i';
        return QORCustomControl::onMouseEntered(point, buttons);
    }
    int onMouseExited(Point point, std::uint32_t buttons) override
    {
        log += 'o';
        return QORCustomControl::onMouseExited(point, buttons);
    }
    void onMouseWheel(Point, float distance, std::uint32_t) override
    {
        commitValue(getValue() + 0.125 * static_cast<double>(distance));
    }

    std::string log; ///< down, moved, up, cancelled, in, out
    int draws = 0;
    bool dragging = false;
    std::function<void()> onDown;
    std::function<void()> onDraw;
};

/// A frame in a window in memory. The plug-in area begins 20 pixels below the top.
class FrameRig : public ::testing::Test, public Qorvane::WidgetListener {
protected:
    static constexpr double kAreaTop = 20.0;
    static constexpr double kWidth = 240.0;
    static constexpr double kHeight = 200.0;

    void SetUp() override
    {
        ASSERT_TRUE(Qorvane::openToolkit()) << "the toolkit's libraries are missing";
        open(1.0);
    }
    void open(double zoom)
    {
        closeFrame();
        screen = std::make_shared<FakeScreen>();
        frame = std::make_unique<Qorvane::QORFrame>(
            std::make_unique<FakeWindow>(screen, static_cast<int>(kWidth * zoom),
                                         static_cast<int>(kHeight * zoom)),
            *this, Rect{0.0, kAreaTop, kWidth, kHeight}, kWidth, kHeight, zoom);
        panel = std::make_unique<Qorvane::CQORViewContainer>(rectAt(10.0, 10.0, 200.0, 150.0));
        frame->plugArea().addChild(panel.get());
    }
    void closeFrame()
    {
        panel.reset();
        frame.reset();
    }
    void TearDown() override { closeFrame(); }

    /// A new control in the panel, which lies at 10, 30 of the window.
    template <typename Control, typename... Arguments>
    Control& add(Arguments&&... arguments)
    {
        auto* const control = new Control(std::forward<Arguments>(arguments)...);
        panel->addControl(control);
        return *control;
    }
    void poll() { frame->pollEvents(); }

    void valueChanged(std::uint32_t tag, double) override { note("value", tag); }
    void controlBeginEdit(std::uint32_t tag) override { note("begin", tag); }
    void controlEndEdit(std::uint32_t tag) override { note("end", tag); }
    void note(const std::string& what, std::uint32_t tag)
    {
        heard.push_back(what + ' ' + std::to_string(tag));
        if (onHeard) onHeard(heard.back());
    }
    std::vector<std::string> takeHeard() { return std::exchange(heard, {}); }

    std::shared_ptr<FakeScreen> screen;
    std::unique_ptr<Qorvane::QORFrame> frame;
    std::unique_ptr<Qorvane::CQORViewContainer> panel;
    std::vector<std::string> heard;
    std::function<void(const std::string&)> onHeard;
};

using Heard = std::vector<std::string>;

} // namespace velmora::test
