#pragma once

#include "dsp/flush.h"
#include "modules/compressor/fet_detector.h"
#include "modules/compressor/opto_detector.h"
#include "modules/compressor/vca_detector.h"
#include "params/laws/compressor_laws.h"

#include <algorithm>
#include <cmath>

/// The compressors sample by sample, as their laws read, with the library's functions.
namespace velmora::plain {

class Opto {
public:
    double process(double d, double threshold, double ratio, const OptoCoefficients& c)
    {
        level = flush((std::fabs(d * 0.794) - level) * c.levelCoefficient + level, 1e-15);
        const double p = std::pow(std::fabs(level * 1.4 * 1.1885) * threshold + 0.01, 2.0);
        if (p > power)
            power += (p - power) * c.optoAttack1;
        else
            power -= (power - p) * (power - p) * c.optoRelease1;
        power = flush(std::max(power, 0.0), 1e-18);
        if (power > cell)
            cell += (power - cell) * c.optoAttack2;
        else
            cell -= std::pow(cell - power, 1.4) * c.optoRelease2;
        cell = flush(std::max(cell, 0.0), 1e-18);
        return std::sqrt(std::pow(1.0 / (cell + 1.0), ratio));
    }

private:
    double level = 0.0;
    double power = kIdleEnvelope;
    double cell = kIdleEnvelope;
};

class Fet {
public:
    double process(double d, double threshold, double ratio, const FetCoefficients& c)
    {
        const double t = envelope * ratio * 0.5;
        const double u = 1.0 / (1.0 - (0.999 - t * 0.999 / (t + 1.0))) + 1.0;
        const double gain = u * 1.1 / (u + 100.0);
        const double p = std::fabs(d * 0.912 * 0.631 * 1.084 * gain * threshold) - 0.25;
        const double level = p > 0.0 ? p - std::tanh(p * 4.0) * 0.25 : 0.0;
        if (level > envelope) envelope += (level - envelope) * c.fetAttack;
        envelope = flush(envelope - envelope * c.fetRelease, 1e-18);
        return gain;
    }

private:
    double envelope = kIdleEnvelope;
};

class Vca {
public:
    double process(double d, double threshold, const VcaCoefficients& c)
    {
        const double level = std::fabs(d * 2.6 * 1.122 * 0.841 * 1.1) * threshold + 0.01;
        const double decades = level > 1.0 ? std::log10(level) : 0.0;
        const double p = decades - std::tanh(decades * 8.0) * 0.125;
        envelope += (p - envelope) * (p > envelope ? c.vcaAttack : c.vcaRelease);
        envelope = flush(envelope, 1e-18);
        return std::pow(10.0, -envelope * c.vcaRatio);
    }

private:
    double envelope = kIdleEnvelope;
};

/// Normalised values, 0..1.
struct CompressorValues {
    double attack, release, threshold, ratio, mix, makeup, highPass;
};

/// A compressor from key to output. It starts landed on its first values and glides to those set later.
class Compressor {
public:
    enum Variant { kOpto = 1, kFet, kVca };

    Compressor(int variant, const CompressorValues& values, double rate) : variant_(variant), rate_(rate)
    {
        set(values);
        now_ = target_;
        now_.fetRatio = fetResetRatio(values.ratio);
    }

    void set(const CompressorValues& v)
    {
        const CompressorTimes times = compressorTimes(v.attack, v.release, rate_);
        opto_ = optoCoefficients(times);
        fet_ = fetCoefficients(times);
        vca_ = vcaCoefficients(times, v.ratio);
        highPassStep_ = stepOfFrequency(compressor::highPassHz(v.highPass), rate_);
        target_ = {.threshold = std::pow(10.0, (1.0 - v.threshold) * 0.05 * 50.0) * 0.31623,
                   .makeup = std::pow(10.0, compressor::makeupDb(v.makeup) * 0.05),
                   .fetRatio = fetTarget(v.ratio),
                   .optoRatio = optoTarget(v.ratio),
                   .mix = v.mix};
    }

    double process(double input, double keyInput)
    {
        const double x = std::isnan(input) ? 0.0 : input;
        const double k = std::isnan(keyInput) ? 0.0 : keyInput;
        for (auto control : {&Controls::threshold, &Controls::makeup, &Controls::fetRatio,
                             &Controls::optoRatio, &Controls::mix})
            now_.*control = flush((target_.*control - now_.*control) * glideStep_ + now_.*control, 1e-16);
        low_ = flush((k - low_) * highPassStep_ + low_, 1e-18);
        const double wet = flush(gain(k - low_) * x * now_.makeup, 1e-16);
        return wet * now_.mix + (1.0 - now_.mix) * x;
    }

private:
    struct Controls {
        double threshold, makeup, fetRatio, optoRatio, mix;
    };

    double gain(double d)
    {
        if (variant_ == kOpto) return optoDetector_.process(d, now_.threshold, now_.optoRatio, opto_);
        if (variant_ == kFet) return fetDetector_.process(d, target_.threshold, now_.fetRatio, fet_);
        return vcaDetector_.process(d, now_.threshold, vca_);
    }

    int variant_;
    double rate_;
    OptoCoefficients opto_;
    FetCoefficients fet_;
    VcaCoefficients vca_;
    double glideStep_ = stepOfFrequency(10.0, rate_);
    double highPassStep_ = 0.0;
    Controls target_{};
    Controls now_{};
    double low_ = 0.0;
    Opto optoDetector_;
    Fet fetDetector_;
    Vca vcaDetector_;
};

} // namespace velmora::plain
