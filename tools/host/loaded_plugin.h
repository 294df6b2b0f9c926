#pragma once

#include "tools/host/plugin_library.h"
#include "tools/host/vst_host.h"

#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace velmora::host {

/// How an instance is to run.
struct RunSettings {
    double sampleRate = 44100.0;  ///< Hz
    std::int32_t blockSize = 512; ///< frames, the most that one process call hands over
    bool doublePrecision = false;
};

/// One instance of a plug-in with a host of its own, closed when this goes. Pins: main input on 0 and 1, side
/// chain on 2 and 3, two outputs. Nothing but the constructor throws; `process` and the parameter calls
/// neither allocate nor lock.
class LoadedPlugin {
public:
    /// Builds the instance; nothing is opened yet. Throws HostError if the plug-in refuses.
    explicit LoadedPlugin(const PluginLibrary& library);
    ~LoadedPlugin();
    LoadedPlugin(const LoadedPlugin&) = delete;
    LoadedPlugin& operator=(const LoadedPlugin&) = delete;

    /// Rate, block size and precision, then open and resume: the order of most hosts.
    void start(const RunSettings& settings);
    void open();
    void setSampleRate(double rate);
    void setBlockSize(std::int32_t frames);
    void setDoublePrecision(bool on);
    void suspend();
    void resume();

    void setParameter(std::int32_t id, float value) noexcept { effect_->setParameter(effect_, id, value); }
    float parameter(std::int32_t id) const noexcept { return effect_->getParameter(effect_, id); }
    std::string parameterName(std::int32_t id) const;
    std::string parameterLabel(std::int32_t id) const;
    std::string parameterDisplay(std::int32_t id) const;

    /// A copy of the state chunk, empty if the plug-in gives none.
    std::vector<std::uint8_t> chunk() const;
    /// @return the plug-in's answer.
    std::intptr_t setChunk(std::span<const std::uint8_t> data);

    /// Runs one block and moves the host's time on. @param in four pointers, @param out two.
    void process(float** in, float** out, std::int32_t frames) noexcept;
    void process(double** in, double** out, std::int32_t frames) noexcept;

    /// Any other call.
    std::intptr_t dispatch(vst24::EffectOpcode opcode, std::int32_t index = 0, std::intptr_t value = 0,
                           void* ptr = nullptr, float opt = 0.0f) const noexcept;
    /// The text with which the plug-in answers an opcode.
    std::string text(vst24::EffectOpcode opcode, std::int32_t index = 0) const;

    vst24::AEffect& effect() { return *effect_; }
    const vst24::AEffect& effect() const { return *effect_; }
    VstHost& host() { return host_; }

private:
    VstHost host_;
    vst24::AEffect* effect_ = nullptr;
};

} // namespace velmora::host
