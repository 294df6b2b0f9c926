#include "editor/engine/toolkit/lazy/open_toolkit.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <mutex>

namespace velmora::Qorvane {
namespace {

struct LazyRow {
    const char* library;
    const char* function;
};

constexpr LazyRow kRows[] = {
#include "lazy_rows.inc"
};
constexpr std::size_t kRowCount = std::size(kRows);

} // namespace
} // namespace velmora::Qorvane

/// Where the trampolines jump to.
extern "C" [[gnu::visibility("hidden")]] void* velmora_lazy_slots[velmora::Qorvane::kRowCount];

extern "C" [[gnu::visibility("hidden"), noreturn, gnu::used]] void velmora_lazy_missing(unsigned row)
{
    std::fprintf(stderr, "%s was called before its library was open\n",
                 velmora::Qorvane::kRows[row].function);
    std::abort();
}

namespace velmora::Qorvane {
namespace {

const char* missing = "";

/// Stays in memory to the end of the process: neither type systems nor font caches can be unloaded.
void* openPinned(const char* library)
{
    return dlopen(library, RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
}

bool fillSlots()
{
    std::array<void*, kRowCount> found{};
    void* library = nullptr;
    for (std::size_t i = 0; i < kRowCount; ++i) {
        if (i == 0 || std::strcmp(kRows[i].library, kRows[i - 1].library) != 0) {
            library = openPinned(kRows[i].library);
            if (library == nullptr) {
                missing = kRows[i].library;
                return false;
            }
        }
        found[i] = dlsym(library, kRows[i].function);
        if (found[i] == nullptr) {
            missing = kRows[i].function;
            return false;
        }
    }
    std::memcpy(velmora_lazy_slots, found.data(), sizeof found);
    return true;
}

} // namespace

bool openToolkit()
{
    static std::once_flag once;
    static bool open = false;
    std::call_once(once, [] { open = fillSlots(); });
    return open;
}

const char* missingFromToolkit()
{
    return missing;
}

} // namespace velmora::Qorvane
