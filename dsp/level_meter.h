#pragma once

#include "dsp/level_detector.h"
#include "dsp/meter_cell.h"

#include <cstdint>

namespace velmora {

/// Rates of every level meter of the strip. @param sampleRate in Hz
LevelRates levelMeterRates(double sampleRate);

/// A module's level meter at its input or output: two detectors, and the reading that any thread may take.
/// The mono forms leave the right detector alone and show the left one, the others show the higher of both.
/// @unit reading linear, 1 is full scale.
class LevelMeter {
public:
    double reading() const { return reading_; }

    void reset()
    {
        left_.reset();
        right_.reset();
        reading_ = 0.0;
    }

    void process(double x, const LevelRates& rates)
    {
        left_.process(x, rates);
        reading_ = left_.level();
    }
    void process(double left, double right, const LevelRates& rates)
    {
        left_.process(left, rates);
        right_.process(right, rates);
        showHigher();
    }

    void processBlock(const double* x, std::int32_t frames, const LevelRates& rates)
    {
        left_.processBlock(x, frames, rates);
        reading_ = left_.level();
    }
    void processBlock(const double* left, const double* right, std::int32_t frames, const LevelRates& rates)
    {
        LevelDetector::processBlocks(left_, left, right_, right, frames, rates);
        showHigher();
    }

    bool standsWith(const LevelMeter& other) const { return left_ == other.left_ && right_ == other.right_; }
    /// Takes over the state of a meter that has seen the same signal.
    void follow(const LevelMeter& other)
    {
        left_ = other.left_;
        right_ = other.right_;
        showHigher();
    }

private:
    void showHigher() { reading_ = left_.level() > right_.level() ? left_.level() : right_.level(); }

    LevelDetector left_;
    LevelDetector right_;
    MeterCell reading_;
};

} // namespace velmora
