#pragma once

#include <cstdint>

namespace velmora {

/// As long as it lives, the thread computes with denormal numbers as zeros, rounds to nearest and takes no
/// floating-point traps, whatever the host has set; then the host's own settings stand again, its exception
/// flags with them. States keep themselves free of denormals; this is for what the input and the steps of a
/// computation may hold. Does nothing on processors other than x86-64.
class FlushToZero {
public:
    FlushToZero() : host_(controlWord()) { setControlWord(kOwn); }
    ~FlushToZero() { setControlWord(host_); }
    FlushToZero(const FlushToZero&) = delete;
    FlushToZero& operator=(const FlushToZero&) = delete;

    /// The processor's floating-point control and status register (MXCSR); 0 where there is none.
    static std::uint32_t controlWord()
    {
#if defined(__x86_64__)
        return __builtin_ia32_stmxcsr();
#else
        return 0;
#endif
    }
    static void setControlWord([[maybe_unused]] std::uint32_t word)
    {
#if defined(__x86_64__)
        __builtin_ia32_ldmxcsr(word);
#endif
    }

private:
    static constexpr std::uint32_t kDenormalsAreZero = 0x0040; // as operands
    static constexpr std::uint32_t kAllMasked = 0x1F80;        // no traps
    static constexpr std::uint32_t kFlushToZero = 0x8000;      // as results
    static constexpr std::uint32_t kOwn = kFlushToZero | kAllMasked | kDenormalsAreZero;

    std::uint32_t host_;
};

} // namespace velmora
