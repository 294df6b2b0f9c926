#include "dsp/run_widest.h"

#include <atomic>

namespace velmora {

namespace {

// Tests alone write it after start-up; it orders nothing else.
std::atomic<InstructionSet> setInUse{widestInstructionSet()};

} // namespace

InstructionSet widestInstructionSet()
{
#if defined(__x86_64__)
    __builtin_cpu_init(); // may run before the runtime's own constructor
    if (!__builtin_cpu_supports("avx2")) return InstructionSet::Baseline;
    const bool wide = __builtin_cpu_supports("avx512f") && __builtin_cpu_supports("avx512dq") &&
                      __builtin_cpu_supports("avx512vl");
    return wide ? InstructionSet::Avx512 : InstructionSet::Avx2;
#else
    return InstructionSet::Baseline;
#endif
}

InstructionSet instructionSet()
{
    return setInUse.load(std::memory_order_relaxed);
}

HeldInstructionSet::HeldInstructionSet(InstructionSet set) : before_(instructionSet())
{
    setInUse.store(set, std::memory_order_relaxed);
}

HeldInstructionSet::~HeldInstructionSet()
{
    setInUse.store(before_, std::memory_order_relaxed);
}

} // namespace velmora
