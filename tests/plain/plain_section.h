#pragma once

#include "dsp/coefficient_glide.h"
#include "dsp/flush.h"

#include <algorithm>
#include <cmath>

namespace velmora::plain {

/// `StripBiquad` without haste: every setter designs at once, every sample asks everything again.
class Section {
public:
    explicit Section(const BiquadSettings& settings = {}) : settings_(settings)
    {
        glide_.init(static_cast<std::uint32_t>(settings.sampleRate * 0.06));
    }

    void setKind(std::int32_t kind)
    {
        settings_.kind = static_cast<StripBiquadKind>(kind < 0 || kind > 10 ? 0 : kind);
        design();
    }
    void setFrequency(double hz)
    {
        settings_.frequency = std::clamp(hz, 0.001, settings_.sampleRate);
        design();
    }
    void setQ(double q)
    {
        settings_.q = std::clamp(q, 0.0001, 1000.0);
        design();
    }
    void setGainDb(double db)
    {
        settings_.gainDb = std::clamp(db, -1000.0, 1000.0);
        design();
    }
    void setDesign(StripBiquadKind kind, double hz, double q, double db)
    {
        setKind(static_cast<std::int32_t>(kind));
        setFrequency(hz);
        setQ(q);
        setGainDb(db);
    }
    void setSampleRate(double hz)
    {
        settings_.sampleRate = std::clamp(hz, 44100.0, 384000.0);
        design();
    }
    void setEnabled(bool enabled)
    {
        if (enabled == enabled_) return;
        enabled_ = enabled;
        resetState();
    }
    void setSoftLimit(bool on) { softLimit_ = on; }
    void setSoftLimitAmount(double thousandths) { amount_ = thousandths * 0.001; }
    void resetState()
    {
        x1_ = x2_ = y1_ = y2_ = 0.0;
        glide_.snap();
    }
    void snapToTarget() { glide_.snap(); }
    void snapCoefficients() { glide_.snapCoefficients(); }
    void setTargetCoefficients(const BiquadCoefficients& target) { glide_.setTarget(target); }

    double runSample(double x) { return runs() ? step(x, glide_.advance(), true) : x; }
    double runSampleFixed(double x) { return step(x, glide_.target(), true); }
    void runBlock(double* buffer, int count)
    {
        for (int i = 0; i < count; ++i)
            if (runs()) buffer[i] = step(buffer[i], glide_.advance(), false);
    }

    const CoefficientGlide& glide() const { return glide_; }
    double lastOutput() const { return y1_; }

private:
    void design() { glide_.aim(enabled_ ? designBiquad(settings_) : BiquadCoefficients{}); }

    bool runs()
    {
        if (settings_.kind == StripBiquadKind::None) return false;
        if (!enabled_) x1_ = x2_ = y1_ = y2_ = 0.0;
        return enabled_;
    }

    double step(double x, const BiquadCoefficients& c, bool dropsOlder)
    {
        const double x0 = std::isnan(x) ? 0.0 : x;
        double y = c.b0 * x0 + c.b1 * x1_ + c.b2 * x2_ - c.a1 * y1_ - c.a2 * y2_;
        if (softLimit_) {
            const double rate = settings_.sampleRate;
            const double factor = 2.0 * (44100.0 / rate) * amount_ * (2.0 * settings_.frequency / rate) /
                                  std::pow(settings_.q, 0.75);
            y = y / (std::fabs(y) * factor + 1.0);
        }
        y = flush(y, 1e-30);
        if (std::isnan(y)) {
            y = 0.0;
            if (dropsOlder) y1_ = 0.0;
        }
        x2_ = x1_;
        x1_ = x0;
        y2_ = y1_;
        y1_ = y;
        return y;
    }

    BiquadSettings settings_;
    bool enabled_ = false;
    bool softLimit_ = false;
    double amount_ = 0.001;
    CoefficientGlide glide_;
    double x1_ = 0.0, x2_ = 0.0;
    double y1_ = 0.0, y2_ = 0.0;
};

} // namespace velmora::plain
