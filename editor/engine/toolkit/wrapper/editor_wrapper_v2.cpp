#include "editor/engine/toolkit/wrapper/editor_wrapper_v2.h"

#include "editor/engine/view_container.h"

namespace velmora::Qorvane {

namespace {

constexpr Rgba kBarColour{30, 30, 30, 255};

} // namespace

void QOREditorWrapperV2::viewOpened()
{
    const std::uint32_t now = clock();
    ticks.start(now);
    updates.start(now - IdleUpdate_QOR_Handler::kPeriod); // the first picture comes with the first idle call
    barGround = createViewContainer({});
    barGround->frameLevel = true;
    barGround->setBackgroundColor(kBarColour);
    addView(barGround);
    viewResized();
}

void QOREditorWrapperV2::viewResized()
{
    barGround->setViewSize({0.0, 0.0, areaWidth(), kPresetBarHeight});
}

void QOREditorWrapperV2::poll()
{
    if (isBusy()) return;
    const CallScope call(*this);
    takeEvents();
    if (!isOpen()) return;
    const std::uint32_t now = clock();
    for (int due = ticks.poll(now); due > 0 && isOpen(); --due) idle();
    if (QORFrame* const shown = openFrame()) updates.drain(*shown, now);
}

} // namespace velmora::Qorvane
