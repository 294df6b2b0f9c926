#pragma once

/// Stands before a function that a kernel calls (see dsp/run_widest.h). It is inlined by force, and so takes
/// the instruction set of the kernel; nothing of it may be called out of line.
#define VELMORA_KERNEL inline __attribute__((always_inline))

/// Stands behind the parameters of a lambda that a kernel calls, and of the kernel itself. One that stays a
/// function of its own would be compiled for the baseline, and keep the variables that it captured in memory.
#define VELMORA_KERNEL_LAMBDA __attribute__((always_inline))
