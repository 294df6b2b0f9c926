#include "engine/insert_bank.h"

#include "params/type_codes.h"

#include <utility>

namespace velmora {

namespace {

constexpr double kVariantSteps = 15.0;

// Kinds with a single variant per class start with their type in place.
bool takesVariant(ModuleKind kind)
{
    return kind != ModuleKind::Output && kind != ModuleKind::Special;
}

bool reducesGain(ModuleKind kind)
{
    return kind == ModuleKind::Compressor || kind == ModuleKind::Limiter;
}

} // namespace

InsertBank::InsertBank(const ModuleFactory& factory, const ModuleBases& bases)
{
    for (const ModuleType& type : moduleTypes()) {
        auto& entry = entries_[static_cast<unsigned>(type.code)];
        entry = factory.insert(type.code, bases);
        if (entry && takesVariant(type.kind)) entry->setParameter(bases.window, type.variant / kVariantSteps);
    }
}

void InsertSlot::sendMirror(StripEffect& module, ParameterId firstOffset, ParameterId lastOffset) const
{
    const ParameterId base = roleWindow(role).windowBase;
    for (ParameterId offset = firstOffset; offset <= lastOffset; ++offset)
        module.setParameter(static_cast<std::uint32_t>(base + offset), mirror[static_cast<unsigned>(offset)]);
}

StripEffect* InsertSlot::choose(std::int32_t code, double sampleRate)
{
    const ModuleKind oldKind = moduleKind(std::exchange(type, code));
    const ModuleKind kind = moduleKind(code);
    hasGr = reducesGain(kind);

    StripEffect* module = bank[code];
    if (module == nullptr) return nullptr;
    module->setSampleRate(sampleRate);
    module->activate();
    if (kind == ModuleKind::Special || kind != oldKind) {
        module->loadDefaults();
        // The instance may have sat idle since another choice: its switches of the rack block are stale.
        sendMirror(*module, kSideChainOffset, kMonitorOffset);
    } else {
        sendMirror(*module, kSideChainOffset, kLastOwnOffset);
    }
    module->reset();
    return module;
}

} // namespace velmora
