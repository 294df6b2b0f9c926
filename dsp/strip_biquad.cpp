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
    stale_ = false;
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
    stale_ = true;
}

void StripBiquad::setFrequency(double hz)
{
    settings_.frequency = std::clamp(hz, kMinFrequency, settings_.sampleRate);
    stale_ = true;
}

void StripBiquad::setQ(double q)
{
    settings_.q = std::clamp(q, kMinQ, kMaxQ);
    stale_ = true;
}

void StripBiquad::setGainDb(double db)
{
    settings_.gainDb = std::clamp(db, -kMaxGainDb, kMaxGainDb);
    stale_ = true;
}

void StripBiquad::setDesign(StripBiquadKind kind, double hz, double q, double db)
{
    settings_.kind = kind;
    settings_.frequency = std::clamp(hz, kMinFrequency, settings_.sampleRate);
    settings_.q = std::clamp(q, kMinQ, kMaxQ);
    settings_.gainDb = std::clamp(db, -kMaxGainDb, kMaxGainDb);
    stale_ = true;
}

void StripBiquad::setSampleRate(double hz)
{
    settings_.sampleRate = std::clamp(hz, kReferenceRate, kMaxRate);
    stale_ = true;
}

void StripBiquad::setEnabled(bool enabled)
{
    if (enabled == enabled_) return;
    settle(); // its target depends on whether it was enabled then
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
    settle();
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
    settle();
    if (softLimit_)
        runSpan<true>(buffer, count);
    else
        runSpan<false>(buffer, count);
}

// The part that glides, then the part at rest, each with its state in locals.
template <bool softLimited>
void StripBiquad::runSpan(double* buffer, int count)
{
    BiquadHistory history = history_;
    const double factor = softLimitFactor_;
    const auto step = [&](double x0, const BiquadCoefficients& c) {
        double y = recursion<softLimited>(x0, c, history, factor);
        if (needsCare(y)) [[unlikely]] {
            y = carefully<softLimited>(x0, c, history, factor);
            if (std::isnan(y)) y = 0.0; // unlike the sample form, the block form leaves the older output
        }
        shift(history, x0, y);
        return y;
    };

    double* const end = buffer + count;
    const auto gliding = std::min(glide_.samplesLeft(), static_cast<std::uint32_t>(count));
    if (gliding != 0)
        glide_.advance(gliding, [&](const BiquadCoefficients& c) {
            *buffer = step(*buffer, c);
            ++buffer;
        });
    const BiquadCoefficients target = glide_.target();
    for (; buffer != end; ++buffer) *buffer = step(*buffer, target);
    history_ = history;
}

void StripBiquad::redesign() const
{
    stale_ = false;
    updateSoftLimitFactor();
    glide_.aim(enabled_ ? designBiquad(settings_) : BiquadCoefficients{});
}

// Depends on settings alone, so it's worked out here and not per sample; a pow only while the limit is on.
void StripBiquad::updateSoftLimitFactor() const
{
    if (!softLimit_) return;
    const double rate = settings_.sampleRate;
    softLimitFactor_ = 2.0 * (kReferenceRate / rate) * softLimitAmount_ * (2.0 * settings_.frequency / rate) /
                       std::pow(settings_.q, 0.75);
}

} // namespace velmora
