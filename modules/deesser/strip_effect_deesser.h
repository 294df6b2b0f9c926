#pragma once

#include "engine/strip_effect.h"
#include "modules/deesser/sibilance_filters.h"
#include "modules/deesser/sibilance_gain.h"
#include "modules/deesser/sibilance_levels.h"
#include "modules/deesser/sibilance_rates.h"

namespace velmora {

/// De-esser: turns the signal, or what lies above the crossover, down while a narrow band stands out of it.
class StripEffectDeesser : public StripEffect {
public:
    StripEffectDeesser(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

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
    static constexpr std::int32_t kPiece = SibilanceFilters::kLongest;
    using Block = SibilanceFilters::Block;

    void updateRates() { rates = sibilanceRates(frequency, sampleRate); }
    void processPiece(const double* input, const AudioRecord& out, std::int32_t start, std::int32_t frames);
    /// @param detected weighted sibilance band.
    void findGains(const double* wide, const double* detected, double* gains, std::size_t count);

    SibilanceFilters filters;
    SibilanceLevels levels;
    SibilanceGain gainComputer;
    SibilanceRates rates;

    double frequency = 6000.0; ///< Hz
    double q = 6.0;
    double sensitivityGain = 1.0; ///< linear
    std::int32_t splitMode = 0;   ///< 0 full band, 1 above the crossover only
    std::int32_t monitor = 0;
    MeterCell gain; ///< of the last sample, linear
};

} // namespace velmora
