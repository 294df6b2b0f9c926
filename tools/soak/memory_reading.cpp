#include "tools/soak/memory_reading.h"

#include <malloc.h>
#include <unistd.h>

#include <fstream>

namespace velmora::soak {

MemoryReading readMemory()
{
#ifdef __SANITIZE_ADDRESS__
    return {}; // this allocator keeps what was freed
#else
    std::int64_t pages = 0;
    std::int64_t residentPages = 0;
    std::ifstream("/proc/self/statm") >> pages >> residentPages;
    const struct mallinfo2 heap = mallinfo2();
    return {residentPages * sysconf(_SC_PAGESIZE), static_cast<std::int64_t>(heap.uordblks + heap.hblkhd)};
#endif
}

} // namespace velmora::soak
