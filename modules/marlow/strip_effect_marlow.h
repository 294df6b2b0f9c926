#pragma once

#include "engine/strip_effect.h"
#include "modules/marlow/detection_filter.h"
#include "modules/marlow/dynamic_gain.h"
#include "modules/marlow/glided_band.h"
#include "modules/marlow/instant_section.h"
#include "modules/marlow/threshold_indicator.h"

namespace velmora {

/// Dynamic EQ of one band: a detector moves the band's gain between one value below the threshold and one
/// above, and the filter is redesigned on each sample.
class StripEffectMarlow : public StripEffect {
public:
    StripEffectMarlow(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override { resetMeterState(); }
    void activate() override { active = 1; }
    void deactivate() override { active = 0; }

private:
    void updateRates();
    void runBlock(const double* input, const double* key, const AudioRecord& out, std::int32_t at,
                  std::int32_t frames);
    void detect(MarlowTrack& key, MarlowTrack& gainDb, std::size_t frames);
    void filter(MarlowTrack& x, const MarlowTrack& gainDb, bool gainStands, std::size_t frames);

    DetectionFilter detection;
    InstantSection dynamicFilter;
    GlidedBand band;
    DynamicGain dynamicGain;
    ThresholdIndicator indicator;

    bool ratesAreStale = true;
    double smoothingStep = 1.0; ///< of frequency, Q and indicator, per sample
    double timeFactor = 1.0;
    double thresholdDb = -30.0;
    MarlowShape filterType = MarlowShape::Peak;
    MarlowControl controlMode = MarlowControl::Direct;
    std::int32_t monitor = 0;
    MeterCell dynamicGainDb;
    MeterCell aboveBelowIndicator; ///< -1 below .. 1 above
};

} // namespace velmora
