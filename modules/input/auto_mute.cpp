#include "modules/input/auto_mute.h"

#include "dsp/flush.h"

#include <cmath>
#include <new>

namespace velmora::preamp {

namespace {

constexpr double kAttackSeconds = 0.05;
constexpr double kReleaseSeconds = 0.15;
constexpr double kTurn = 6.283;
constexpr double kStartEnvelope = 0.01;
constexpr double kStartFollower = 1e-7;

double followRate(double seconds, double sampleRate)
{
    return 1.0 - std::exp(-kTurn / (sampleRate * seconds));
}

} // namespace

// calloc hands out pages that cost nothing until they are written.
AutoMute::AutoMute() : muteHistory_(static_cast<double*>(std::calloc(kHistorySize, sizeof(double))))
{
    if (!muteHistory_) throw std::bad_alloc();
}

void AutoMute::reset(double sampleRate)
{
    sampleRate_ = sampleRate;
    muteIndex_ = kHistoryMask;
    muteAttack_ = followRate(kAttackSeconds, sampleRate);
    muteRelease_ = followRate(kReleaseSeconds, sampleRate);
    muteEnvelope_ = kStartEnvelope;
    muteFollow_.fill(kStartFollower);
}

double AutoMute::windowMaximum(double level, NoiseGenerator& taps)
{
    muteIndex_ = (muteIndex_ - 1) & kHistoryMask;
    muteHistory_[muteIndex_] = level;
    for (int tap = 0; tap < kTaps; ++tap) {
        const auto age = static_cast<std::uint32_t>(taps.next() * sampleRate_ * kWindow);
        const double past = muteHistory_[(age + muteIndex_) & kHistoryMask];
        if (past > level) level = past;
    }
    return level;
}

double AutoMute::follow(double state, double input) const
{
    return flush(state + (input - state) * (input > state ? muteAttack_ : muteRelease_), kFlush);
}

} // namespace velmora::preamp
