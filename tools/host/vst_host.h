#pragma once

#include "host/vst24/vst24_abi.h"

#include <atomic>
#include <cstddef>
#include <span>
#include <vector>

namespace velmora::host {

/// One call that a plug-in made to its host.
struct HostEvent {
    std::int32_t opcode = 0;
    std::int32_t index = 0;
    std::intptr_t value = 0;
    float opt = 0.0f;
};

/// What one plug-in instance sees as its host: answers its questions and keeps what it reports. Calls may
/// come from any thread and neither allocate nor lock.
class VstHost {
public:
    static constexpr std::size_t kKeptEvents = 8192;

    /// The process-wide entry for plug-ins; finds the instance's host.
    static std::intptr_t callback(vst24::AEffect* effect, std::int32_t opcode, std::int32_t index,
                                  std::intptr_t value, void* ptr, float opt) noexcept;

    /// Answers calls that come while the plug-in's entry function runs, before there is a record to look at.
    /// One at a time per thread.
    class Construction {
    public:
        explicit Construction(VstHost& host);
        ~Construction();
        Construction(const Construction&) = delete;
        Construction& operator=(const Construction&) = delete;
    };

    VstHost();
    /// From now on calls with this record come here.
    void attach(vst24::AEffect& effect) noexcept;

    /// The reports (automation, edits, size, display updates) since the last clear, in order; the oldest
    /// `kKeptEvents` of them. Read them while no other thread is inside the plug-in.
    std::span<const HostEvent> events() const;
    void clearEvents() { eventCount_ = 0; }
    /// How many reports with this opcode are kept.
    std::size_t count(vst24::HostOpcode opcode) const;

    double sampleRate = 44100.0;
    std::int32_t blockSize = 512;
    std::intptr_t vstVersion = vst24::kVstVersion; ///< 0 makes a plug-in refuse to be built
    vst24::VstTimeInfo time{};                     ///< moved on by the instance with every block

private:
    std::intptr_t answer(std::int32_t opcode, std::int32_t index, std::intptr_t value, void* ptr,
                         float opt) noexcept;
    void keep(const HostEvent& event) noexcept;

    std::vector<HostEvent> events_;
    std::atomic<std::size_t> eventCount_{0};
};

} // namespace velmora::host
