#include "modules/filters/strip_filter_section.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr double kStartRate = 44100.0;
constexpr double kMaxRate = 384000.0;
constexpr std::uint32_t kGlideSamples = 2646; // 60 ms at the start rate
constexpr double kMinFrequency = 0.001;
constexpr double kMinQ = 0.0001;
constexpr double kMaxQ = 1000.0;
constexpr double kMaxGainDb = 1000.0;
constexpr double kTwoPi = 6.283; // the one-poles are tuned with these digits

} // namespace

StripFilterSection::StripFilterSection(StripBiquadKind kind, double frequency, double q)
    : settings_{kind, frequency, q, 0.0, kStartRate}
{
    glide_.init(kGlideSamples);
}

void StripFilterSection::setKind(StripBiquadKind kind)
{
    settings_.kind = kind;
    stale_ = true;
}

void StripFilterSection::setFrequency(double hz)
{
    setFrequencyAndQ(hz, settings_.q);
}

void StripFilterSection::setQ(double q)
{
    settings_.q = std::clamp(q, kMinQ, kMaxQ);
    stale_ = true;
}

void StripFilterSection::setFrequencyAndQ(double hz, double q)
{
    settings_.frequency = std::clamp(hz, kMinFrequency, settings_.sampleRate);
    setQ(q);
}

void StripFilterSection::setGainDb(double db)
{
    settings_.gainDb = std::clamp(db, -kMaxGainDb, kMaxGainDb);
    stale_ = true;
}

void StripFilterSection::setSampleRate(double hz)
{
    settings_.sampleRate = std::clamp(hz, kStartRate, kMaxRate);
    stale_ = true;
}

void StripFilterSection::setEnabled(bool enabled)
{
    if (enabled == enabled_) return;
    enabled_ = enabled;
    resetState();
}

void StripFilterSection::resetState()
{
    settle();
    history_ = {};
    glide_.snap();
    onePole_ = onePoleTarget_;
}

void StripFilterSection::redesign()
{
    stale_ = false;
    if (isOnePole()) {
        onePoleTarget_ = 1.0 - std::exp(settings_.frequency * -kTwoPi / settings_.sampleRate);
        glide_.aim({}); // only its count matters
    } else {
        glide_.aim(designBiquad(settings_));
    }
}

} // namespace velmora
