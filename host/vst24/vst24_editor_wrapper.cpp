#include "host/vst24/vst24_editor_wrapper.h"

#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/window/native_window.h"
#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "editor/velmora_mono_editor.h"
#include "host/vst24/host_keys.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/catalogue.h"

#include <algorithm>
#include <cstdint>
#include <utility>

namespace velmora::vst24 {

namespace {

constexpr Qorvane::EditorFactory kEditor{createVelmoraMonoEditor, VelmoraMonoEditor::kWidth,
                                         VelmoraMonoEditor::kHeight};

std::int16_t narrow(int pixels)
{
    return static_cast<std::int16_t>(std::clamp(pixels, 0, INT16_MAX));
}

} // namespace

QORVST24EditorWrapper::QORVST24EditorWrapper(QORVST24EffectWrapper& effectWrapper) : effect(effectWrapper) {}

QORVST24EditorWrapper::~QORVST24EditorWrapper() = default;

Qorvane::QORViewWrapper& QORVST24EditorWrapper::getView()
{
    if (view == nullptr) {
        view = std::make_unique<Qorvane::QORViewWrapper>(effect.getMasterController(), kEditor);
        view->setWindowHost(this);
    }
    return *view;
}

ERect QORVST24EditorWrapper::windowRect()
{
    int width = 0;
    int height = 0;
    getView().getWindowSize(width, height);
    return {0, 0, narrow(height), narrow(width)};
}

bool QORVST24EditorWrapper::getRect(ERect** rect)
{
    handedOut = windowRect();
    *rect = &handedOut;
    return true;
}

bool QORVST24EditorWrapper::open(void* window)
{
    const auto parent = reinterpret_cast<std::uintptr_t>(window);
    if (parent == 0 || parent > UINT32_MAX) return false;
    if (!Qorvane::openToolkit()) return false;
    const ERect rect = windowRect();
    auto opened = Qorvane::openX11Window(static_cast<std::uint32_t>(parent), rect.right, rect.bottom);
    if (opened == nullptr) return false;
    close(); // a host that opens twice moves the editor to the new window
    return openIn(std::move(opened));
}

bool QORVST24EditorWrapper::openIn(std::unique_ptr<Qorvane::NativeWindow> window)
{
    effect.attachEditor(nullptr); // from here on this is the user interface's thread
    usedKeys.reset();
    size = windowRect();
    if (!getView().openIn(std::move(window))) return false;
    effect.attachEditor(view.get());
    for (ParameterId id = 0; id < kIdCount && view->isOpen(); ++id)
        view->setParameter(id, static_cast<double>(effect.getParameter(id)));
    return view->isOpen();
}

void QORVST24EditorWrapper::close()
{
    if (view == nullptr || !view->isOpen()) return;
    view->closeWindow();
    if (!view->isOpen()) effect.attachEditor(nullptr); // or the host has opened it again from inside
}

void QORVST24EditorWrapper::idle()
{
    if (view == nullptr || !view->isOpen() || view->isBusy()) return; // some hosts idle inside our calls
    effect.idleEditor();
    view->poll();
}

bool QORVST24EditorWrapper::onKeyDown(std::int32_t, std::int32_t virtualKey, std::int32_t modifiers)
{
    const bool used = view != nullptr && view->onHostKey(keyOfHost(virtualKey, modifiers));
    if (virtualKey >= 0 && virtualKey < kKeyCodes) usedKeys[static_cast<std::size_t>(virtualKey)] = used;
    return used;
}

// A key whose way down was used here is no news to the host on its way up, also if it closed the edit; every
// other is.
bool QORVST24EditorWrapper::onKeyUp(std::int32_t, std::int32_t virtualKey, std::int32_t)
{
    if (virtualKey < 0 || virtualKey >= kKeyCodes) return false;
    const bool used = usedKeys[static_cast<std::size_t>(virtualKey)];
    usedKeys[static_cast<std::size_t>(virtualKey)] = false;
    return used;
}

void QORVST24EditorWrapper::resizeView(int width, int height)
{
    if (narrow(width) == size.right && narrow(height) == size.bottom) return;
    size = {0, 0, narrow(height), narrow(width)};
    effect.sizeWindow(width, height);
}

} // namespace velmora::vst24
