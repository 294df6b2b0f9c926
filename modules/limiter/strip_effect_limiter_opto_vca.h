#pragma once

#include "dsp/lanes.h"
#include "dsp/run_widest.h"
#include "engine/strip_effect.h"
#include "modules/limiter/glided_gain.h"
#include "modules/limiter/glided_section.h"
#include "modules/limiter/limiter_window.h"
#include "modules/limiter/opto_detector.h"
#include "modules/limiter/reduction_meter.h"
#include "modules/limiter/vca_detector.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace velmora {

/// What all variants of the limiter share (parameters, chunk loop, ceiling and output gain, gain-reduction
/// meter) and the optical-style and VCA-style variants. No variant looks ahead: the level of a sample goes
/// into the gain of that same sample, so there's no latency.
class StripEffectLimiter_OptoVCA : public StripEffect {
public:
    using StripEffect::StripEffect;

    void reset() override;
    void setSampleRate(double hz) override; ///< clamped to 44100..384000 Hz
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override;
    void activate() override { setLimiterActive(1.0); }
    void deactivate() override { setLimiterActive(0.0); }

    /// Run flag of the module, then `reset`. @range 0..1, switches at 0.5
    virtual void setLimiterActive(double state);
    /// Brings every section to its start settings.
    virtual void initFilters();
    /// Works out the rates that hang on Attack (and Smooth), for the present type.
    virtual void updateAttack();
    /// Works out the rates that hang on Release, for the present type.
    virtual void updateRelease();

protected:
    void processOpto(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);
    void processVca(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    /// A variant that lacks its mode or shape: audio passes through and the reading shows no reduction.
    void processUndefined(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    /// The loop of every variant. `work(width, count)` is a kernel: it turns `detect` into `gains` and
    /// applies them to `audio`.
    template <typename Work>
    void processChunks(const AudioRecord& in, const AudioRecord& out, std::int32_t frames, Work work)
    {
        refreshRates();
        for (std::int32_t start = 0; start < frames; start += limiter::kChunk) {
            const std::int32_t count = std::min(frames - start, limiter::kChunk);
            std::copy_n(in.left(0) + start, count, input.begin()); // the output takes its place
            outputGain.step(chunkRate);
            ceilingInverse.step(chunkRate);
            runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
                const auto length = static_cast<std::size_t>(count);
                loadChunk(in, start, length);
                work(width, length);
                storeChunk(out, start, length);
            });
            meterBlocks(input.data(), played(), count);
            reductionMeter.follow(gains.data(), count);
        }
        reductionMeter.show();
    }

    VELMORA_KERNEL void applyGains(std::size_t count)
    {
        for (std::size_t i = 0; i < count; ++i) audio[i] = gains[i] * audio[i];
    }

    /// What Attack and Release stand for has changed. The rates are worked out with the next block.
    void staleAttack()
    {
        attackStale = true;
        attackLast = true;
    }
    void staleRelease()
    {
        releaseStale = true;
        attackLast = false;
    }

    std::int32_t limiterActive = 1;
    double attackNorm = 0.5;
    double releaseNorm = 0.5;
    double hpfHz = 10.0;
    bool hpfOn = false;
    std::int32_t soft = 0;
    std::int32_t link = 0; ///< stored; a single channel has nothing to link
    std::int32_t monitor = 0;

    limiter::GlidedSection highPass; ///< in the detector's way only
    limiter::SectionHistory highPassHistory;
    limiter::GlidedGain outputGain;
    limiter::GlidedGain ceilingInverse;
    limiter::OptoDetector opto;
    limiter::VcaDetector vca;
    limiter::ReductionMeter reductionMeter;

    // Room for whole vectors: kernels round the length of a chunk up.
    std::array<double, limiter::kChunk> input{}; ///< for the meter
    std::array<double, limiter::kChunk> audio{};
    std::array<double, limiter::kChunk> detect{};
    std::array<double, limiter::kChunk> gains{};

private:
    static constexpr auto kHealing = limiter::GlidedSection::Healing::KeepsOlder;

    void setType(std::int32_t newType);
    void setHighPass(double value);
    void refreshRates();

    VELMORA_KERNEL void loadChunk(const AudioRecord& in, std::int32_t start, std::size_t count)
    {
        std::copy_n(in.left(0) + start, count, audio.data());
        std::copy_n(in.left(sideChainSource) + start, count, detect.data());
    }
    VELMORA_KERNEL void storeChunk(const AudioRecord& out, std::int32_t start, std::size_t count)
    {
        const double gain = outputGain.value();
        for (std::size_t i = 0; i < count; ++i) audio[i] = audio[i] * gain;
        if ((outputMask & 1) == 0) return;
        std::copy_n(played(), count, out.left(0) + start);
        std::copy_n(played(), count, out.right(0) + start);
    }
    /// Monitor replaces the output alone; detector and meters go on.
    const double* played() const { return monitor != 0 ? detect.data() : audio.data(); }

    bool attackStale = true;
    bool releaseStale = true;
    bool attackLast = false; ///< Attack was set behind Release
    bool meterStale = true;
    double chunkRate = 1.0;
};

} // namespace velmora
