#pragma once

#include "engine/strip_effect.h"
#include "modules/output/fader_smoother.h"
#include "modules/output/master_meter.h"

namespace velmora {

/// Master control: the strip's final fader and its peak, RMS and clip metering. Width and balance act in the
/// two-channel form only.
class StripEffectOutput : public StripEffect, private QORmasterMeter {
public:
    StripEffectOutput(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override;
    void activate() override;
    void deactivate() override;

private:
    struct StereoFrame {
        double left;
        double right;
    };

    void setWindowParameter(ParameterId offset, double value);
    void updateCoefficients();
    bool passesThrough() const { return runFlag == 0 || type == 0; }
    bool measuresAfterFader() const { return measurementPoint > 1; }
    StereoFrame mixStereo(double a, double b);
    void applyFader(double* block, std::int32_t frames);

    double widthPercent = 100.0; ///< 0..200
    double widthTarget = 1.0;    ///< factor 0..2
    double widthCurrent = 1.0;
    double balanceLeftTarget = 1.0;
    double balanceLeftCurrent = 1.0;
    double balanceRightTarget = 1.0;
    double balanceRightCurrent = 1.0;
    double panCoefficient = 0.0; ///< one-pole step of width and balance
    std::int32_t runFlag = 1;    ///< 1 while the module stands in the rack and runs
    double gainTarget = 1.0;     ///< linear
    FaderSmoother fader;
    std::int32_t measurementPoint = 2; ///< 0 In, 1 Pre, 2 Post, 3 Out
};

} // namespace velmora
