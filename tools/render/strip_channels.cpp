#include "tools/render/strip_channels.h"

#include <algorithm>

namespace velmora::render {

StripChannels::StripChannels(const host::PluginLibrary& library, int channels,
                             const host::RunSettings& settings)
    : settings_(settings)
{
    for (int c = 0; c < channels; ++c) {
        plugins_.push_back(std::make_unique<host::LoadedPlugin>(library));
        plugins_.back()->start(settings);
        reductions_.emplace_back(settings.sampleRate);
    }
}

void StripChannels::setParameter(const ParameterChange& change)
{
    for (const auto& plugin : plugins_) plugin->setParameter(change.id, static_cast<float>(change.value));
    const RoleWindow* window = windowOf(change.id);
    if (change.id == kProcessId || (window && change.id == window->windowBase + kTypeOffset))
        settleReadings();
}

void StripChannels::setChunk(std::span<const std::uint8_t> chunk)
{
    for (const auto& plugin : plugins_) plugin->setChunk(chunk);
    settleReadings();
}

bool StripChannels::limiterRuns() const
{
    const auto type = [&](Role role) {
        return static_cast<double>(first().parameter(roleWindow(role).windowBase));
    };
    const auto holdsLimiter = [&](Role insert) {
        return moduleKind(insertCodeInController(type(insert))) == ModuleKind::Limiter;
    };
    return type(Role::Limiter) > 0.0 || holdsLimiter(Role::InsertX) || holdsLimiter(Role::InsertY);
}

void StripChannels::settleReadings()
{
    if (!limiterRuns()) return;
    for (ReductionReading& reduction : reductions_) reduction.settle();
}

void StripChannels::process(double* interleaved, const double* key, int keyChannels, int frames)
{
    if (settings_.doublePrecision)
        processAs(double_, interleaved, key, keyChannels, frames);
    else
        processAs(single_, interleaved, key, keyChannels, frames);
}

double StripChannels::lowestGain() const
{
    double highest = 0.0;
    for (const ReductionReading& reduction : reductions_) highest = std::max(highest, reduction.highest());
    return 1.0 - highest;
}

template <typename Sample>
void StripChannels::processAs(Buffers<Sample>& buffers, double* interleaved, const double* key,
                              int keyChannels, int frames)
{
    const auto size = static_cast<std::size_t>(settings_.blockSize);
    for (std::vector<Sample>* buffer : {&buffers.in, &buffers.key, &buffers.outLeft, &buffers.outRight})
        buffer->resize(size);
    Sample* in[4] = {buffers.in.data(), buffers.in.data(), buffers.key.data(), buffers.key.data()};
    Sample* out[2] = {buffers.outLeft.data(), buffers.outRight.data()};

    const int channels = static_cast<int>(plugins_.size());
    for (int c = 0; c < channels; ++c) {
        const int keyChannel = c < keyChannels ? c : 0;
        for (int i = 0; i < frames; ++i) {
            in[0][i] = static_cast<Sample>(interleaved[i * channels + c]);
            in[2][i] = keyChannels > 0 ? static_cast<Sample>(key[i * keyChannels + keyChannel]) : Sample{0};
        }
        host::LoadedPlugin& plugin = *plugins_[static_cast<std::size_t>(c)];
        plugin.process(in, out, frames);
        for (int i = 0; i < frames; ++i) interleaved[i * channels + c] = static_cast<double>(out[0][i]);
        reductions_[static_cast<std::size_t>(c)].add(
            static_cast<double>(plugin.parameter(kTotalGainReductionId)), frames);
    }
}

} // namespace velmora::render
