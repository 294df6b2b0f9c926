#pragma once

#include "dsp/level_detector.h"
#include "dsp/level_memo.h"
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

    /// Whole blocks. @param memo of the rack that the meter stands in, or null.
    void processBlock(const double* x, std::int32_t frames, const LevelRates& rates,
                      LevelMemo* memo = nullptr)
    {
        if (memo != nullptr)
            memo->follow(left_, x, frames, rates);
        else
            left_.processBlock(x, frames, rates);
        reading_ = left_.level();
    }
    void processBlock(const double* left, const double* right, std::int32_t frames, const LevelRates& rates,
                      LevelMemo* memo = nullptr)
    {
        followTwo(left_, left, right_, right, frames, rates, memo);
        showHigher();
    }
    /// Two mono meters at once, for little more than one costs.
    static void processBlocks(LevelMeter& in, const double* x, LevelMeter& out, const double* y,
                              std::int32_t frames, const LevelRates& rates, LevelMemo* memo)
    {
        followTwo(in.left_, x, out.left_, y, frames, rates, memo);
        in.reading_ = in.left_.level();
        out.reading_ = out.left_.level();
    }
    /// The same for meters that hear one signal on both sides.
    static void processBothSides(LevelMeter& in, const double* x, LevelMeter& out, const double* y,
                                 std::int32_t frames, const LevelRates& rates, LevelMemo* memo)
    {
        const bool alike = in.left_ == in.right_ && out.left_ == out.right_;
        followTwo(in.left_, x, out.left_, y, frames, rates, memo);
        if (alike) {
            in.right_ = in.left_;
            out.right_ = out.left_;
        } else {
            followTwo(in.right_, x, out.right_, y, frames, rates, memo);
        }
        in.showHigher();
        out.showHigher();
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
    static void followTwo(LevelDetector& a, const double* xa, LevelDetector& b, const double* xb,
                          std::int32_t frames, const LevelRates& rates, LevelMemo* memo)
    {
        if (memo != nullptr)
            memo->follow(a, xa, b, xb, frames, rates);
        else
            LevelDetector::processBlocks(a, xa, b, xb, frames, rates);
    }
    void showHigher() { reading_ = left_.level() > right_.level() ? left_.level() : right_.level(); }

    LevelDetector left_;
    LevelDetector right_;
    MeterCell reading_;
};

} // namespace velmora
