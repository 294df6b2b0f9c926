#pragma once

#include "editor/engine/toolkit/wrapper/editor_wrapper_v1.h"
#include "editor/engine/toolkit/wrapper/polled_timer.h"
#include "platform/clock.h"

namespace velmora::Qorvane {

/// The timer behind deferred repaints: what widgets marked is drawn at its ticks.
class IdleUpdate_QOR_Handler {
public:
    static constexpr std::uint32_t kPeriod = 33; ///< milliseconds

    void start(std::uint32_t now) { timer.start(now); }
    void drain(QORFrame& frame, std::uint32_t now)
    {
        if (timer.poll(now) > 0) frame.paint();
    }

private:
    PolledTimer timer{kPeriod};
};

/// Makes room for the preset bar above the plug-in area, and runs the timers.
class QOREditorWrapperV2 : public QOREditorWrapperV1 {
public:
    static constexpr double kPresetBarHeight = 52.0;
    static constexpr std::uint32_t kTickPeriod = 17; ///< milliseconds

    using QOREditorWrapperV1::QOREditorWrapperV1;

    using TickSource = std::uint32_t (*)();

    void poll() override;
    /// Milliseconds as `tickMilliseconds`, for who can't wait. Counts from the next opening on.
    void setTickSource(TickSource source) { clock = source; }

protected:
    double areaTop() const override { return kPresetBarHeight; }
    void viewOpened() override;
    void viewResized() override;

private:
    QORViewContainer* barGround = nullptr; // the engine's, good while a window is open
    TickSource clock = tickMilliseconds;
    PolledTimer ticks{kTickPeriod};
    IdleUpdate_QOR_Handler updates;
};

} // namespace velmora::Qorvane
