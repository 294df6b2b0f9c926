#include "host/vst24/vst24_abi.h"

#include <algorithm>
#include <array>

/// A plug-in whose output tells what its host did, for tests of the host side. By its parameters, each of
/// them 0 at first but the first:
///   0  gain of the main input, 1 at first
///   34 gain of the side-chain input
///   40 above 0.5: the output is 1 / 65536 of the length of the process call, whatever the input
///   242 added to every sample
namespace {

using namespace velmora::vst24;

constexpr int kMainGain = 0;
constexpr int kKeyGain = 34;
constexpr int kTellLength = 40;
constexpr int kOffset = 242;
constexpr int kGainReduction = 423;

struct Probe {
    AEffect effect;
    std::array<float, 512> parameters{};
};

Probe& probeOf(AEffect* effect)
{
    return *static_cast<Probe*>(effect->object);
}

std::intptr_t dispatch(AEffect* effect, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
{
    if (opcode == effClose) delete &probeOf(effect);
    return 0;
}

void setParameter(AEffect* effect, std::int32_t id, float value)
{
    probeOf(effect).parameters[static_cast<std::size_t>(id)] = value;
}

float getParameter(AEffect* effect, std::int32_t id)
{
    return probeOf(effect).parameters[static_cast<std::size_t>(id)];
}

template <typename Sample>
void process(AEffect* effect, Sample** in, Sample** out, std::int32_t frames)
{
    const auto& p = probeOf(effect).parameters;
    for (std::int32_t i = 0; i < frames; ++i) {
        const double heard = static_cast<double>(in[0][i]) * static_cast<double>(p[kMainGain]) +
                             static_cast<double>(in[2][i]) * static_cast<double>(p[kKeyGain]) +
                             static_cast<double>(p[kOffset]);
        const double told = p[kTellLength] > 0.5f ? frames / 65536.0 : heard;
        out[0][i] = out[1][i] = static_cast<Sample>(told);
    }
}

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(HostCallback host)
{
    if (host(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0f) == 0) return nullptr;
    auto* probe = new Probe;
    probe->parameters[kMainGain] = 1.0f;
    probe->parameters[kGainReduction] = 0.5f;
    AEffect& effect = probe->effect;
    effect.object = probe;
    effect.dispatcher = dispatch;
    effect.setParameter = setParameter;
    effect.getParameter = getParameter;
    effect.processReplacing = process<float>;
    effect.processDoubleReplacing = process<double>;
    effect.numInputs = 4;
    effect.numOutputs = 2;
    effect.flags = effFlagsCanReplacing | effFlagsCanDoubleReplacing;
    return &effect;
}
