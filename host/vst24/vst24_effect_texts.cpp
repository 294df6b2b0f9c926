// What the effect answers to the host's questions of names, texts and arrangements.

#include "host/vst24/vst24_effect_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/catalogue.h"
#include "presets/preset_store.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>
#include <utility>

namespace velmora::vst24 {

namespace {

constexpr std::string_view kEffectName = "QOR Velmora Mono";
constexpr std::string_view kVendor = "Qorvane";
constexpr std::string_view kProduct = "QOR Velmora Mono - channel strip emulation";

constexpr int kDefaultSteps = 1000;
constexpr std::size_t kShortNameLength = 7;
constexpr std::int32_t kListEntries = 512;

// Channel counts of main input and output that the strip serves.
constexpr std::array<std::pair<int, int>, 4> kArrangements{{{1, 1}, {1, 2}, {2, 2}, {4, 2}}};

/// Copies a text into a host's buffer of `room` bytes, cut to fit, zero-terminated.
bool copyText(std::string_view text, char* out, std::size_t room)
{
    const std::size_t length = std::min(text.size(), room - 1);
    std::memcpy(out, text.data(), length);
    out[length] = '\0';
    return true;
}

} // namespace

void QORVST24EffectWrapper::setProgramName(const char* name)
{
    const auto claimed = claimReactions();
    masterController->store()->setCurrentName(name);
    tellEditor(kRefreshCommand, 0.0);
}

void QORVST24EffectWrapper::getProgramName(char* text)
{
    const auto claimed = claimReactions();
    copyText(masterController->store()->currentName(), text, kMaxProgramNameLen);
}

bool QORVST24EffectWrapper::getProgramNameIndexed(std::int32_t, std::int32_t index, char* text)
{
    const bool inList = index >= 0 && index < kListEntries;
    return copyText(inList ? masterController->store()->listEntryName(index) : "", text, kMaxProgramNameLen);
}

void QORVST24EffectWrapper::getParameterLabel(std::int32_t id, char* text)
{
    copyText(parameterLabel(id), text, kMaxParamTextLen);
}

void QORVST24EffectWrapper::getParameterDisplay(std::int32_t id, char* text)
{
    const bool known = id >= 0 && id < kIdCount;
    copyText(known ? parameterDisplay(id, static_cast<double>(mailbox.value(id))) : "", text,
             kMaxParamTextLen);
}

void QORVST24EffectWrapper::getParameterName(std::int32_t id, char* text)
{
    copyText(parameterName(id), text, kMaxParamTextLen);
}

bool QORVST24EffectWrapper::canParameterBeAutomated(std::int32_t id)
{
    return isAutomatable(id);
}

bool QORVST24EffectWrapper::getParameterProperties(std::int32_t id, VstParameterProperties* properties)
{
    const int steps = parameterSteps(id) < 1 ? kDefaultSteps : parameterSteps(id);
    const float step = 1.0f / static_cast<float>(steps);
    *properties = {};
    properties->flags = kVstParameterUsesFloatStep | (steps == 1 ? kVstParameterIsSwitch : 0);
    properties->stepFloat = properties->smallStepFloat = properties->largeStepFloat = step;
    const std::string name = parameterShortName(id);
    copyText(name, properties->label, kShortNameLength + 1);
    copyText(name, properties->shortLabel, sizeof properties->shortLabel);
    return true;
}

bool QORVST24EffectWrapper::setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out)
{
    if (in == nullptr || out == nullptr) return false;
    const std::pair<int, int> wanted{in->numChannels, out->numChannels};
    return std::find(kArrangements.begin(), kArrangements.end(), wanted) != kArrangements.end();
}

bool QORVST24EffectWrapper::getEffectName(char* text)
{
    return copyText(kEffectName, text, kMaxEffectNameLen);
}

bool QORVST24EffectWrapper::getVendorString(char* text)
{
    return copyText(kVendor, text, kMaxVendorTextLen);
}

bool QORVST24EffectWrapper::getProductString(char* text)
{
    return copyText(kProduct, text, kMaxVendorTextLen);
}

} // namespace velmora::vst24
