#pragma once

#include "host/vst24/vst24_abi.h"

#include <cstdint>

namespace velmora::vst24 {

/// The plug-in side of an editor window.
class AEffEditor {
public:
    virtual ~AEffEditor() = default;
    /// @return false if there is no rectangle.
    virtual bool getRect(ERect** rect) = 0;
    virtual bool open(void* window) = 0;
    virtual void close() = 0;
    virtual void idle() = 0;
    virtual bool onKeyDown(std::int32_t character, std::int32_t virtualKey, std::int32_t modifiers) = 0;
    virtual bool onKeyUp(std::int32_t character, std::int32_t virtualKey, std::int32_t modifiers) = 0;
    virtual bool setKnobMode(std::int32_t mode) = 0;
};

/// Base of a VST 2.4 effect: owns the record that the host sees and maps its calls to virtual operations.
/// Every opcode that no operation serves answers 0. Nothing throws back into the host.
class AudioEffect {
public:
    AudioEffect(HostCallback host, std::int32_t programs, std::int32_t parameters);
    virtual ~AudioEffect() = default;
    AudioEffect(const AudioEffect&) = delete;
    AudioEffect& operator=(const AudioEffect&) = delete;

    AEffect* getAeffect() { return &effect; }

    virtual void open() {}
    virtual void close() {}
    virtual void suspend() {}
    virtual void resume() {}

    virtual void setParameter(std::int32_t index, float value) = 0;
    virtual float getParameter(std::int32_t index) = 0;
    /// Sets the parameter and tells the host, which records it as automation.
    void setParameterAutomated(std::int32_t index, float value);

    virtual void setProgramName(const char*) {}
    virtual void getProgramName(char* text) { *text = '\0'; } ///< room for kMaxProgramNameLen bytes
    virtual void getParameterLabel(std::int32_t, char* text) { *text = '\0'; }
    virtual void getParameterDisplay(std::int32_t, char* text) { *text = '\0'; }
    virtual void getParameterName(std::int32_t, char* text) { *text = '\0'; }

    virtual void processReplacing(float** in, float** out, std::int32_t frames) = 0;
    virtual void processDoubleReplacing(double** in, double** out, std::int32_t frames) = 0;
    virtual void setSampleRate(float hz) { sampleRate = hz; }
    virtual void setBlockSize(std::int32_t frames) { blockSize = frames; }

    /// @return size in bytes; the data stay the effect's.
    virtual std::int32_t getChunk(void**, bool /*isPreset*/) { return 0; }
    virtual std::intptr_t setChunk(void*, std::intptr_t /*size*/, bool /*isPreset*/) { return 0; }

protected:
    virtual std::intptr_t dispatch(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                                   float opt);
    std::intptr_t callHost(std::int32_t opcode, std::int32_t index = 0, std::intptr_t value = 0,
                           void* ptr = nullptr, float opt = 0.0f);
    void setFlag(std::int32_t flag, bool on);
    void setEditor(AEffEditor* newEditor) { editor = newEditor; } ///< not owned

    AEffect effect;
    float sampleRate = 44100.0f;
    std::int32_t blockSize = 1024;

private:
    static std::intptr_t dispatcherEntry(AEffect*, std::int32_t, std::int32_t, std::intptr_t, void*, float);
    static void processEntry(AEffect*, float**, float**, std::int32_t);
    static void setParameterEntry(AEffect*, std::int32_t, float);
    static float getParameterEntry(AEffect*, std::int32_t);
    static void processReplacingEntry(AEffect*, float**, float**, std::int32_t);
    static void processDoubleReplacingEntry(AEffect*, double**, double**, std::int32_t);

    std::intptr_t dispatchEditor(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                                 float opt);

    HostCallback hostCallback;
    AEffEditor* editor = nullptr;
};

/// What version 2 of the interface adds.
class AudioEffectX : public AudioEffect {
public:
    using AudioEffect::AudioEffect;

    virtual bool canParameterBeAutomated(std::int32_t) { return true; }
    virtual bool getProgramNameIndexed(std::int32_t /*category*/, std::int32_t /*index*/, char*)
    {
        return false;
    }
    virtual std::int32_t getPlugCategory() { return 0; }
    virtual bool setSpeakerArrangement(VstSpeakerArrangement*, VstSpeakerArrangement*) { return false; }
    virtual bool getSpeakerArrangement(VstSpeakerArrangement** in, VstSpeakerArrangement** out);
    virtual bool getEffectName(char*) { return false; }    ///< room for kMaxEffectNameLen bytes
    virtual bool getVendorString(char*) { return false; }  ///< room for kMaxVendorTextLen bytes
    virtual bool getProductString(char*) { return false; } ///< room for kMaxVendorTextLen bytes
    virtual std::int32_t getVendorVersion() { return 0; }
    virtual bool getParameterProperties(std::int32_t, VstParameterProperties*) { return false; }

    void beginEdit(std::int32_t index) { callHost(audioMasterBeginEdit, index); }
    void endEdit(std::int32_t index) { callHost(audioMasterEndEdit, index); }
    /// Asks the host to follow a new size of the editor, in pixels. @return whether it did.
    bool sizeWindow(std::int32_t width, std::int32_t height)
    {
        return callHost(audioMasterSizeWindow, width, height) != 0;
    }
    /// @return the host's record, valid until the next call, or null.
    VstTimeInfo* getTimeInfo(std::int32_t filter);

protected:
    void noTail(bool on) { setFlag(effFlagsNoSoundInStop, on); }
    void setInitialDelay(std::int32_t samples) { effect.initialDelay = samples; }
    std::intptr_t dispatch(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                           float opt) override;
};

} // namespace velmora::vst24
