#include "modules/input/auto_mute.h"

#include "dsp/flush.h"

#include <algorithm>
#include <cmath>

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

// Not a page of the ring is touched before the mute is used; calloc would clear what it gets from freed
// memory.
AutoMute::AutoMute() : muteHistory_(new double[kHistorySize])
{
    muteHistory_[kHistoryMask] = 0.0;
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
    lowestWritten_ = std::min(lowestWritten_, muteIndex_);
    for (int tap = 0; tap < kTaps; ++tap) {
        const auto age = static_cast<std::uint32_t>(taps.next() * sampleRate_ * kWindow);
        const std::uint32_t slot = (age + muteIndex_) & kHistoryMask;
        if (slot >= lowestWritten_ && muteHistory_[slot] > level) level = muteHistory_[slot];
    }
    return level;
}

double AutoMute::follow(double state, double input) const
{
    return flush(state + (input - state) * (input > state ? muteAttack_ : muteRelease_), kFlush);
}

} // namespace velmora::preamp
