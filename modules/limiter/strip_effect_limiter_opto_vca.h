#pragma once

#include "dsp/strip_biquad.h"
#include "engine/strip_effect.h"
#include "modules/limiter/glided_gain.h"
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
    /// Rates that hang on Attack (and Smooth), for the present type.
    virtual void updateAttack();
    /// Rates that hang on Release, for the present type.
    virtual void updateRelease();

protected:
    void processOpto(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);
    void processVca(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    /// A variant that lacks its mode or shape: audio passes through and the reading shows no reduction.
    void processUndefined(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    /// The loop of every variant. `work(count)` turns `detect` into `gains` and applies them to `audio`.
    /// @param meterScale factor on the rate of the gain-reduction meter
    template <typename Work>
    void processChunks(const AudioRecord& in, const AudioRecord& out, std::int32_t frames, double meterScale,
                       Work work)
    {
        for (std::int32_t start = 0; start < frames; start += limiter::kChunk) {
            const std::int32_t count = std::min(frames - start, limiter::kChunk);
            outputGain.step(chunkRate);
            ceilingInverse.step(chunkRate);
            loadChunk(in, start, count);
            work(count);
            storeChunk(in, out, start, count);
            reductionMeter.follow(gains.data(), count, meterScale);
        }
        reductionMeter.show();
    }

    void applyGains(std::int32_t count)
    {
        for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) audio[i] = gains[i] * audio[i];
    }

    std::int32_t limiterActive = 1;
    double attackNorm = 0.5;
    double releaseNorm = 0.5;
    double attackMs = 0.0;
    double releaseMs = 0.0;
    double hpfHz = 10.0;
    bool hpfOn = false;
    std::int32_t soft = 0;
    std::int32_t link = 0; ///< stored; a single channel has nothing to link
    std::int32_t monitor = 0;

    StripBiquad hpf; ///< in the detector's way only
    limiter::GlidedGain outputGain;
    limiter::GlidedGain ceilingInverse;
    limiter::OptoDetector opto;
    limiter::VcaDetector vca;
    limiter::ReductionMeter reductionMeter;

    std::array<double, limiter::kChunk> audio{};
    std::array<double, limiter::kChunk> detect{};
    std::array<double, limiter::kChunk> gains{};

private:
    void setType(std::int32_t newType);
    void setHighPass(double value);
    void filterDetect(std::int32_t count);
    void loadChunk(const AudioRecord& in, std::int32_t start, std::int32_t count);
    void storeChunk(const AudioRecord& in, const AudioRecord& out, std::int32_t start, std::int32_t count);

    double chunkRate = 1.0;
};

} // namespace velmora
