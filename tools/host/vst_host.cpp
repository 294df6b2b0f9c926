#include "tools/host/vst_host.h"

#include <algorithm>
#include <cstring>

namespace velmora::host {

namespace {

thread_local VstHost* hostUnderConstruction = nullptr;

constexpr std::int32_t kTransportPlaying = 1 << 1;
constexpr std::intptr_t kProcessLevelOffline = 4;

void copyText(void* target, const char* text)
{
    if (target) std::strcpy(static_cast<char*>(target), text);
}

} // namespace

VstHost::Construction::Construction(VstHost& host)
{
    hostUnderConstruction = &host;
}

VstHost::Construction::~Construction()
{
    hostUnderConstruction = nullptr;
}

VstHost::VstHost() : events_(kKeptEvents)
{
    time.flags = kTransportPlaying;
}

void VstHost::attach(vst24::AEffect& effect) noexcept
{
    effect.hostWords[0] = reinterpret_cast<std::intptr_t>(this);
}

std::intptr_t VstHost::callback(vst24::AEffect* effect, std::int32_t opcode, std::int32_t index,
                                std::intptr_t value, void* ptr, float opt) noexcept
{
    VstHost* host = effect ? reinterpret_cast<VstHost*>(effect->hostWords[0]) : nullptr;
    if (!host) host = hostUnderConstruction;
    return host ? host->answer(opcode, index, value, ptr, opt) : 0;
}

std::intptr_t VstHost::answer(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                              float opt) noexcept
{
    switch (opcode) {
    case vst24::audioMasterVersion:
        return vstVersion;
    case vst24::audioMasterGetTime:
        return reinterpret_cast<std::intptr_t>(&time);
    case vst24::audioMasterGetSampleRate:
        return static_cast<std::intptr_t>(sampleRate);
    case vst24::audioMasterGetBlockSize:
        return blockSize;
    case vst24::audioMasterGetCurrentProcessLevel:
        return kProcessLevelOffline;
    case vst24::audioMasterGetVendorString:
        copyText(ptr, "Qorvane");
        return 1;
    case vst24::audioMasterGetProductString:
        copyText(ptr, "QOR Velmora host");
        return 1;
    case vst24::audioMasterGetVendorVersion:
        return 1200;
    case vst24::audioMasterAutomate:
    case vst24::audioMasterBeginEdit:
    case vst24::audioMasterEndEdit:
    case vst24::audioMasterSizeWindow:
    case vst24::audioMasterUpdateDisplay:
    case vst24::audioMasterIOChanged:
        keep({opcode, index, value, opt});
        return 1;
    default:
        return 0;
    }
}

void VstHost::keep(const HostEvent& event) noexcept
{
    const std::size_t slot = eventCount_.fetch_add(1);
    if (slot < events_.size()) events_[slot] = event;
}

std::span<const HostEvent> VstHost::events() const
{
    return {events_.data(), std::min(eventCount_.load(), events_.size())};
}

std::size_t VstHost::count(vst24::HostOpcode opcode) const
{
    return static_cast<std::size_t>(
        std::ranges::count(events(), static_cast<std::int32_t>(opcode), &HostEvent::opcode));
}

} // namespace velmora::host
