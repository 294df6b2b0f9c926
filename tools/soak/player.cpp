#include "tools/soak/player.h"

#include "tools/render/preset_exchange.h"

namespace velmora::soak {

namespace {

const host::PluginLibrary& afterInstances(const host::PluginLibrary& library, int count)
{
    for (int i = 0; i < count; ++i) const host::LoadedPlugin closedAtOnce(library);
    return library;
}

} // namespace

Player::Player(const host::PluginLibrary& library, int earlierInstances)
    : plugin_(afterInstances(library, earlierInstances))
{
    const auto size = static_cast<std::size_t>(kLongestBlock);
    for (unsigned i = 0; i < kInputs; ++i) {
        single_.in[i].resize(size);
        double_.in[i].resize(size);
    }
    for (unsigned i = 0; i < 2; ++i) {
        single_.out[i].resize(size);
        double_.out[i].resize(size);
    }
    left_.reserve(size);
    right_.reserve(size);
}

void Player::play(const Step& step)
{
    for (const Action& action : step.actions) perform(action);
    if (doublePrecision_)
        process(double_, step);
    else
        process(single_, step);
}

void Player::perform(const Action& action)
{
    if (const auto* change = std::get_if<ParameterChange>(&action)) {
        plugin_.setParameter(change->id, change->value);
    } else if (const auto* load = std::get_if<StateLoad>(&action)) {
        plugin_.setChunk(render::chunkWithPreset(plugin_.chunk(), *load->preset));
    } else {
        begin(std::get<Restart>(action));
    }
}

void Player::begin(const Restart& restart)
{
    doublePrecision_ = restart.doublePrecision;
    if (!open_) {
        plugin_.start({restart.sampleRate, kLongestBlock, doublePrecision_});
        open_ = true;
        return;
    }
    plugin_.suspend();
    plugin_.setSampleRate(restart.sampleRate);
    plugin_.setDoublePrecision(doublePrecision_);
    plugin_.resume();
}

void Player::readMeters()
{
    for (std::size_t i = 0; i < kMeters; ++i)
        meters_[i] = plugin_.parameter(kFirstMeterId + static_cast<ParameterId>(i));
}

template <typename Sample>
void Player::process(Buffers<Sample>& buffers, const Step& step)
{
    const auto frames = static_cast<std::size_t>(step.frames);
    std::array<Sample*, kInputs> in{};
    for (unsigned i = 0; i < kInputs; ++i) {
        for (std::size_t n = 0; n < frames; ++n) buffers.in[i][n] = static_cast<Sample>(step.inputs[i][n]);
        if (step.wiring.connected[i]) in[i] = buffers.in[i].data();
    }
    auto& target = buffers.out;
    std::array<Sample*, 2> out{target[0].data(), target[1].data()};
    if (step.wiring.inPlace) out = {buffers.in[0].data(), buffers.in[1].data()};
    const Sample* const right = step.wiring.rightOutput ? out[1] : out[0];
    if (!step.wiring.rightOutput) out[1] = nullptr;
    plugin_.process(in.data(), out.data(), step.frames);
    left_.assign(out[0], out[0] + frames);
    right_.assign(right, right + frames);
}

} // namespace velmora::soak
