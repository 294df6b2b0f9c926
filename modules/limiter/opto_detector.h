#pragma once

#include "dsp/flush.h"
#include "dsp/lanes.h"
#include "modules/limiter/exact_gain.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace velmora::limiter {

/// Per-sample shares of the optical-style detector.
struct OptoRates {
    double attack = 0.0;
    double hold = 0.0; ///< well below 1
    double release = 0.0;
    double cornerRise = 0.0;
    double cornerFall = 0.0;

    /// Rates of the corner filter. @param sampleRate Hz
    void setSampleRate(double sampleRate);
    /// @param norm 0..1 for 0.132..1320 ms
    void setAttack(double norm, double sampleRate);
    /// @param norm 0..1 for 3.5..3500 ms
    void setRelease(double norm, double sampleRate);
};

/// Level detector and gain computer of the optical-style limiter: a held peak lights a cell that follows fast
/// and lets go ever more slowly; a corner filter rounds what the cell does to the gain.
class OptoDetector {
public:
    OptoRates rates;

    /// Dark and at rest.
    void reset() { optoPeak = optoCell = optoHold = optoLevel = 0.0; }
    /// Puts the cell and what follows it at a level; the peak and the hold stay.
    void restart(double level) { optoCell = optoLevel = level; }

    /// Works out a gain for each detector sample.
    /// @param key gives the detector sample of an index. The falling cell is a long chain, and what the key
    /// takes runs beside it for nothing.
    /// @param gains room for a whole number of vectors
    /// @param ceilingInverse 1 / ceiling, linear
    template <typename V, typename Key>
    VELMORA_KERNEL void process(Key key, double* gains, std::size_t count, double ceilingInverse, bool soft);

private:
    VELMORA_KERNEL void followPeak(double magnitude);
    VELMORA_KERNEL void moveCell(double level, bool soft);
    VELMORA_KERNEL double fallenCell(double level, double distance, bool soft) const;
    VELMORA_KERNEL double roundCorners();
    static VELMORA_KERNEL double arcTangent(double x);

    // Level relative to the ceiling, but for the peak, which is absolute.
    double optoPeak = 0.0;
    double optoCell = 0.0;
    double optoHold = 0.0;
    double optoLevel = 0.0;
};

// A fall by a share below 1 ends above the magnitude that it falls to, so the higher of both applies. So it
// is with the hold below.
inline void OptoDetector::followPeak(double magnitude)
{
    constexpr double kFlush = 1e-30; // sixteen digits below the floor: keeps denormals out of silence
    optoPeak = std::max(flush(optoPeak + (magnitude - optoPeak) * rates.hold, kFlush), magnitude);
}

// Most often the cell is close to its level and the argument small: there a short series, summed in pairs,
// stands in for libm's longer chain. It is good to the last place, but need not have libm's bits.
inline double OptoDetector::arcTangent(double x)
{
    constexpr double kSeriesEnd = 0x1p-5;
    if (!(x < kSeriesEnd)) return std::atan(x);
    const double u = x * x;
    const double tail =
        (1.0 / 3.0 - u * (1.0 / 5.0)) + (u * u) * ((1.0 / 7.0 - u * (1.0 / 9.0)) + (u * u) * (1.0 / 11.0));
    return x - (x * u) * tail;
}

// Falling, the cell slows down as it nears its level: the fourth power makes the long tail. A step is a small
// part of the cell, so nearly always both ends of the series' error lead to the same cell; else libm decides.
inline double OptoDetector::fallenCell(double level, double distance, bool soft) const
{
    constexpr double kFastestFall = 0.0333; // share of the distance to the level, per sample
    constexpr double kTailScale = 0.25 * 0.145;
    constexpr double kError = 0x1p-49;
    const double rest = (soft ? 0.999 * level + 0.001 : 0.5 * level + 0.5) - optoCell;
    const double square = rest * rest;
    const double x = square * square * (rates.release * 4.0);
    const double tail = arcTangent(x) * kTailScale;
    const double fastest = kFastestFall * -distance;
    const double error = tail * kError;
    if (optoCell - std::min(fastest, tail - error) == optoCell - std::min(fastest, tail + error)) [[likely]]
        return optoCell - std::min(fastest, tail);
    return optoCell - std::min(fastest, std::atan(x) * kTailScale);
}

// Rising and falling take turns seldom enough for a branch, and a rising cell needn't wait for the arc
// tangent.
inline void OptoDetector::moveCell(double level, bool soft)
{
    constexpr double kCellMinimum = 0.001;
    const double distance = level - optoCell;
    if (distance > 0.0)
        optoCell += distance * rates.attack;
    else if (distance < 0.0)
        optoCell = fallenCell(level, distance, soft);
    optoCell = std::max(optoCell, kCellMinimum);
}

inline double OptoDetector::roundCorners()
{
    constexpr double kFlush = 1e-15;
    optoHold = std::max(optoHold + (optoCell - optoHold) * rates.hold, optoCell);
    optoLevel += (optoHold - optoLevel) * (optoHold > optoLevel ? rates.cornerRise : rates.cornerFall);
    return optoLevel = flush(optoLevel, kFlush);
}

template <typename V, typename Key>
inline void OptoDetector::process(Key key, double* gains, std::size_t count, double ceilingInverse, bool soft)
{
    constexpr double kPeakScale = 0.93;
    constexpr double kHardFloor = 0.05; // the cell is never quite dark
    constexpr double kSoftFloor = 0.01;
    constexpr double kGainGuard = 1e-6;
    OptoDetector local = *this; // the state stays in registers: stores to gains can't alias it
    const double floorLevel = soft ? kSoftFloor : kHardFloor;
    for (std::size_t i = 0; i < count; ++i) {
        local.followPeak(std::fabs(key(i)) * kPeakScale);
        local.moveCell(local.optoPeak * ceilingInverse + floorLevel, soft);
        gains[i] = local.roundCorners() + kGainGuard;
    }
    *this = local;
    if (soft)
        softGains<V>(gains, count, 0.0);
    else
        hardGains<V>(gains, count);
}

} // namespace velmora::limiter
