#include "host/vst24/audio_effect.h"

namespace velmora::vst24 {

namespace {

AudioEffect& self(AEffect* record)
{
    return *static_cast<AudioEffect*>(record->object);
}

/// Modifiers come as a float; what is no small set of bits counts as none.
std::int32_t modifiersOf(float opt)
{
    return opt >= 0.0f && opt < 256.0f ? static_cast<std::int32_t>(opt) : 0;
}

} // namespace

AudioEffect::AudioEffect(HostCallback host, std::int32_t programs, std::int32_t parameters)
    : hostCallback(host)
{
    effect.dispatcher = &dispatcherEntry;
    effect.process = &processEntry;
    effect.setParameter = &setParameterEntry;
    effect.getParameter = &getParameterEntry;
    effect.processReplacing = &processReplacingEntry;
    effect.processDoubleReplacing = &processDoubleReplacingEntry;
    effect.numPrograms = programs;
    effect.numParams = parameters;
    effect.object = this;
}

void AudioEffect::setParameterAutomated(std::int32_t index, float value)
{
    setParameter(index, value);
    callHost(audioMasterAutomate, index, 0, nullptr, value);
}

std::intptr_t AudioEffect::callHost(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                                    float opt)
{
    return hostCallback != nullptr ? hostCallback(&effect, opcode, index, value, ptr, opt) : 0;
}

void AudioEffect::setFlag(std::int32_t flag, bool on)
{
    effect.flags = on ? effect.flags | flag : effect.flags & ~flag;
}

std::intptr_t AudioEffect::dispatch(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                                    float opt)
{
    auto* const text = static_cast<char*>(ptr);
    switch (opcode) {
    case effOpen:
        open();
        return 0;
    case effSetProgramName:
        if (text != nullptr) setProgramName(text);
        return 0;
    case effGetProgramName:
        if (text != nullptr) getProgramName(text);
        return 0;
    case effGetParamLabel:
        if (text != nullptr) getParameterLabel(index, text);
        return 0;
    case effGetParamDisplay:
        if (text != nullptr) getParameterDisplay(index, text);
        return 0;
    case effGetParamName:
        if (text != nullptr) getParameterName(index, text);
        return 0;
    case effSetSampleRate:
        setSampleRate(opt);
        return 0;
    case effSetBlockSize:
        setBlockSize(static_cast<std::int32_t>(value));
        return 0;
    case effMainsChanged:
        if (value == 0)
            suspend();
        else
            resume();
        return 0;
    case effGetChunk:
        return ptr != nullptr ? getChunk(static_cast<void**>(ptr), index != 0) : 0;
    case effSetChunk:
        return setChunk(ptr, value, index != 0);
    default:
        return dispatchEditor(opcode, index, value, ptr, opt);
    }
}

std::intptr_t AudioEffect::dispatchEditor(std::int32_t opcode, std::int32_t index, std::intptr_t value,
                                          void* ptr, float opt)
{
    if (editor == nullptr) return 0;
    switch (opcode) {
    case effEditGetRect:
        return ptr != nullptr && editor->getRect(static_cast<ERect**>(ptr)) ? 1 : 0;
    case effEditOpen:
        return editor->open(ptr) ? 1 : 0;
    case effEditClose:
        editor->close();
        return 0;
    case effEditIdle:
        editor->idle();
        return 0;
    case effEditKeyDown:
        return editor->onKeyDown(index, static_cast<std::int32_t>(value), modifiersOf(opt)) ? 1 : 0;
    case effEditKeyUp:
        return editor->onKeyUp(index, static_cast<std::int32_t>(value), modifiersOf(opt)) ? 1 : 0;
    case effSetEditKnobMode:
        return editor->setKnobMode(static_cast<std::int32_t>(value)) ? 1 : 0;
    default:
        return 0;
    }
}

std::intptr_t AudioEffect::dispatcherEntry(AEffect* record, std::int32_t opcode, std::int32_t index,
                                           std::intptr_t value, void* ptr, float opt)
{
    try {
        AudioEffect& effect = self(record);
        if (opcode == effClose) {
            effect.close();
            delete &effect;
            return 1;
        }
        return effect.dispatch(opcode, index, value, ptr, opt);
    } catch (...) {
        return 0; // out of memory, say; the host couldn't take an exception
    }
}

void AudioEffect::processEntry(AEffect*, float**, float**, std::int32_t) {}

void AudioEffect::setParameterEntry(AEffect* record, std::int32_t index, float value)
{
    try {
        self(record).setParameter(index, value);
    } catch (...) { // the editor, when it hears of the change; the value is set
    }
}

float AudioEffect::getParameterEntry(AEffect* record, std::int32_t index)
{
    return self(record).getParameter(index);
}

void AudioEffect::processReplacingEntry(AEffect* record, float** in, float** out, std::int32_t frames)
{
    self(record).processReplacing(in, out, frames);
}

void AudioEffect::processDoubleReplacingEntry(AEffect* record, double** in, double** out, std::int32_t frames)
{
    self(record).processDoubleReplacing(in, out, frames);
}

bool AudioEffectX::getSpeakerArrangement(VstSpeakerArrangement** in, VstSpeakerArrangement** out)
{
    if (in != nullptr) *in = nullptr;
    if (out != nullptr) *out = nullptr;
    return false;
}

VstTimeInfo* AudioEffectX::getTimeInfo(std::int32_t filter)
{
    return reinterpret_cast<VstTimeInfo*>(callHost(audioMasterGetTime, 0, filter));
}

std::intptr_t AudioEffectX::dispatch(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                                     float opt)
{
    auto* const text = static_cast<char*>(ptr);
    switch (opcode) {
    case effCanBeAutomated:
        return canParameterBeAutomated(index) ? 1 : 0;
    case effGetProgramNameIndexed:
        return text != nullptr && getProgramNameIndexed(static_cast<std::int32_t>(value), index, text) ? 1
                                                                                                       : 0;
    case effGetPlugCategory:
        return getPlugCategory();
    case effSetSpeakerArrangement:
        return setSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement*>(value),
                                     static_cast<VstSpeakerArrangement*>(ptr))
                   ? 1
                   : 0;
    case effGetSpeakerArrangement:
        return getSpeakerArrangement(reinterpret_cast<VstSpeakerArrangement**>(value),
                                     static_cast<VstSpeakerArrangement**>(ptr))
                   ? 1
                   : 0;
    case effGetEffectName:
        return text != nullptr && getEffectName(text) ? 1 : 0;
    case effGetVendorString:
        return text != nullptr && getVendorString(text) ? 1 : 0;
    case effGetProductString:
        return text != nullptr && getProductString(text) ? 1 : 0;
    case effGetVendorVersion:
        return getVendorVersion();
    case effGetParameterProperties:
        return ptr != nullptr && getParameterProperties(index, static_cast<VstParameterProperties*>(ptr)) ? 1
                                                                                                          : 0;
    case effGetVstVersion:
        return kVstVersion;
    default:
        return AudioEffect::dispatch(opcode, index, value, ptr, opt);
    }
}

} // namespace velmora::vst24
