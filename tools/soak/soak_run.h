#pragma once

#include "tools/host/plugin_library.h"
#include "tools/soak/cast.h"
#include "tools/soak/comparison.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace velmora::soak {

/// Something that a plug-in must never do, with the place in the run.
class Fault : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What is the same for all runs.
struct SoakPlan {
    std::filesystem::path plugin;
    std::filesystem::path reference; ///< empty: nothing to compare with
    Cast cast;
    double seconds = 10.0; ///< of audio in a run
    bool trace = false;    ///< print every action
};

struct RunFigures {
    double seconds = 0.0; ///< of audio
    std::int64_t frames = 0;
    std::int64_t blocks = 0;
    std::int64_t soundingFrames = 0;      ///< in blocks whose output rises above -120 dB
    double peak = 0.0;                    ///< highest output, linear
    std::int64_t residentGrowth = 0;      ///< bytes, over the run's second half
    std::int64_t heapGrowth = 0;          ///< bytes, over the run's second half
    std::optional<Comparison> comparison; ///< with the reference, if there is one

    double soundingShare() const
    {
        return frames > 0 ? static_cast<double>(soundingFrames) / static_cast<double>(frames) : 0.0;
    }
};

/// Plays the scenario of a seed through a fresh copy of the plug-in, and of the reference. Throws Fault for
/// an output that isn't finite, a meter outside 0..1 and memory that grows; host::HostError.
RunFigures soak(const SoakPlan& plan, std::uint64_t seed);

} // namespace velmora::soak
