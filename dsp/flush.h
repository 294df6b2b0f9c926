#pragma once

namespace velmora {

/// Denormal guard of the recursive states: (v + e) - e in double arithmetic, so values far below e vanish.
/// The two operations must stay as they are written; the build keeps the compiler from folding them.
inline double flush(double v, double e)
{
    return (v + e) - e;
}

} // namespace velmora
