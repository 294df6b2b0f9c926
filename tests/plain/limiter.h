#pragma once

#include "dsp/one_pole.h"
#include "tests/plain/rise_fall_follower.h"
#include "dsp/strip_biquad.h"
#include "modules/limiter/brickwall_detector.h"
#include "modules/limiter/glided_gain.h"
#include "modules/limiter/limiter_window.h"
#include "modules/limiter/opto_detector.h"
#include "modules/limiter/vca_detector.h"
#include "params/laws/limiter_laws.h"
#include "tests/plain/level_detector.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora::plain {

/// The limiter sample by sample, with libm and the sections of the strip: what the fast module must sound
/// like. One variant each; controls are set as on the module, by offset and normalised value.
class Limiter {
public:
    Limiter(std::int32_t variant, double sampleRate) : type(variant), rate(sampleRate)
    {
        start(highPass, StripBiquadKind::HighPass, 1.0);
        start(sidePre, StripBiquadKind::LowShelf, -20.0);
        start(audioPre, StripBiquadKind::LowShelf, -20.0);
        start(audioPost, StripBiquadKind::LowShelf, 20.0);
        opto.setSampleRate(rate);
    }

    void set(ParameterId offset, double value)
    {
        using namespace limiter;
        switch (offset) {
        case kAttackOffset:
            attack = value;
            break;
        case kReleaseOffset:
            release = value;
            break;
        case kCeilingOffset:
            ceiling.setTarget(std::pow(10.0, -ceilingDb(value) / 20.0));
            break;
        case kOutputOffset:
            output.setTarget(std::pow(10.0, outputDb(value) / 20.0));
            break;
        case kHighPassOffset:
            setHighPass(std::clamp(highPassHz(value), 10.0, 1000.0));
            break;
        case kSoftOffset:
            soft = value >= 0.5;
            break;
        case kModeOffset:
        case kShapeOffset:
            choice = static_cast<int>(value * 10.0 + 0.5);
            break;
        case kSmoothOffset:
            smooth = value;
            break;
        default:
            break;
        }
        updateRates();
        if (offset == kAttackOffset || offset == kSmoothOffset) vca.setAttack(attack, release, rate);
        if (offset == kReleaseOffset) vca.setRelease(attack, release, rate);
    }

    /// Lands on the targets and forgets what went by.
    void reset()
    {
        ceiling.snap();
        output.snap();
        for (StripBiquad* section : {&highPass, &sidePre, &audioPre, &audioPost}) section->resetState();
        peak = cell = hold = level = env[0] = env[1] = env[2] = 0.0; // the VCA's followers outlive it
        reduction.reset(0.0);
        vca.setAttack(attack, release, rate);
        vca.setRelease(attack, release, rate);
    }

    /// Up to a chunk in place; the key is overwritten.
    void process(double* audio, double* key, int count)
    {
        const double share = limiter::GlidedGain::chunkRate(rate);
        output.step(share);
        ceiling.step(share);
        for (int i = 0; i < count; ++i) in.process(audio[i], meterRates);
        std::array<double, limiter::kChunk> gains;
        for (int i = 0; i < count; ++i) {
            if (type == limiter::kSaturator) {
                key[i] = sidePre.runSample(key[i]);
                audio[i] = audioPre.runSample(audio[i]);
            }
        }
        if (highPassOn && (type == limiter::kOpto || type == limiter::kVca)) highPass.runBlock(key, count);
        for (int i = 0; i < count; ++i) gains[static_cast<unsigned>(i)] = gainOf(std::fabs(key[i]));
        for (int i = 0; i < count; ++i) {
            const double y = gains[static_cast<unsigned>(i)] * audio[i];
            audio[i] = (type == limiter::kSaturator ? audioPost.runSample(y) : y) * output.value();
            out.process(audio[i], meterRates);
        }
        reduction.process(gains.data(), count);
    }

private:
    void start(StripBiquad& section, StripBiquadKind kind, double db)
    {
        section.initStripBiquad(44100.0, kind, 10.0, 0.5, db);
        section.setEnabled(true);
        section.setSampleRate(rate);
    }

    void setHighPass(double hz)
    {
        highPassOn = hz > 10.0;
        highPass.setFrequency(hz);
        for (StripBiquad* shelf : {&sidePre, &audioPre, &audioPost}) shelf->setFrequency(hz / 2.6);
    }

    void updateRates()
    {
        opto.setAttack(attack, rate);
        opto.setRelease(release, rate);
        wall = limiter::BrickWallRates::of(std::clamp(limiter::releaseMs(release), 10.0, 1000.0), rate);
        const double samples = std::pow(200.0, std::sqrt(smooth)) * 0.025 * 0.001 * 1.2 * 1.4 * rate;
        single = 1.0 - std::exp(-6.1415 / samples);
        cascade = 1.0 - std::exp(-6.1415 / (0.333 * samples));
        reduction.setRiseCoefficient((type == limiter::kSaturator ? 0.9 : 1.0) *
                                     onePoleRate(0.3f, rate, 0.109));
    }

