#include "modules/limiter/opto_detector.h"

#include "dsp/flush.h"
#include "dsp/one_pole.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace velmora::limiter {

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;
constexpr double kReferenceRate = 44100.0;
constexpr double kReferenceKilohertz = 44.1;

constexpr double kCornerRiseHz = 4000.0;
constexpr double kCornerFallHz = 100.0;
constexpr double kHoldScale = 0.012;

constexpr double kPeakScale = 0.93;
constexpr double kHardFloor = 0.05; // the cell is never quite dark
constexpr double kSoftFloor = 0.01;
constexpr double kCellMinimum = 0.001;
constexpr double kFastestFall = 0.0333; // share of the distance to the level, per sample
constexpr double kFlush = 1e-15;
constexpr double kPeakFlush = 1e-30; // sixteen digits below the floor: keeps denormals out of silence
constexpr double kGainGuard = 1e-6;

// Share per sample of a low-pass of that cutoff.
double cutoffRate(double hz, double sampleRate)
{
    return 1.0 - std::exp(-kTwoPi * hz / sampleRate);
}

double gainAt(double t, bool soft)
{
    if (soft) return std::tanh(t) / t;
    return t > 1.0 ? 1.0 / t : 1.0;
}

} // namespace

void OptoDetector::setSampleRate(double sampleRate)
{
    cornerRise = cutoffRate(kCornerRiseHz, sampleRate);
    cornerFall = cutoffRate(kCornerFallHz, sampleRate);
}

double OptoDetector::setAttack(double norm, double sampleRate)
{
    // The rate is set at the middle of the travel and scales from there with 1 / time and 1 / rate.
    const double middleMs = std::sqrt(1000.0) * 0.1 * 0.33;
    const double middleRate = 1.0 - std::pow(kRateResidue, 1.0 / (middleMs * kReferenceKilohertz));
    const double ms = 0.1 * 4.0 * 0.33 * std::pow(10000.0, norm);
    optoAttackRate = middleRate * (middleMs / ms) * (kReferenceRate / sampleRate);
    return ms;
}

double OptoDetector::setRelease(double norm, double sampleRate)
{
    const double ms = 3.5 * std::pow(1000.0, norm);
    optoHoldRate = 1.0 - std::exp(-kTwoPi / (std::sqrt(ms * 0.001) * sampleRate * kHoldScale));
    optoReleaseRate = onePoleRate(ms * 0.001, sampleRate);
    return ms;
}

void OptoDetector::reset()
{
    optoPeak = optoCell = optoHold = optoLevel = 0.0;
}

inline void OptoDetector::followPeak(double magnitude)
{
    if (magnitude > optoPeak)
        optoPeak = magnitude;
    else
        optoPeak = flush(optoPeak + (magnitude - optoPeak) * optoHoldRate, kPeakFlush);
}

// Falling, the cell slows down as it nears its level: the fourth power makes the long tail.
inline void OptoDetector::moveCell(double level, bool soft)
{
    const double distance = level - optoCell;
    if (distance > 0.0) {
        optoCell += distance * optoAttackRate;
    } else if (distance < 0.0) {
        const double rest = (soft ? 0.999 * level + 0.001 : 0.5 * level + 0.5) - optoCell;
        const double square = rest * rest;
        const double tail = std::atan(square * square * optoReleaseRate * 4.0) * 0.25 * 0.145;
        optoCell -= std::min(kFastestFall * -distance, tail);
    }
    optoCell = std::max(optoCell, kCellMinimum);
}

inline double OptoDetector::roundCorners()
{
    if (optoCell > optoHold)
        optoHold = optoCell;
    else
        optoHold += (optoCell - optoHold) * optoHoldRate;
    optoLevel += (optoHold - optoLevel) * (optoHold > optoLevel ? cornerRise : cornerFall);
    optoLevel = flush(optoLevel, kFlush);
    return optoLevel;
}

void OptoDetector::process(const double* detect, double* gains, int count, double ceilingInverse, bool soft)
{
    const double floorLevel = soft ? kSoftFloor : kHardFloor;
    OptoDetector local = *this; // the state stays in registers: stores to gains can't alias it
    for (int i = 0; i < count; ++i) {
        local.followPeak(std::fabs(detect[i]) * kPeakScale);
        local.moveCell(local.optoPeak * ceilingInverse + floorLevel, soft);
        gains[i] = gainAt(local.roundCorners() + kGainGuard, soft);
    }
    *this = local;
}

} // namespace velmora::limiter
