#pragma once

#include "dsp/lanes.h"
#include "dsp/run_widest.h"
#include "engine/sample_guard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// What each work channel reads: main pair, auxiliary pair.
template <typename Sample>
using HostSources = std::array<const Sample*, 4>;

/// A host with fewer inputs feeds the main signal to the auxiliary pair. Main may be null, and what falls
/// back to it.
template <typename Sample>
HostSources<Sample> chooseSources(Sample** inputs)
{
    const auto orElse = [](const Sample* pointer, const Sample* fallback) {
        return pointer != nullptr ? pointer : fallback;
    };
    const Sample* main = inputs[0];
    const Sample* second = orElse(inputs[1], main);
    const Sample* aux = orElse(inputs[2], main);
    return {main, second, aux, orElse(inputs[3], orElse(inputs[2], second))};
}

template <typename Sample>
VELMORA_KERNEL void readChannel(const Sample* source, double* channel, std::int32_t count)
{
    if (source == nullptr)
        std::fill_n(channel, count, 0.0);
    else
        for (std::int32_t i = 0; i < count; ++i) channel[i] = guardSample(static_cast<double>(source[i]));
}

/// Widens guarded samples from `start` on to the work channels; a missing source is silence. Sides of a pair
/// that have one source, as most have, are read once.
template <typename Sample, typename Channel>
void readSamples(const HostSources<Sample>& sources, std::array<Channel, 4>& channels, std::int32_t start,
                 std::int32_t count)
{
    const auto repeats = [&](std::size_t c)
                             VELMORA_KERNEL_LAMBDA { return c % 2 != 0 && sources[c] == sources[c - 1]; };
    runWidest([&]() VELMORA_KERNEL_LAMBDA {
        for (std::size_t c = 0; c < sources.size(); ++c)
            if (!repeats(c))
                readChannel(sources[c] != nullptr ? sources[c] + start : nullptr, channels[c].data(), count);
    });
    for (std::size_t c = 1; c < sources.size(); c += 2)
        if (repeats(c)) std::copy_n(channels[c - 1].data(), count, channels[c].data());
}

/// Narrows a work channel to an output, if the host has it.
template <typename Sample>
void writeSamples(const double* channel, Sample* output, std::int32_t start, std::int32_t count)
{
    if (output == nullptr) return;
    for (std::int32_t i = 0; i < count; ++i) output[start + i] = static_cast<Sample>(channel[i]);
}

} // namespace velmora
