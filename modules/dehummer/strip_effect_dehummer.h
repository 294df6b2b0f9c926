#pragma once

#include "engine/strip_effect.h"
#include "modules/dehummer/harmonic_comb.h"
#include "modules/dehummer/hum_listener.h"
#include "modules/dehummer/hum_profile.h"
#include "modules/dehummer/hum_reduction.h"

namespace velmora {

/// De-hummer: a comb of narrow cuts at the mains frequency and its harmonics.
class StripEffectDehummer : public StripEffect {
public:
    StripEffectDehummer(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override;
    void activate() override { active = 1; }
    void deactivate() override { active = 0; }

private:
    static constexpr std::int32_t kPiece = 64;

    void setMonitor(std::int32_t on);
    void updateGains();
    void updateFrequencies();
    void clearReduction();
    void processPiece(const double* input, const AudioRecord& out, std::int32_t start, std::int32_t frames);

    HarmonicComb comb;
    HumListener listener;
    HumReduction reduction;
    HumProfile profile;
    PerHarmonic shares{}; ///< of each harmonic in attenuation and monitor mix

    double baseHz = 60.0;
    double offsetHz = 0.0;        ///< -10..10
    double attenuationDb = -12.0; ///< -48..0
    std::int32_t monitor = 0;
    MeterCell reductionMeter;
};

} // namespace velmora
