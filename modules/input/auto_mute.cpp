#include "modules/input/auto_mute.h"

#include "dsp/flush.h"
#include "dsp/run_in_step.h"
#include "dsp/run_widest.h"

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

/// Whole part of 0 and more, as the low bits of each lane.
template <typename V>
VELMORA_KERNEL MaskOf<V> wholePart(const V& v)
{
    constexpr double kOnes = 0x1p52; // added to it, a value is rounded to ones, which are its lowest bits
    const V rounded = (v + kOnes) - kOnes;
    return bitsOf<V>(rounded - keepWhere<V>(rounded > v, allLanes<V>(1.0)) + kOnes);
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

void AutoMute::run(RailBlock& levels, int count, NoiseGenerator& taps)
{
    runWidest([&](auto width)
                  VELMORA_KERNEL_LAMBDA { runBlock<Lanes<decltype(width)::value>>(levels, count, taps); });
}

template <typename V>
VELMORA_KERNEL void AutoMute::runBlock(RailBlock& levels, int count, NoiseGenerator& taps)
{
    DrawnValues<kTaps * kPiece> drawn;
    taps.drawAhead<V>(drawn, kTaps * static_cast<std::size_t>(count));
    alignas(64) std::array<Ages, kPiece> ages;
    const auto putTogether = [&](std::size_t i) VELMORA_KERNEL_LAMBDA {
        for (std::size_t tap = 0; tap < kTaps; tap += 8) drawn.eightAt((kTaps * i + tap) / 8, &ages[i][tap]);
    };
    // Few samples need taps while the noise is open. While it isn't all do, and taken ahead they hold nothing
    // up; nor does a vector wait for the single words that it loads.
    const bool ahead = muteEnvelope_ < kThreshold;
    for (std::size_t i = 0; ahead && i < static_cast<std::size_t>(count); ++i) putTogether(i);
    for (std::size_t i = 0; ahead && i < static_cast<std::size_t>(count); ++i) toAges<V>(ages[i]);

    const auto follow = [attack = muteAttack_, release = muteRelease_](double state,
                                                                       double input) VELMORA_KERNEL_LAMBDA {
        return flush(state + (input - state) * (input > state ? attack : release), kFlush);
    };
    double envelope = muteEnvelope_;
    std::array<double, 3> states = muteFollow_;
    runInStep(
        count,
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA {
            muteIndex_ = (muteIndex_ - 1) & kHistoryMask;
            muteHistory_[muteIndex_] = levels[i];
            lowestWritten_ = std::min(lowestWritten_, muteIndex_);
            double next = follow(envelope, levels[i]);
            // The past can only raise it, and above the threshold it makes no difference.
            if (!(next > kThreshold)) {
                if (!ahead) {
                    putTogether(i);
                    toAges<V>(ages[i]);
                }
                next = follow(envelope, windowMaximum(levels[i], ages[i]));
            }
            envelope = next > kThreshold ? kThreshold : next;
            levels[i] = envelope / (kThreshold + 0.0000001);
        },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA { levels[i] = states[0] = follow(states[0], levels[i]); },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA { levels[i] = states[1] = follow(states[1], levels[i]); },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA { levels[i] = states[2] = follow(states[2], levels[i]); });
    muteEnvelope_ = envelope;
    muteFollow_ = states;
}

// In place, of the words of the taps' generator.
template <typename V>
VELMORA_KERNEL void AutoMute::toAges(Ages& words) const
{
    for (std::size_t tap = 0; tap < kTaps; tap += kLaneCount<V>) {
        MaskOf<V> w;
        __builtin_memcpy(&w, &words[tap], sizeof w);
        w = wholePart<V>(unitOf<V>(w) * sampleRate_ * kWindow);
        __builtin_memcpy(&words[tap], &w, sizeof w);
    }
}

VELMORA_KERNEL double AutoMute::windowMaximum(double level, const Ages& ages) const
{
    std::array<double, 4> highest{level, level, level, level}; // four maxima don't wait for each other
    for (std::size_t tap = 0; tap < kTaps; ++tap) {
        const std::uint32_t slot = (static_cast<std::uint32_t>(ages[tap]) + muteIndex_) & kHistoryMask;
        const double past = slot >= lowestWritten_ ? muteHistory_[slot] : 0.0;
        highest[tap % 4] = std::max(highest[tap % 4], past);
    }
    return std::max(std::max(highest[0], highest[1]), std::max(highest[2], highest[3]));
}

} // namespace velmora::preamp
