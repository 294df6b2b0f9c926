#include "tools/host/loaded_plugin.h"

#include <array>

namespace velmora::host {

LoadedPlugin::LoadedPlugin(const PluginLibrary& library)
{
    {
        const VstHost::Construction construction(host_);
        effect_ = library.entry()(&VstHost::callback);
    }
    if (!effect_) throw HostError(library.path().string() + " refuses to make an instance");
    if (effect_->magic != vst24::kEffectMagic)
        throw HostError(library.path().string() + " gives no valid VST 2.4 instance");
    host_.attach(*effect_);
}

LoadedPlugin::~LoadedPlugin()
{
    dispatch(vst24::effClose);
}

void LoadedPlugin::start(const RunSettings& settings)
{
    setSampleRate(settings.sampleRate);
    setBlockSize(settings.blockSize);
    setDoublePrecision(settings.doublePrecision);
    open();
    resume();
}

void LoadedPlugin::open()
{
    dispatch(vst24::effOpen);
}

void LoadedPlugin::setSampleRate(double rate)
{
    host_.sampleRate = rate;
    host_.time.sampleRate = rate;
    dispatch(vst24::effSetSampleRate, 0, 0, nullptr, static_cast<float>(rate));
}

void LoadedPlugin::setBlockSize(std::int32_t frames)
{
    host_.blockSize = frames;
    dispatch(vst24::effSetBlockSize, 0, frames);
}

void LoadedPlugin::setDoublePrecision(bool on)
{
    dispatch(vst24::effSetProcessPrecision, 0,
             on ? vst24::kVstProcessPrecision64 : vst24::kVstProcessPrecision32);
}

void LoadedPlugin::suspend()
{
    dispatch(vst24::effMainsChanged, 0, 0);
}

void LoadedPlugin::resume()
{
    dispatch(vst24::effMainsChanged, 0, 1);
}

std::string LoadedPlugin::parameterName(std::int32_t id) const
{
    return text(vst24::effGetParamName, id);
}

std::string LoadedPlugin::parameterLabel(std::int32_t id) const
{
    return text(vst24::effGetParamLabel, id);
}

std::string LoadedPlugin::parameterDisplay(std::int32_t id) const
{
    return text(vst24::effGetParamDisplay, id);
}

std::vector<std::uint8_t> LoadedPlugin::chunk() const
{
    void* data = nullptr;
    const std::intptr_t size = dispatch(vst24::effGetChunk, 0, 0, &data);
    if (size <= 0 || !data) return {};
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    return {bytes, bytes + size};
}

std::intptr_t LoadedPlugin::setChunk(std::span<const std::uint8_t> data)
{
    // The interface takes a mutable pointer, though a plug-in has no business writing there.
    std::vector<std::uint8_t> copy(data.begin(), data.end());
    return dispatch(vst24::effSetChunk, 0, static_cast<std::intptr_t>(copy.size()), copy.data());
}

void LoadedPlugin::process(float** in, float** out, std::int32_t frames) noexcept
{
    effect_->processReplacing(effect_, in, out, frames);
    host_.time.samplePos += frames;
}

void LoadedPlugin::process(double** in, double** out, std::int32_t frames) noexcept
{
    effect_->processDoubleReplacing(effect_, in, out, frames);
    host_.time.samplePos += frames;
}

std::intptr_t LoadedPlugin::dispatch(vst24::EffectOpcode opcode, std::int32_t index, std::intptr_t value,
                                     void* ptr, float opt) const noexcept
{
    return effect_->dispatcher(effect_, opcode, index, value, ptr, opt);
}

std::string LoadedPlugin::text(vst24::EffectOpcode opcode, std::int32_t index) const
{
    std::array<char, 256> buffer{};
    dispatch(opcode, index, 0, buffer.data());
    buffer.back() = '\0';
    return buffer.data();
}

} // namespace velmora::host
