#include "editor/engine/toolkit/wrapper/editor_wrapper_v1.h"

#include "editor/engine/resource_factory.h"
#include "host/master/raised_flag.h"
#include "params/catalogue.h"
#include "presets/preset_store.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace velmora::Qorvane {

namespace {

constexpr std::uint32_t kReportedButtons = 0x7FE;

CQORViewContainer* onToolkit(QORViewContainer* container)
{
    return dynamic_cast<CQORViewContainer*>(container);
}

} // namespace

QOREditorWrapperV1::QOREditorWrapperV1(const EditorFactory& factory)
    : width(factory.width), height(factory.height)
{
    editor = factory.create(*this);
}

bool QOREditorWrapperV1::openIn(std::unique_ptr<NativeWindow> window)
{
    if (frame != nullptr || window == nullptr) return false;
    const CallScope call(*this);
    closeEditor();
    frame = std::make_unique<QORFrame>(std::move(window), static_cast<WidgetListener&>(*this),
                                       Rect{0.0, areaTop(), width, areaTop() + height}, width,
                                       areaTop() + height, zoom());
    hintsSwitch = PresetStore::hintsShown() ? 1.0 : 0.0;
    hover = {};
    editorOpen = true;
    try {
        viewOpened();
        if (editor != nullptr) editor->open();
    } catch (...) { // no half-built window
        closeWindow();
        throw;
    }
    return frame != nullptr;
}

// What the user is at ends while editor and host still hear of it; then the editor closes, with its views
// still there unless a call of ours is in them.
void QOREditorWrapperV1::closeWindow()
{
    if (frame == nullptr) return;
    const CallScope call(*this);
    const QORFrame* const leaving = frame.get();
    frame->releaseInput();
    if (frame.get() != leaving) return; // closed from inside, and opened again perhaps
    viewClosing();
    if (depth == 1) closeEditor();
    if (frame.get() == leaving) releaseViews();
}

void QOREditorWrapperV1::releaseViews()
{
    frame->shutDown();
    for (const auto& container : containers)
        if (CQORViewContainer* const parent = container->getParent()) parent->removeChild(container.get());
    closedViews.push_back({std::move(frame), std::move(containers)});
    containers.clear();
    resizeBatch = false;
}

// An editor that runs out of memory as it closes loses its views all the same.
void QOREditorWrapperV1::closeEditor() noexcept
{
    if (!editorOpen) return;
    editorOpen = false;
    try {
        if (editor != nullptr) editor->close();
    } catch (...) {
    }
}

void QOREditorWrapperV1::leaveCall()
{
    if (depth == 1) {
        if (frame == nullptr) closeEditor();
        const std::vector<Views> gone = std::exchange(closedViews, {});
    }
    --depth;
}

void QOREditorWrapperV1::takeEvents()
{
    if (frame != nullptr) frame->pollEvents();
}

bool QOREditorWrapperV1::onHostKey(const KeyPress& press)
{
    if (frame == nullptr) return false;
    const CallScope call(*this);
    return frame->onHostKey(press);
}

PixelBuffer QOREditorWrapperV1::pixels()
{
    return frame != nullptr && frame->isAlive() ? frame->getWindow().pixels() : PixelBuffer{};
}

void QOREditorWrapperV1::getWindowSize(int& windowWidth, int& windowHeight) const
{
    windowWidth = static_cast<int>(width * zoom());
    windowHeight = static_cast<int>((areaTop() + height) * zoom());
}

void QOREditorWrapperV1::setBackground(QORBitmap* bitmap)
{
    if (frame == nullptr) return;
    frame->outermost().setBackgroundColor({0, 0, 0, 0});
    frame->plugArea().setBackground(bitmap);
}

void QOREditorWrapperV1::setBackgroundResource(std::uint32_t id)
{
    const auto bitmap = ResourceRef<QORBitmap>::adopt(createBitmap(id, 0));
    setBackground(bitmap.get());
}

void QOREditorWrapperV1::addView(QORViewContainer* container)
{
    CQORViewContainer* const view = onToolkit(container);
    if (frame == nullptr || view == nullptr) return;
    if (view->frameLevel)
        frame->outermost().addChild(view);
    else
        frame->plugArea().addChild(view);
}

