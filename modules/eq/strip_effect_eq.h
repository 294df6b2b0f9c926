#pragma once

#include "engine/strip_effect.h"
#include "modules/eq/eq_band.h"
#include "modules/eq/eq_filters.h"
#include "modules/eq/eq_saturation.h"

namespace velmora {

/// Four-band equaliser in three flavours, with an output gain and a saturating output stage.
///
/// Every change of a band designs the sections of all flavours; the type only picks those that run, so a
/// change of flavour costs no design, and a flavour resumes from the history it last had.
class StripEffectEq : public StripEffect {
public:
    StripEffectEq(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    /// Bands fade in from dry afterwards.
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
    template <typename Filter>
    void processFlavour(Filter& filter, const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    void setBandParameter(EqBand band, ParameterId control, double value);
    void setOut(double value);
    void setAnalog(bool on);
    void designBand(EqBand band);
    void enableBand(EqBand band);

    PerBand<EqBandSettings> bands;
    PerBand<double> inSmooth{};
    std::int32_t analog = 0;
    double outTarget = 1.0; ///< linear
    double outGain = 1.0;   ///< linear
    double smoothingStep = 0.0;

    SorrelFilter sorrel;
    TamarinFilter tamarin;
    JuniperFilter juniper;
    EqSaturation saturation;
};

} // namespace velmora
