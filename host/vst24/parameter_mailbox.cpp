#include "host/vst24/parameter_mailbox.h"

#include "host/master/base_audio_processor.h"

namespace velmora::vst24 {

void ParameterMailbox::init(ParameterId id, double value)
{
    values[index(id)].store(static_cast<float>(value), std::memory_order_relaxed);
    exactValues[index(id)].store(value, std::memory_order_relaxed);
}

bool ParameterMailbox::post(ParameterId id, float newValue)
{
    // A reaction may have moved the exact value away from what the host believes.
    if (newValue == value(id) && newValue == static_cast<float>(exactValue(id))) return false;
    values[index(id)].store(newValue); // in this order, for `settle`
    exactValues[index(id)].store(static_cast<double>(newValue));
    markBoth(id);
    return true;
}

double ParameterMailbox::settle(ParameterId id)
{
    for (;;) {
        const float posted = values[index(id)].load();
        if (posted != static_cast<float>(exactValues[index(id)].load())) {
            exactValues[index(id)].store(static_cast<double>(posted));
            markBoth(id);
        }
        // Another post between the two reads may have been overwritten just now.
        if (posted == values[index(id)].load()) return static_cast<double>(posted);
    }
}

bool ParameterMailbox::postExact(ParameterId id, double newValue)
{
    if (newValue == exactValue(id)) return false;
    exactValues[index(id)].store(newValue, std::memory_order_relaxed);
    markBoth(id);
    return true;
}

void ParameterMailbox::repostInsert(const RoleWindow& window)
{
    pendingForEngine.mark(window.windowBase + kSideChainOffset);
    pendingForEngine.mark(window.windowBase + kMonitorOffset);
    for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
        pendingForEngine.mark(window.windowBase + offset);
}

void ParameterMailbox::remindEditor()
{
    for (ParameterId id = 0; id < kIdCount; ++id)
        if (static_cast<float>(exactValue(id)) != value(id)) pendingForEditor.mark(id);
}

void ParameterMailbox::flush(QORBaseAudioProcessor& engine)
{
    if (!pendingForEngine.any()) return;
    pendingForEngine.take().forEach([&](ParameterId id) { engine.setParameter(id, exactValue(id)); });
}

void ParameterMailbox::markBoth(ParameterId id)
{
    pendingForEngine.mark(id);
    pendingForEditor.mark(id);
}

} // namespace velmora::vst24
