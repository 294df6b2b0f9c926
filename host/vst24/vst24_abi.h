#pragma once

#include <cstddef>
#include <cstdint>

/// The binary interface that a 64-bit VST 2.4 host and plug-in exchange, as plain records and numbers.
namespace velmora::vst24 {

struct AEffect;

using HostCallback = std::intptr_t (*)(AEffect*, std::int32_t opcode, std::int32_t index, std::intptr_t value,
                                       void* ptr, float opt);
using DispatcherProc = std::intptr_t (*)(AEffect*, std::int32_t opcode, std::int32_t index,
                                         std::intptr_t value, void* ptr, float opt);
using ProcessProc = void (*)(AEffect*, float** in, float** out, std::int32_t frames);
using ProcessDoubleProc = void (*)(AEffect*, double** in, double** out, std::int32_t frames);
using SetParameterProc = void (*)(AEffect*, std::int32_t index, float value);
using GetParameterProc = float (*)(AEffect*, std::int32_t index);
using EntryProc = AEffect* (*)(HostCallback);

inline constexpr std::int32_t kEffectMagic = 0x56737450; // 'VstP'

struct AEffect {
    std::int32_t magic = kEffectMagic;
    DispatcherProc dispatcher = nullptr;
    ProcessProc process = nullptr; ///< the accumulating form
    SetParameterProc setParameter = nullptr;
    GetParameterProc getParameter = nullptr;
    std::int32_t numPrograms = 0;
    std::int32_t numParams = 0;
    std::int32_t numInputs = 0;
    std::int32_t numOutputs = 0;
    std::int32_t flags = 0;
    std::intptr_t hostWords[2] = {0, 0}; ///< the host's own
    std::int32_t initialDelay = 0;       ///< samples
    std::int32_t realQualities = 0;
    std::int32_t offQualities = 0;
    float ioRatio = 1.0f;
    void* object = nullptr; ///< the plug-in's own
    void* user = nullptr;
    std::int32_t uniqueID = 0;
    std::int32_t version = 0;
    ProcessProc processReplacing = nullptr;
    ProcessDoubleProc processDoubleReplacing = nullptr;
    char future[56] = {};
};
static_assert(sizeof(AEffect) == 192);
static_assert(offsetof(AEffect, dispatcher) == 8 && offsetof(AEffect, getParameter) == 32);
static_assert(offsetof(AEffect, numPrograms) == 40 && offsetof(AEffect, flags) == 56);
static_assert(offsetof(AEffect, hostWords) == 64 && offsetof(AEffect, initialDelay) == 80);
static_assert(offsetof(AEffect, ioRatio) == 92 && offsetof(AEffect, object) == 96);
static_assert(offsetof(AEffect, uniqueID) == 112 && offsetof(AEffect, version) == 116);
static_assert(offsetof(AEffect, processReplacing) == 120 && offsetof(AEffect, processDoubleReplacing) == 128);

enum EffectFlags : std::int32_t {
    effFlagsHasEditor = 1,
    effFlagsCanReplacing = 1 << 4,
    effFlagsProgramChunks = 1 << 5,
    effFlagsIsSynth = 1 << 8,
    effFlagsNoSoundInStop = 1 << 9,
    effFlagsCanDoubleReplacing = 1 << 12,
};

/// Host to plug-in.
enum EffectOpcode : std::int32_t {
    effOpen = 0,
    effClose = 1,
    effSetProgram = 2,
    effGetProgram = 3,
    effSetProgramName = 4,
    effGetProgramName = 5,
    effGetParamLabel = 6,
    effGetParamDisplay = 7,
    effGetParamName = 8,
    effSetSampleRate = 10,
    effSetBlockSize = 11,
    effMainsChanged = 12,
    effEditGetRect = 13,
    effEditOpen = 14,
    effEditClose = 15,
    effEditIdle = 19,
    effIdentify = 22,
    effGetChunk = 23,
    effSetChunk = 24,
    effProcessEvents = 25,
    effCanBeAutomated = 26,
    effString2Parameter = 27,
    effGetProgramNameIndexed = 29,
    effGetInputProperties = 33,
    effGetOutputProperties = 34,
    effGetPlugCategory = 35,
    effSetSpeakerArrangement = 42,
    effSetBypass = 44,
    effGetEffectName = 45,
    effGetVendorString = 47,
    effGetProductString = 48,
    effGetVendorVersion = 49,
    effVendorSpecific = 50,
    effCanDo = 51,
    effGetTailSize = 52,
    effGetParameterProperties = 56,
    effGetVstVersion = 58,
    effEditKeyDown = 59,
    effEditKeyUp = 60,
    effSetEditKnobMode = 61,
    effGetSpeakerArrangement = 69,
    effStartProcess = 71,
    effStopProcess = 72,
    effSetProcessPrecision = 77,
};

/// Plug-in to host.
enum HostOpcode : std::int32_t {
    audioMasterAutomate = 0,
    audioMasterVersion = 1,
    audioMasterGetTime = 7,
    audioMasterIOChanged = 13,
    audioMasterSizeWindow = 15,
    audioMasterGetSampleRate = 16,
    audioMasterGetBlockSize = 17,
    audioMasterGetCurrentProcessLevel = 23,
    audioMasterGetVendorString = 32,
    audioMasterGetProductString = 33,
    audioMasterGetVendorVersion = 34,
    audioMasterCanDo = 37,
    audioMasterUpdateDisplay = 42,
    audioMasterBeginEdit = 43,
    audioMasterEndEdit = 44,
};

enum PlugCategory : std::int32_t { kPlugCategMastering = 4 };
enum ProcessPrecision : std::int32_t { kVstProcessPrecision32 = 0, kVstProcessPrecision64 = 1 };

inline constexpr std::int32_t kVstVersion = 2400;

/// Sizes of the text buffers that hosts hand in. For parameter texts every host hands in at least 64 bytes.
inline constexpr std::size_t kMaxProgramNameLen = 24;
inline constexpr std::size_t kMaxParamTextLen = 64;
inline constexpr std::size_t kMaxEffectNameLen = 32;
inline constexpr std::size_t kMaxVendorTextLen = 64;

struct ERect {
    std::int16_t top, left, bottom, right;
};

struct VstSpeakerArrangement {
    std::int32_t type;
    std::int32_t numChannels;
    char speakers[8][112];
};

struct VstParameterProperties {
    float stepFloat;
    float smallStepFloat;
    float largeStepFloat;
    char label[64];
    std::int32_t flags;
    std::int32_t minInteger;
    std::int32_t maxInteger;
    std::int32_t stepInteger;
    std::int32_t largeStepInteger;
    char shortLabel[8];
    std::int16_t displayIndex;
    std::int16_t category;
    std::int16_t numParametersInCategory;
    std::int16_t reserved;
    char categoryLabel[24];
    char future[16];
};
static_assert(sizeof(VstParameterProperties) == 152);

enum ParameterPropertyFlags : std::int32_t {
    kVstParameterIsSwitch = 1,
    kVstParameterUsesFloatStep = 4,
};

struct VstTimeInfo {
    double samplePos, sampleRate, nanoSeconds, ppqPos, tempo, barStartPos, cycleStartPos, cycleEndPos;
    std::int32_t timeSigNumerator, timeSigDenominator, smpteOffset, smpteFrameRate, samplesToNextClock, flags;
};
static_assert(sizeof(VstTimeInfo) == 88);

} // namespace velmora::vst24