void QOREditorWrapperV1::removeView(QORViewContainer* container)
{
    const CallScope call(*this);
    CQORViewContainer* const view = onToolkit(container);
    if (view != nullptr && view->getParent() != nullptr) view->getParent()->removeChild(view);
}

QORViewContainer* QOREditorWrapperV1::createViewContainer(const Rect& rect)
{
    if (frame == nullptr) return nullptr;
    return containers.emplace_back(std::make_unique<CQORViewContainer>(rect)).get();
}

QORBitmap* QOREditorWrapperV1::createBitmap(std::uint32_t id, std::uint32_t reserved)
{
    return reserved == 0 ? velmora::createBitmap(id) : nullptr;
}

void QOREditorWrapperV1::getMousePosition(Point& point)
{
    if (frame == nullptr) return;
    point = frame->getMousePosition();
    point.y -= areaTop();
}

void QOREditorWrapperV1::getMouseButtons(std::uint32_t& buttons)
{
    buttons = frame != nullptr ? frame->getCurrentMouseButtons() & kReportedButtons : 0;
}

// What the host makes of an edit comes back as values, never as another edit.
void QOREditorWrapperV1::editParameter(std::int32_t id, double value)
{
    if (editing || !std::isfinite(value)) return;
    const CallScope call(*this);
    const RaisedFlag edit(editing);
    sendEdit(id, std::clamp(value, 0.0, 1.0));
}

void QOREditorWrapperV1::resizeEditor(double newWidth, double newHeight)
{
    if (!std::isfinite(newWidth) || !std::isfinite(newHeight)) return;
    batchWidth = newWidth;
    batchHeight = newHeight;
    if (!resizeBatch) applySize();
}

void QOREditorWrapperV1::setResizeBatch(bool on)
{
    if (on && !resizeBatch) {
        batchWidth = 0.0;
        batchHeight = 0.0;
    }
    const bool ends = resizeBatch && !on;
    resizeBatch = on;
    if (ends) applySize();
}

void QOREditorWrapperV1::applySize()
{
    const double widest = kMostWindowSide / zoom();
    if (!(batchWidth >= 1.0 && batchHeight >= 1.0 && batchWidth <= widest &&
          areaTop() + batchHeight <= widest))
        return;
    if (batchWidth == width && batchHeight == height) return;
    width = batchWidth;
    height = batchHeight;
    if (frame == nullptr) return;
    const CallScope call(*this);
    frame->resize(width, areaTop() + height);
    if (frame == nullptr) return; // closed by the host, as an open menu closed
    viewResized();
    int windowWidth = 0;
    int windowHeight = 0;
    getWindowSize(windowWidth, windowHeight);
    if (host != nullptr) host->windowResized(windowWidth, windowHeight);
}

void QOREditorWrapperV1::redraw()
{
    if (frame == nullptr) return;
    const CallScope call(*this);
    frame->outermost().invalidate();
    frame->paint();
}

void QOREditorWrapperV1::idle()
{
    if (frame == nullptr) return;
    const CallScope call(*this);
    frame->tick();
    if (editor != nullptr) editor->idle();
    const double hints = PresetStore::hintsShown() ? 1.0 : 0.0;
    if (hints != hintsSwitch) {
        hintsSwitch = hints;
        setParameter(kHintsCommand, hints);
    }
    if (frame == nullptr) return; // closed by the host meanwhile
    if (hintsSwitch < 0.5 || resizeBatch || !frame->isMouseInside())
        frame->hideHint();
    else
        hover.tick(*frame, frame->getCurrentMouseButtons() & kReportedButtons);
}

void QOREditorWrapperV1::setParameter(std::int32_t id, double value)
{
    if (editor == nullptr || !std::isfinite(value)) return;
    const CallScope call(*this);
    editor->setParameter(id, value);
}

void QOREditorWrapperV1::valueChanged(std::uint32_t tag, double value)
{
    const CallScope call(*this);
    if (editor != nullptr) editor->controlChanged(static_cast<std::int32_t>(tag), value);
}

} // namespace velmora::Qorvane
