#pragma once

#include <cstdio>
#include <cstdlib>

namespace velmora::fuzz {

/// Ends the process, which the fuzzer takes for a finding, unless `holds`.
inline void require(bool holds, const char* what)
{
    if (holds) return;
    std::fprintf(stderr, "broken: %s\n", what);
    std::abort();
}

} // namespace velmora::fuzz
