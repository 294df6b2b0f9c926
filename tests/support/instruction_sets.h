#pragma once

#include "dsp/run_widest.h"

#include <gtest/gtest.h>

namespace velmora::test {

inline const char* name(InstructionSet set)
{
    constexpr const char* kNames[] = {"baseline", "AVX2", "AVX-512"};
    return kNames[static_cast<int>(set)];
}

/// Runs `check` once with every instruction set that this machine has held in place.
template <typename Check>
void forEachInstructionSet(Check check)
{
    for (InstructionSet set : {InstructionSet::Baseline, InstructionSet::Avx2, InstructionSet::Avx512}) {
        if (set > widestInstructionSet()) return;
        SCOPED_TRACE(name(set));
        const HeldInstructionSet held(set);
        check();
    }
}

} // namespace velmora::test
