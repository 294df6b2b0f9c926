#include "tools/shot/shot.h"

#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/window/native_window.h"
#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "host/vst24/vst24_editor_wrapper.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "presets/preset_file.h"
#include "presets/preset_library.h"
#include "presets/preset_store.h"
#include "tools/common/factory_lookup.h"
#include "tools/common/user_error.h"

#include <chrono>
#include <cmath>
#include <cstring>
#include <memory>
#include <thread>

namespace velmora::shot {

namespace {

using namespace vst24;

constexpr int kSettlingIdles = 12; // a change of the rack is laid out some ticks later
constexpr std::chrono::milliseconds kIdlePause{17};

std::intptr_t answerNothing(AEffect*, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
{
    return opcode == audioMasterVersion ? kVstVersion : 0;
}

Preset findPreset(const std::string& name)
{
    if (!name.ends_with(kPresetExtension)) return makeFactoryPreset(findFactoryPreset(name));
    Preset preset = makeFactoryPreset(0);
    const PresetFileStatus status = loadPresetFile(name, 0, &preset);
    if (status != PresetFileStatus::Loaded)
        throw UserError(name + " is no preset: " + std::string(presetFileStatusText(status)));
    return preset;
}

Picture copyOf(const Qorvane::PixelBuffer& buffer)
{
    Picture picture{buffer.width, buffer.height, {}};
    const auto width = static_cast<std::size_t>(buffer.width);
    picture.pixels.resize(width * static_cast<std::size_t>(buffer.height));
    for (int y = 0; y < buffer.height; ++y)
        std::memcpy(&picture.pixels[static_cast<std::size_t>(y) * width],
                    buffer.bytes + static_cast<std::ptrdiff_t>(y) * buffer.stride,
                    width * sizeof(std::uint32_t));
    return picture;
}

} // namespace

Picture takeShot(const ShotRequest& request)
{
    if (!Qorvane::openToolkit()) throw UserError("the libraries Cairo and Pango can't be opened");
    QORVST24EffectWrapper effect(answerNothing);
    if (!request.preset.empty()) {
        const Preset preset = findPreset(request.preset);
        PresetStore& store = *effect.getMasterController().store();
        store.applyPreset(preset);
        store.setCurrentName(preset.title());
    }

    QORVST24EditorWrapper& editor = effect.getEditorWrapper();
    Qorvane::QORViewWrapper& view = editor.getView();
    view.setScreenScale(request.scale);
    int width = 0;
    int height = 0;
    view.getWindowSize(width, height);
    if (!editor.openIn(Qorvane::openImageWindow(width, height))) throw UserError("the editor doesn't open");
    for (int i = 0; i < kSettlingIdles; ++i) {
        editor.idle();
        std::this_thread::sleep_for(kIdlePause);
    }
    view.redraw();
    return copyOf(view.pixels());
}

} // namespace velmora::shot
