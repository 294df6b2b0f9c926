#pragma once

#include "host/vst24/pending_ids.h"
#include "params/parameter_ids.h"

#include <array>
#include <atomic>

namespace velmora {
class QORBaseAudioProcessor;
}

namespace velmora::vst24 {

/// All 819 parameter values between host, editor and engine. Any thread may post; the audio thread hands what
/// has changed to the engine at the head of each block, in rising id order.
class ParameterMailbox {
public:
    /// Start value of an id; nothing becomes pending.
    void init(ParameterId id, double value);

    /// A change from outside. @range id 0..818, value 0..1
    /// @return false if it changes neither the host's view nor the exact value.
    bool post(ParameterId id, float value);

    /// A change in reaction to another: the host's view stays as it is.
    bool postExact(ParameterId id, double value);

    /// Brings the exact value back to what was posted last, whatever a reaction or the post of another thread
    /// has made of it meanwhile. @return that value.
    double settle(ParameterId id);

    /// Hands an insert's Side Chain, Monitor and own parameters to the engine again, whatever their values,
    /// so that the defaults of a swap can't outlive a stored value that equals the old one.
    void repostInsert(const RoleWindow& window);

    float value(ParameterId id) const { return values[index(id)].load(std::memory_order_relaxed); }
    double exactValue(ParameterId id) const { return exactValues[index(id)].load(std::memory_order_relaxed); }

    /// Audio thread: passes every pending change to the engine.
    void flush(QORBaseAudioProcessor& engine);

    /// The editor has been shown the host's view: where a reaction has moved the exact value away from that,
    /// it still has to see it.
    void remindEditor();

    /// User interface: calls visit(id) for every id that the editor hasn't seen.
    template <typename Visit>
    void takeForEditor(Visit visit)
    {
        if (pendingForEditor.any()) pendingForEditor.take().forEach(visit);
    }

private:
    static std::size_t index(ParameterId id) { return static_cast<std::size_t>(id); }
    void markBoth(ParameterId id);

    std::array<std::atomic<float>, kIdCount> values{};       // the host's view
    std::array<std::atomic<double>, kIdCount> exactValues{}; // what the engine gets
    PendingIds pendingForEngine;
    PendingIds pendingForEditor;
};

} // namespace velmora::vst24
