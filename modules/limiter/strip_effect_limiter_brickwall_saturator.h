#pragma once

#include "modules/limiter/brickwall_detector.h"
#include "modules/limiter/emphasis.h"
#include "modules/limiter/saturator_curve.h"
#include "modules/limiter/saturator_level.h"
#include "modules/limiter/strip_effect_limiter_opto_vca.h"

namespace velmora {

/// Adds the brick-wall limiter and the saturator.
class StripEffectLimiter_BrickWall_Saturator : public StripEffectLimiter_OptoVCA {
public:
    using StripEffectLimiter_OptoVCA::StripEffectLimiter_OptoVCA;

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void initFilters() override;
    void updateAttack() override;
    void updateRelease() override;

protected:
    void processBrickWall(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);
    void processSaturator(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    std::int32_t mode = 0;   ///< how the brick wall releases
    double smoothNorm = 0.5; ///< the saturator's time
    std::int32_t shape = 2;  ///< the saturator's knee

    limiter::BrickWallDetector brickWall;
    limiter::SaturatorLevel saturatorLevel;
    limiter::Emphasis emphasis;

private:
    void setType(double value);
    void setHighPass();
};

} // namespace velmora
