#pragma once

#include <cmath>

namespace velmora {

/// One-pole envelope over a block whose falling coefficient is the square root of the rising one, so that it
/// drops fast and recovers slowly. Reads the block, keeps the last value, writes nothing back.
class RiseFallFollower {
public:
    void setRiseCoefficient(double c) { riseCoefficient_ = c; } ///< @range 0..1 per sample
    void reset(double value) { envelope_ = value; }
    double value() const { return envelope_; }

    void process(const double* block, int count)
    {
        const double rise = riseCoefficient_;
        const double fall = std::sqrt(riseCoefficient_);
        double env = envelope_;
        for (int i = 0; i < count; ++i) {
            const double v = block[i];
            env += (v - env) * (env > v ? fall : rise);
        }
        envelope_ = env;
    }

private:
    double envelope_ = 0.0;
    double riseCoefficient_ = 1.0;
};

} // namespace velmora
