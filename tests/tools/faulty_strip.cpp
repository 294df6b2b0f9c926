#include "host/vst24/vst24_effect_wrapper.h"

#include <cstdlib>
#include <limits>
#include <string_view>
#include <vector>

/// The whole strip with a fault, for tests of what looks for faults. The environment's VELMORA_FAULT tells
/// which: "sample" (an output sample is no number), "meter" (one shows 1.5), "leak" (memory grows),
/// "level" (the output is 1e-7 louder), "last bit" (1e-13 louder).
namespace {

using namespace velmora::vst24;

constexpr int kHealthyBlocks = 200;
constexpr std::int32_t kMeter = 375;
constexpr std::size_t kLeak = 4096; // bytes in a block

class FaultyStrip : public QORVST24EffectWrapper {
public:
    FaultyStrip(HostCallback host, std::string_view fault) : QORVST24EffectWrapper(host), fault_(fault) {}

    float getParameter(std::int32_t id) override
    {
        return id == kMeter && faulty("meter") ? 1.5f : QORVST24EffectWrapper::getParameter(id);
    }
    void processReplacing(float** in, float** out, std::int32_t frames) override
    {
        QORVST24EffectWrapper::processReplacing(in, out, frames);
        spoil(out, frames);
    }
    void processDoubleReplacing(double** in, double** out, std::int32_t frames) override
    {
        QORVST24EffectWrapper::processDoubleReplacing(in, out, frames);
        spoil(out, frames);
    }

private:
    bool faulty(std::string_view fault) const { return fault_ == fault && blocks_ > kHealthyBlocks; }

    template <typename Sample>
    void spoil(Sample** out, std::int32_t frames)
    {
        ++blocks_;
        if (faulty("leak")) leaked_.emplace_back(kLeak, '\0');
        if (faulty("sample") && frames > 0) out[0][frames - 1] = std::numeric_limits<Sample>::quiet_NaN();
        const double gain = 1.0 + (faulty("level") ? 1e-7 : 0.0) + (faulty("last bit") ? 1e-13 : 0.0);
        if (gain == 1.0) return;
        for (std::int32_t i = 0; i < frames; ++i)
            out[0][i] = static_cast<Sample>(static_cast<double>(out[0][i]) * gain);
    }

    std::string_view fault_;
    int blocks_ = 0;
    std::vector<std::vector<char>> leaked_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(HostCallback host)
{
    const char* fault = std::getenv("VELMORA_FAULT");
    return (new FaultyStrip(host, fault ? fault : ""))->getAeffect();
}
