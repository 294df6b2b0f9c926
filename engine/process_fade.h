#pragma once

#include <algorithm>
#include <cstdint>

namespace velmora {

/// Cross-fade between the dry and the processed signal while processing is switched; 1/240 second long at
/// every rate. A new switch starts from the end value, not from the current gain. The running flag falls
/// only in `finishBlock`, at the end of a host block.
class ProcessFade {
public:
    void setSampleRate(double hz) { fadeStep = (48000.0 / hz) * 0.005; }

    /// Processed signal alone, nothing running.
    void clear()
    {
        fadeIn = fadeOut = false;
        fadeGain = 1.0;
    }
    void startIn()
    {
        fadeIn = true;
        fadeOut = false;
        fadeGain = 0.0;
    }
    void startOut()
    {
        fadeIn = false;
        fadeOut = true;
        fadeGain = 1.0;
    }
    void start(bool in) { in ? startIn() : startOut(); }

    bool running() const { return fadeIn || fadeOut; }
    bool fadingOut() const { return fadeOut; }

    /// Blends two processed channels in place with their dry copies.
    void blend(double* left, double* right, const double* dryLeft, const double* dryRight,
               std::int32_t frames)
    {
        const double step = fadeOut ? -fadeStep : fadeStep;
        double gain = fadeGain;
        for (std::int32_t i = 0; i < frames; ++i) {
            gain = std::clamp(gain + step, 0.0, 1.0);
            left[i] = gain * left[i] + (1.0 - gain) * dryLeft[i];
            right[i] = gain * right[i] + (1.0 - gain) * dryRight[i];
        }
        fadeGain = gain;
    }

    /// Ends a fade whose gain has arrived.
    void finishBlock()
    {
        if (fadeOut && fadeGain <= 0.0) fadeOut = false;
        if (fadeIn && fadeGain >= 1.0) fadeIn = false;
    }

private:
    bool fadeIn = false;
    bool fadeOut = false;
    double fadeGain = 1.0; ///< weight of the processed signal, 0..1
    double fadeStep = 0.0; ///< change of the gain per sample
};

} // namespace velmora
