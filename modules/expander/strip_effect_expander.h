#pragma once

#include "engine/strip_effect.h"
#include "modules/expander/gain_rules.h"
#include "modules/expander/key_filter.h"

#include <array>

namespace velmora {

/// Dynamics: expander, gate or ducker. They share the key (side chain, filters, threshold) and the output (a
/// gain between a floor and 1), and differ in the law that moves the gain. No look-ahead.
class StripEffectExpander : public StripEffect {
public:
    StripEffectExpander(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId);

    void reset() override;
    void setSampleRate(double hz) override;
    void setParameter(std::uint32_t id, double value) override;
    void loadDefaults() override;
    /// The louder of the two keys moves both channels.
    void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override;
    void getMeter(std::uint32_t id, double* out) override;
    void resetMeters() override;
    void activate() override { runFlag = 1; }
    void deactivate() override { runFlag = 0; }

private:
    enum Variant : std::int32_t { Expander = 1, Gate, Ducker };
    enum Channel : std::size_t { Left, Right, kChannels };

    bool passesThrough() const { return runFlag == 0 || !runsVariant(); }
    bool runsVariant() const { return type >= Expander && type <= Ducker; }
    void setOwnParameter(ParameterId offset, double value);
    void updateAttack();
    void updateRelease();
    void updateSmoothing();
    GainTiming timingOfCall() const;

    static constexpr std::int32_t kPiece = 64;
    using Block = std::array<double, kPiece>;

    template <typename Run>
    void withRule(Run run) const;
    /// Where the keys stand behind their filters: in `filtered`, or still at their sources.
    template <std::size_t channels>
    std::array<const double*, channels> filterKeys(const std::array<double*, channels>& sources,
                                                   std::array<Block, channels>& filtered,
                                                   std::int32_t frames);
    /// Levels against the threshold become gains.
    template <typename Rule>
    void followLevels(const Rule& rule, GainState& gain, double* levels, std::size_t count) const;
    template <typename Rule>
    void runMono(const Rule& rule, const AudioRecord& in, const AudioRecord& out, std::int32_t frames);
    template <typename Rule>
    void runStereo(const Rule& rule, const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    std::int32_t runFlag = 1;
    std::int32_t ratioIndex = 0;      ///< 0..10
    double rangeGain = 0.0;           ///< floor of the gain, linear
    double thresholdGain = 0.001;     ///< linear
    double inverseThreshold = 1000.0; ///< 1 / thresholdGain
    double attackMs;
    double attackCoefficient = 0.0;
    double shape = 0.5;        ///< 0..1
    double releaseValue = 0.5; ///< normalised
    ReleaseShape releaseShape;
    double holdSeconds = 0.05;
    double smoothingCoefficient = 0.0;
    std::int32_t monitorOn = 0; ///< 1: the filtered key is heard
    std::array<KeyFilter, kChannels> keyFilters;
    std::array<GainState, kChannels> gains;
    MeterCell gainOut; ///< gain of the last sample
};

} // namespace velmora
