#include "dsp/strip_biquad.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr double kReferenceRate = 44100.0;
constexpr double kMaxRate = 384000.0;
constexpr double kGlideMs = 60.0;
constexpr double kMinFrequency = 0.001;
constexpr double kMinQ = 0.0001;
constexpr double kMaxQ = 1000.0;
constexpr double kMaxGainDb = 1000.0;
constexpr auto kLastKind = static_cast<std::int32_t>(StripBiquadKind::AllPass);

} // namespace

StripBiquad::StripBiquad(StripBiquadKind kind, double frequency, double q, double gainDb)
{
    initStripBiquad(kReferenceRate, kind, frequency, q, gainDb);
}

void StripBiquad::initStripBiquad(double sampleRate, StripBiquadKind kind, double frequency, double q,
                                  double gainDb)
{
    settings_ = {kind, frequency, q, gainDb, sampleRate};
    enabled_ = false;
    softLimit_ = false;
    softLimitAmount_ = kSoftLimitScale;
    updateSoftLimitFactor();
    glide_.init(static_cast<std::uint32_t>(sampleRate * kGlideMs / 1000.0));
    history_ = {};
}

void StripBiquad::setKind(std::int32_t kind)
{
    settings_.kind =
        kind < 0 || kind > kLastKind ? StripBiquadKind::None : static_cast<StripBiquadKind>(kind);
    redesign();
}

void StripBiquad::setFrequency(double hz)
{
    settings_.frequency = std::clamp(hz, kMinFrequency, settings_.sampleRate);
    redesign();
}

void StripBiquad::setQ(double q)
{
    settings_.q = std::clamp(q, kMinQ, kMaxQ);
    redesign();
}

void StripBiquad::setGainDb(double db)
{
    settings_.gainDb = std::clamp(db, -kMaxGainDb, kMaxGainDb);
    redesign();
}

void StripBiquad::setDesign(StripBiquadKind kind, double hz, double q, double db)
{
    settings_.kind = kind;
    settings_.frequency = std::clamp(hz, kMinFrequency, settings_.sampleRate);
    settings_.q = std::clamp(q, kMinQ, kMaxQ);
    settings_.gainDb = std::clamp(db, -kMaxGainDb, kMaxGainDb);
    redesign();
}

void StripBiquad::setSampleRate(double hz)
{
    settings_.sampleRate = std::clamp(hz, kReferenceRate, kMaxRate);
    redesign();
}

void StripBiquad::setEnabled(bool enabled)
{
    if (enabled == enabled_) return;
    enabled_ = enabled;
    resetState();
}

void StripBiquad::setSoftLimit(bool on)
{
    softLimit_ = on;
    updateSoftLimitFactor();
}

void StripBiquad::setSoftLimitAmount(double thousandths)
{
    softLimitAmount_ = thousandths * kSoftLimitScale;
    updateSoftLimitFactor();
}

void StripBiquad::resetState()
{
    history_ = {};
    glide_.snap();
}

void StripBiquad::runBlock(double* buffer, int count)
{
    if (count <= 0 || settings_.kind == StripBiquadKind::None) return;
    if (!enabled_) {
        history_ = {};
        return;
    }
    BiquadHistory history = history_; // a local stays in registers
    for (int i = 0; i < count; ++i) {
        const double x0 = std::isnan(buffer[i]) ? 0.0 : buffer[i];
        double y = recursion(x0, glide_.advance(), history);
        if (std::isnan(y)) y = 0.0; // unlike the sample form, the block form leaves the older output
        shift(history, x0, y);
        buffer[i] = y;
    }
    history_ = history;
}

void StripBiquad::redesign()
{
    updateSoftLimitFactor();
    glide_.aim(enabled_ ? designBiquad(settings_) : BiquadCoefficients{});
}

// Depends on settings alone, so it's worked out here and not per sample; a pow only while the limit is on.
void StripBiquad::updateSoftLimitFactor()
{
    if (!softLimit_) return;
    const double rate = settings_.sampleRate;
    softLimitFactor_ = 2.0 * (kReferenceRate / rate) * softLimitAmount_ * (2.0 * settings_.frequency / rate) /
                       std::pow(settings_.q, 0.75);
}

} // namespace velmora
