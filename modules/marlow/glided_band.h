#pragma once

#include "dsp/flush.h"
#include "modules/marlow/instant_section.h"
#include "params/laws/special_laws.h"

#include <cmath>

namespace velmora {

/// One-pole step of the dynamic EQ's frequency, Q and indicator, per sample.
inline double marlowSmoothingStep(double sampleRate)
{
    return 1.0 - std::exp(-6.283 / (0.05 * sampleRate));
}

/// Frequency and Qs of the dynamic band, smoothed so that a move doesn't click.
class GlidedBand {
public:
    double freqTarget = marlow::frequencyHz(kMiddle); ///< Hz
    double qPeakTarget = marlow::peakQ(kMiddle);
    double qShelfTarget = marlow::shelfQ(kMiddle);

    /// Values of the block's samples.
    MarlowTrack freq{}, qPeak{}, qShelf{};

    void land()
    {
        freqNow = freqTarget;
        qPeakNow = qPeakTarget;
        qShelfNow = qShelfTarget;
        fill();
    }

    /// Goes on by a block. @param k step of one sample, 0..1.
    void advance(double k, std::size_t frames)
    {
        const bool rests = next(freqNow, freqTarget, k) == freqNow &&
                           next(qPeakNow, qPeakTarget, k) == qPeakNow &&
                           next(qShelfNow, qShelfTarget, k) == qShelfNow;
        if (rests) {
            if (!stands_) fill();
            return;
        }
        stands_ = false;
        for (std::size_t i = 0; i < frames; ++i) {
            freq[i] = freqNow = next(freqNow, freqTarget, k);
            qPeak[i] = qPeakNow = next(qPeakNow, qPeakTarget, k);
            qShelf[i] = qShelfNow = next(qShelfNow, qShelfTarget, k);
        }
    }

    /// Whether the values are the same throughout the block.
    bool stands() const { return stands_; }

private:
    static constexpr double kFlush = 1e-18;
    static constexpr double kMiddle = 0.5; ///< where the controls start

    static double next(double now, double target, double k)
    {
        return flush(now + (target - now) * k, kFlush);
    }

    void fill()
    {
        freq.fill(freqNow);
        qPeak.fill(qPeakNow);
        qShelf.fill(qShelfNow);
        stands_ = true;
    }

    double freqNow = freqTarget;
    double qPeakNow = qPeakTarget;
    double qShelfNow = qShelfTarget;
    bool stands_ = false;
};

} // namespace velmora
