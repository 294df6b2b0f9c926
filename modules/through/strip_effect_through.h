#pragma once

#include "engine/strip_effect.h"

namespace velmora {

/// A module that passes audio through with its level meters: serves a role whose own class isn't built in.
class StripEffectThrough : public StripEffect {
public:
    StripEffectThrough(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override { resetMeterState(); }
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override {}
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override { resetMeterState(); }
    void activate() override { active = 1; }
    void deactivate() override { active = 0; }
};

} // namespace velmora
