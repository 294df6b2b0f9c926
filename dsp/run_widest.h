#pragma once

#include "dsp/kernel.h"

#include <cstddef>
#include <type_traits>

namespace velmora {

/// Instruction sets that kernels are built for. Results agree bit for bit: there is no contraction, and lanes
/// don't meet.
enum class InstructionSet {
    Baseline, ///< x86-64-v2, or whatever other machines have
    Avx2,
    Avx512, ///< F, DQ and VL
};

/// The widest set that this machine has.
InstructionSet widestInstructionSet();

/// The set in use: the widest, unless a test holds it lower. Read once per block and module.
InstructionSet instructionSet();

/// Holds kernels to a set for as long as it lives. For tests and benchmarks, while no audio runs.
class HeldInstructionSet {
public:
    /// @param set must be one that the machine has.
    explicit HeldInstructionSet(InstructionSet set);
    ~HeldInstructionSet();
    HeldInstructionSet(const HeldInstructionSet&) = delete;
    HeldInstructionSet& operator=(const HeldInstructionSet&) = delete;

private:
    InstructionSet before_;
};

/// Handed to a kernel that wants to know how many doubles a vector of its instruction set holds. A vector
/// wider than that is slow: the compiler takes it apart lane by lane through memory.
template <std::size_t count>
using LaneWidth = std::integral_constant<std::size_t, count>;

namespace detail {

template <std::size_t width, typename Kernel>
VELMORA_KERNEL void callKernel(Kernel& kernel)
{
    if constexpr (std::is_invocable_v<Kernel&, LaneWidth<width>>)
        kernel(LaneWidth<width>{});
    else
        kernel();
}

#if defined(__x86_64__)
template <typename Kernel>
__attribute__((target("avx2"), flatten, noinline)) void runAvx2(Kernel& kernel)
{
    callKernel<4>(kernel);
}

template <typename Kernel>
__attribute__((target("avx2,avx512f,avx512dq,avx512vl"), flatten, noinline)) void runAvx512(Kernel& kernel)
{
    callKernel<8>(kernel);
}
#endif

template <typename Kernel>
__attribute__((flatten, noinline)) void runBaseline(Kernel& kernel)
{
    callKernel<2>(kernel);
}

} // namespace detail

/// Runs a kernel, compiled for the instruction set in use. The kernel and all it calls are inlined into one
/// function per set: keep them free of calls to other translation units, but for libm. `flatten` alone
/// doesn't see to that in every build, so all of it is a VELMORA_KERNEL or VELMORA_KERNEL_LAMBDA: a function
/// left out of line would hand a vector over in another way than its caller expects, and the compiler's
/// warning is off.
/// @param kernel callable over one block, most often a lambda; without arguments, or with a `LaneWidth` of
/// 2, 4 or 8, the native one of the set.
template <typename Kernel>
inline void runWidest(Kernel kernel)
{
#if defined(__x86_64__)
    switch (instructionSet()) {
    case InstructionSet::Avx512:
        return detail::runAvx512(kernel);
    case InstructionSet::Avx2:
        return detail::runAvx2(kernel);
    case InstructionSet::Baseline:
        break;
    }
#endif
    detail::runBaseline(kernel);
}

} // namespace velmora
