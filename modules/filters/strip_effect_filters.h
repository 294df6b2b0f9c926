#pragma once

#include "engine/strip_effect.h"
#include "modules/filters/filter_rail.h"

#include <array>

namespace velmora {

/// Filters: high-pass and low-pass with three slopes each, in the larger variants with a parametric band
/// between them. The side-chain variant filters the auxiliary pair in place, so that a dynamics module behind
/// it hears a filtered key, and leaves the main signal alone unless its monitor is on.
class StripEffectFilters : public StripEffect {
public:
    StripEffectFilters(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    /// Held below 192000 Hz: a faster strip runs the filters designed for that rate.
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override { answerLevelMeters(id, out); }
    void resetMeters() override { resetMeterState(); }
    void activate() override { active = 1; }
    void deactivate() override { active = 0; }

private:
    enum Variant : std::int32_t { Basic = 1, Pro, SideChain };
    enum Channel : std::size_t { Left, Right, kChannels };

    bool passesThrough() const { return active == 0 || type < Basic || type > SideChain; }
    static constexpr std::int32_t kPiece = 64;

    /// Both rails over a pair.
    void runPair(const AudioRecord& in, const AudioRecord& out, int pair, bool withBand, std::int32_t frames);
    void processSideChain(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);
    void updateEnables();

    template <typename Action>
    void forEachRail(Action action)
    {
        for (FilterRail& rail : rails) action(rail);
    }

    std::array<FilterRail, kChannels> rails; ///< the mono form runs the left one
    std::int32_t highPassIn = 1;
    std::int32_t highPassSlope = 1; ///< 0..2: 12, 18, 24 dB per octave
    std::int32_t lowPassIn = 1;
    std::int32_t lowPassSlope = 1; ///< 0..2: 6, 12, 18 dB per octave
    std::int32_t parametricIn = 1;
    std::int32_t sideChainMonitor = 0; ///< 1: the filtered key replaces the signal
};

} // namespace velmora
