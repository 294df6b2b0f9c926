#pragma once

#include "dsp/flush.h"

namespace velmora {

/// Side-chain high-pass: the key less its one-pole low-pass.
class KeyHighPass {
public:
    void reset() { highPassState = 0.0; }

    double process(double k, double hpCoefficient)
    {
        highPassState = flush((k - highPassState) * hpCoefficient + highPassState, kFlush);
        return k - highPassState;
    }

private:
    static constexpr double kFlush = 1e-18;

    double highPassState = 0.0;
};

} // namespace velmora
