#pragma once

#include "engine/strip_effect.h"
#include "modules/eq/deferred_filter.h"
#include "modules/eq/eq_saturation.h"
#include "modules/eq/juniper_filter.h"
#include "modules/eq/sorrel_filter.h"
#include "modules/eq/tamarin_filter.h"

namespace velmora {

/// Four-band equaliser in three flavours, with an output gain and a saturating output stage.
///
/// The bands belong to all flavours, the type only picks the one that runs. A flavour resumes from the
/// history and the glides it last had.
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
    void processFlavour(DeferredFilter<Filter>& deferred, const AudioRecord& in, const AudioRecord& out,
                        std::int32_t frames);
    template <typename Action>
    void forEachFilter(Action action);

    void setBandParameter(EqBand band, ParameterId control, double value);
    void setOut(double value);
    void setAnalog(bool on);
    void touchBand(EqBand band);
    void enableBand(EqBand band);
    void fadeBands(EqPiece& piece);
    void moveOutGain(EqPiece& piece);

    PerBand<EqBandSettings> bands;
    SmoothedValues<kEqBands> inFade{1e-19, 0.0};
    std::int32_t analog = 0;
    double outTarget = 1.0;                ///< linear
    SmoothedValues<1> outGain{1e-14, 1.0}; ///< linear
    double smoothingStep = 0.0;

    DeferredFilter<SorrelFilter> sorrel;
    DeferredFilter<TamarinFilter> tamarin;
    DeferredFilter<JuniperFilter> juniper;
    std::array<double, 3> driveRates{}; ///< by flavour
    DriveFollower driveFollower;        ///< follows with the saturation off too
};

} // namespace velmora
