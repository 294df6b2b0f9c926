#pragma once

#include "tools/host/loaded_plugin.h"
#include "tools/render/parameter_text.h"
#include "tools/render/reduction_reading.h"

#include <memory>
#include <vector>

namespace velmora::render {

/// One plug-in instance for each channel of a recording, all with the same parameters.
class StripChannels {
public:
    /// Throws host::HostError.
    StripChannels(const host::PluginLibrary& library, int channels, const host::RunSettings& settings);

    void setParameter(const ParameterChange& change);
    /// Hands the chunk to every instance.
    void setChunk(std::span<const std::uint8_t> chunk);
    const host::LoadedPlugin& first() const { return *plugins_.front(); }

    /// Processes interleaved frames in place. @param key interleaved key signal of `keyChannels` channels; an
    /// instance hears its own channel of it, or else the first; none: silence. @param frames up to the block
    /// size of the settings
    void process(double* interleaved, const double* key, int keyChannels, int frames);

    /// The lowest gain to which the strips' dynamics have turned down so far, linear; 1 is nothing.
    double lowestGain() const;

private:
    bool limiterRuns() const;
    void settleReadings();

    template <typename Sample>
    struct Buffers {
        std::vector<Sample> in, key, outLeft, outRight;
    };
    template <typename Sample>
    void processAs(Buffers<Sample>& buffers, double* interleaved, const double* key, int keyChannels,
                   int frames);

    std::vector<std::unique_ptr<host::LoadedPlugin>> plugins_;
    std::vector<ReductionReading> reductions_;
    host::RunSettings settings_;
    Buffers<float> single_;
    Buffers<double> double_;
};

} // namespace velmora::render