    double gainOf(double magnitude)
    {
        switch (type) {
        case limiter::kOpto:
            return optoGain(magnitude * 0.93);
        case limiter::kVca:
            return vcaGain(magnitude * ceiling.value());
        case limiter::kBrickWall:
            return wallGain(magnitude * ceiling.value() + 0.01);
        default:
            return saturatorGain(magnitude * ceiling.value());
        }
    }

    double optoGain(double magnitude)
    {
        if (magnitude > peak)
            peak = magnitude;
        else
            peak = flush(peak + (magnitude - peak) * opto.hold, 1e-30);
        const double lit = peak * ceiling.value() + (soft ? 0.01 : 0.05);
        const double distance = lit - cell;
        if (distance > 0.0) {
            cell += distance * opto.attack;
        } else if (distance < 0.0) {
            const double rest = (soft ? 0.999 * lit + 0.001 : 0.5 * lit + 0.5) - cell;
            const double square = rest * rest;
            const double tail = std::atan(square * square * opto.release * 4.0) * 0.25 * 0.145;
            cell -= std::min(0.0333 * -distance, tail);
        }
        cell = std::max(cell, 0.001);
        if (cell > hold)
            hold = cell;
        else
            hold += (cell - hold) * opto.hold;
        level = flush(level + (hold - level) * (hold > level ? opto.cornerRise : opto.cornerFall), 1e-15);
        const double t = level + 1e-6;
        if (soft) return std::tanh(t) / t;
        return t > 1.0 ? 1.0 / t : 1.0;
    }

    double vcaGain(double magnitude)
    {
        const double x = std::log10(magnitude + 0.0001);
        fast += ((soft ? -1.299999952 : -0.800000012) - fast) * vca.fall;
        if (x > fast) fast += (x - fast) * vca.attack;
        if (fast > slow)
            slow = fast;
        else
            slow += (fast - slow) * vca.slow;
        const double t = std::pow(10.0, slow);
        if (soft) return t > 1e-5 ? std::tanh(t) / t : 1.0;
        return t + 1e-6 >= 1.0 ? 1.0 / (t + 1e-6) : 1.0;
    }

    static double riseOrFall(double from, double to, double share)
    {
        return to > from ? to : from + (to - from) * share;
    }

    double wallGain(double x)
    {
        if (choice == 0) {
            peak = riseOrFall(peak, x, wall.fastFall);
            const double distance = env[0] - peak;
            if (distance < 0.0)
                env[0] = peak;
            else
                env[0] -= std::min(0.25 * distance, distance * distance * wall.fall1);
            level = env[0];
        } else {
            peak += (0.1 - peak) * (choice == 1 ? wall.fastFall : wall.fall3);
            if (x > peak) peak = x;
            level = env[0] = riseOrFall(env[0], peak, choice == 1 ? wall.fall2 : wall.fall3);
        }
        if (choice == 2) {
            env[1] = riseOrFall(env[1], env[0], wall.fall3);
            level = env[2] = riseOrFall(env[2], env[1], wall.fall3);
        }
        const double t = level + 1e-6;
        if (!soft) return t >= 1.0 ? 1.0 / t : 1.0;
        const double u = 1.255 * t;
        return std::sqrt(std::atan(u * u)) / u;
    }

    double saturatorGain(double t)
    {
        for (int stage = 0; stage < (soft ? 1 : 3); ++stage)
            t = env[stage] = flush(env[stage] + (t - env[stage]) * (soft ? single : cascade), 1e-19);
        if (choice == 0) return 1.0 / (0.33 * std::sqrt(t) + 1.0);
        if (choice == 1) return 1.0 / (0.33 * t + 1.0);
        if (!(t > 1e-8)) return 1.0;
        if (choice == 2) return std::atan(t) / t;
        if (choice == 3) return std::tanh(t) / t;
        if (choice == 4) return std::sqrt(std::tanh(t * t)) / t;
        return std::pow(std::tanh(t * t * t * t), 0.25) / t;
    }

    std::int32_t type;
    double rate;
    double attack = 0.5, release = 0.5, smooth = 0.5;
    bool soft = false;
    int choice = 0;
    bool highPassOn = false;

    limiter::OptoRates opto;
    limiter::VcaRates vca;
    limiter::BrickWallRates wall;
    double single = 1.0, cascade = 1.0;
    limiter::GlidedGain ceiling, output;
    StripBiquad highPass, sidePre, audioPre, audioPost;
    double peak = 0.0, cell = 0.0, hold = 0.0, level = 0.0, fast = 1e-5, slow = 1e-5, env[3]{};

    LevelDetector in, out;
    LevelRates meterRates{0.02, 0.0002};
    RiseFallFollower reduction;
};

} // namespace velmora::plain
