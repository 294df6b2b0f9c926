#pragma once

#include <cstdint>

namespace velmora::soak {

/// What this process occupies, in bytes. Under the address sanitizer, whose allocator keeps what was freed,
/// always 0.
struct MemoryReading {
    std::int64_t resident = 0; ///< pages that are in memory
    std::int64_t heap = 0;     ///< handed out and not yet given back
};

MemoryReading readMemory();

inline constexpr double kMebibyte = 1024.0 * 1024.0;

inline double mebibytes(std::int64_t bytes)
{
    return static_cast<double>(bytes) / kMebibyte;
}

} // namespace velmora::soak
