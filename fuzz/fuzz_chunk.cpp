// A host's stored state, loaded into a whole instance.

#include "fuzz/require.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "params/parameter_ids.h"
#include "tools/host/private_home.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <vector>

namespace velmora::fuzz {
namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kFrames = 64;

std::intptr_t quietHost(vst24::AEffect*, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
{
    return opcode == vst24::audioMasterVersion ? vst24::kVstVersion : 0;
}

/// One instance for all inputs: making one takes longer than loading a chunk.
class Instance {
public:
    Instance() : strip_(quietHost), start_(state()) {}

    void load(Bytes chunk) { strip_.setChunk(chunk.data(), static_cast<std::intptr_t>(chunk.size()), false); }
    void restart() { load(start_); }
    const Bytes& start() const { return start_; }

    Bytes state()
    {
        void* data = nullptr;
        const std::int32_t size = strip_.getChunk(&data, false);
        require(size > 0, "a state can always be stored");
        const auto* bytes = static_cast<const std::uint8_t*>(data);
        return {bytes, bytes + size};
    }

    void requireValuesInRange()
    {
        for (std::int32_t id = 0; id < kHostParameterCount; ++id) {
            const float value = strip_.getParameter(id);
            require(value >= 0.0f && value <= 1.0f, "a parameter lies in 0..1");
        }
    }

    void requireFiniteAudio()
    {
        std::array<std::array<float, kFrames>, 6> channels;
        for (auto& channel : channels)
            for (int i = 0; i < kFrames; ++i)
                channel[static_cast<unsigned>(i)] = static_cast<float>(i % 16) / 16.0f - 0.5f;
        float* in[] = {channels[0].data(), channels[1].data(), channels[2].data(), channels[3].data()};
        float* out[] = {channels[4].data(), channels[5].data()};
        strip_.processReplacing(in, out, kFrames);
        for (const float* output : out)
            for (int i = 0; i < kFrames; ++i) require(std::isfinite(output[i]), "audio stays finite");
    }

private:
    host::PrivateHome home_;
    vst24::QORVST24EffectWrapper strip_;
    Bytes start_;
};

void run(const std::uint8_t* data, std::size_t size)
{
    static Instance instance;
    instance.restart();
    // A copy of its own size shows the sanitizer each read beyond its end.
    instance.load(Bytes(data, data + size));
    instance.requireValuesInRange();
    instance.requireFiniteAudio();
    const Bytes stored = instance.state();
    if (stored == instance.start()) return; // refused, as most inputs are
    instance.restart();
    instance.load(stored);
    require(instance.state() == stored, "a stored state comes back as it was");
}

} // namespace
} // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velmora::fuzz::run(data, size);
    return 0;
}
