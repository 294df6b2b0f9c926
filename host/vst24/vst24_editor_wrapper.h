#pragma once

#include "editor/engine/toolkit/wrapper/editor_factory.h"
#include "host/vst24/audio_effect.h"

#include <bitset>
#include <memory>

namespace velmora::Qorvane {
class NativeWindow;
class QORViewWrapper;
} // namespace velmora::Qorvane

namespace velmora::vst24 {

class QORVST24EffectWrapper;

/// The editor as the host sees it. Nothing of it exists until the host asks for its size or opens it.
class QORVST24EditorWrapper : public AEffEditor, private Qorvane::WindowHost {
public:
    explicit QORVST24EditorWrapper(QORVST24EffectWrapper& effectWrapper);
    ~QORVST24EditorWrapper() override;

    bool getRect(ERect** rect) override;
    /// @param window id of the X11 window that receives the editor @return false if there is no display, no
    /// such window, or no toolkit on this machine; a window that is open stays open then.
    bool open(void* window) override;
    void close() override;
    void idle() override;
    bool onKeyDown(std::int32_t character, std::int32_t virtualKey, std::int32_t modifiers) override;
    bool onKeyUp(std::int32_t character, std::int32_t virtualKey, std::int32_t modifiers) override;
    bool setKnobMode(std::int32_t) override { return false; } // knobs turn by straight moves only

    /// Shows the editor in a window that is there already.
    bool openIn(std::unique_ptr<Qorvane::NativeWindow> window);
    /// The engine behind the window; made at the first call.
    Qorvane::QORViewWrapper& getView();

private:
    void windowResized(int width, int height) override { resizeView(width, height); }
    /// The editor has another size; the host is told once.
    void resizeView(int width, int height);

    ERect windowRect();

    static constexpr std::int32_t kKeyCodes = 256; ///< virtual codes of hosts

    QORVST24EffectWrapper& effect;
    std::unique_ptr<Qorvane::QORViewWrapper> view;
    ERect handedOut{};               // what `getRect` has pointed the host at
    ERect size{};                    // what the host believes of the open window
    std::bitset<kKeyCodes> usedKeys; // down, and not the host's
};

} // namespace velmora::vst24
