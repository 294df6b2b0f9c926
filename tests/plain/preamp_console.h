#pragma once

#include "dsp/flush.h"
#include "dsp/one_pole.h"
#include "dsp/strip_biquad.h"
#include "modules/input/component_spread.h"
#include "modules/input/console_emulation.h"
#include "modules/input/dc_blocker.h"
#include "modules/input/decade_constants.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

/// The console emulation as simple as it can be: rail by rail and sample by sample, each circuit as it is
/// drawn, on the strip's general sections and the functions of the C library.
namespace velmora::plain {

using namespace preamp;

inline double zeroIfNan(double v)
{
    return std::isnan(v) ? 0.0 : v;
}

inline double oneMinusExp(double w, double sampleRate)
{
    return 1.0 - std::exp(-w / sampleRate);
}

/// One step of each register at a time.
struct Generator {
    GeneratorWords w;

    double next()
    {
        w.a = ((((w.a >> 9) ^ w.a) >> 6) & 0x1fffu) ^ (w.a << 13);
        w.b = ((((w.b >> 2) ^ w.b) >> 7) & 0xfffffu) ^ (w.b << 20);
        w.c = ((((w.c >> 6) ^ w.c) >> 8) & 0x1ffffu) ^ (w.c << 17);
        return static_cast<double>(w.a ^ w.b ^ w.c) * 2.3283064365e-10;
    }
};

struct Mute {
    void reset(double hz)
    {
        rate = hz;
        index = 65535;
        attack = oneMinusExp(6.283, hz * 0.05);
        release = oneMinusExp(6.283, hz * 0.15);
        envelope = 0.01;
        followers.fill(1e-7);
    }
    double process(double level, Generator& taps)
    {
        index = (index - 1) & 65535;
        history[index] = level;
        for (int tap = 0; tap < 16; ++tap) {
            const auto age = static_cast<std::uint32_t>(taps.next() * rate * 0.15);
            level = std::max(level, history[(age + index) & 65535]);
        }
        envelope = std::min(follow(envelope, level), 0.001);
        double v = envelope / (0.001 + 0.0000001);
        for (double& follower : followers) v = follower = follow(follower, v);
        return v;
    }
    double follow(double state, double input) const
    {
        return flush(state + (input - state) * (input > state ? attack : release), 1e-30);
    }

    std::vector<double> history = std::vector<double>(65536);
    std::uint32_t index = 65535;
    double rate = 0.0, attack = 0.0, release = 0.0, envelope = 0.0;
    std::array<double, 3> followers{};
};

struct Tube {
    void setSampleRate(double hz)
    {
        attack = 1.0 - std::exp(-4.4427093 / (hz * 0.001));
        up = down = 1e-9;
        bendDown(-down);
        const double bent = std::tanh(std::pow(lowerSlope * 0.7071, shape) * root) / root;
        makeUp = 0.7071 / (std::pow(bent, 1.0 / shape) / lowerSlope);
    }
    double process(double x)
    {
        up += (std::max(x, 1e-9) - up) * attack;
        const double bentUp = std::atan(std::pow(upperSlope * up, shape) * root) / root;
        const double y = std::pow(bentUp, 1.0 / shape) / upperSlope / up * x;
        if (y < -1e-9) bendDown(y);
        return lowerGain * y * makeUp;
    }
    void bendDown(double y)
    {
        down -= (down + y) * attack;
        const double bentDown = std::tanh(std::pow(lowerSlope * down, shape) * root) / root;
        lowerGain = std::pow(bentDown, 1.0 / shape) / lowerSlope / down;
    }

    double shape = 8.0 / std::pow(16.0, 0.6), root = std::pow(shape, 0.125);
    double upperSlope = 1.22 - shape * 0.125, lowerSlope = 1.1 - shape * 0.125;
    double makeUp = 1.0, lowerGain = 1.0, attack = 0.0, up = 1e-9, down = 1e-9;
};

struct Rail {
    Generator generator;
    double noiseFilter = 0.0, slow = 0.0, harmonic = 0.0;
    Tube tube;
    StripBiquad tilt{StripBiquadKind::HighShelf}, hum1{StripBiquadKind::Peaking},
        hum2{StripBiquadKind::Peaking}, hum3{StripBiquadKind::Peaking},
        bandwidth{StripBiquadKind::OnePoleLowPass}, crosstalk{StripBiquadKind::BandPass},
        bump{StripBiquadKind::Peaking}, transformer;
    double x1 = 0.0, x2 = 0.0, x3 = 0.0; // of the converter
};

class Console {
public:
    explicit Console(std::int32_t instanceIndex) : spread(componentSpread(instanceIndex))
    {
        rails[0].generator.w = railSeeds(instanceIndex).left;
        rails[1].generator.w = railSeeds(instanceIndex).right;
        setSampleRate(44100.0);
    }

    void setSampleRate(double hz)
    {
        rate = hz;
        for (Rail& r : rails) r.tube.setSampleRate(hz);
        reset();
    }
    void reset()
    {
        noiseLevel = noiseLevelTarget;
        drive = driveTarget;
        for (Rail& r : rails) {
            r.noiseFilter = r.slow = r.harmonic = r.x1 = r.x2 = r.x3 = 0.0;
            for (StripBiquad* s : sections(r)) {
                s->setSampleRate(rate);
                s->resetState();
                s->setEnabled(true);
            }
            r.transformer.resetState();
            r.transformer.setTargetCoefficients(designDcBlocker(rate));
        }
        select(emulation);
        mute.reset(rate);
        saturation = 0.0;
    }
    void select(std::int32_t type)
    {
        emulation = type;
        noiseScale = std::sqrt(rate / 44100.0);
        if (type == kAdc90s) return;
        d = &decadeConstants(type);
        noiseScale *= d->noiseScale;
        noiseShare = oneMinusExp(d->noiseFilterW, rate);
        slowShare = oneMinusExp(d->stage1.slowW, rate);
        harmonicShare = oneMinusExp(d->harmonicW, rate);
        saturationC = std::pow(64.0, d->stage1.saturationA) / 16.0;
        bias = d->biased ? std::pow(256.0, std::sqrt(0.5)) / 256.0 * 0.0625 * 0.125 : 0.0;
        for (int i = 0; i < kRails; ++i) {
            Rail& r = rails[static_cast<unsigned>(i)];
            land(r.tilt, d->tiltFrequency, d->tiltQ,
                 d->tiltGainDb * std::sqrt(spread.factor(TolerancePair::T12, i)));
            landHum(r.hum1, d->hum1, i);
            landHum(r.hum2, d->hum2, i);
            landHum(r.hum3, d->hum3, i);
            land(r.bandwidth, d->bandwidthFrequency, 1.0, 0.0);
            land(r.crosstalk, d->crosstalkFrequency, d->crosstalkQ, 0.0);
            land(r.bump, d->bumpFrequency, d->bumpQ, d->bumpGainDb);
        }
    }
    void setDrive(double v) { driveTarget = std::pow(1000.0, v) * 4.0 * 0.31622777; }
    void setNoiseLevel(double v) { noiseLevelTarget = std::pow(1000.0, v) * 0.000003 * 0.57; }
    void setNoiseMode(NoiseMode mode) { noiseMode = mode; }
    double saturationLevel() const { return saturation; }

    void run(RailBlocks& blocks, int count)
    {
        const double share = onePoleRate(0.2 * 0.015625, rate);
        drive = flush((driveTarget - drive) * share + drive, 1e-30);
        noiseLevel = flush((noiseLevelTarget - noiseLevel) * share + noiseLevel, 1e-30);
        const double compensation = std::pow(1.0 / drive, 0.9576);

        RailBlocks noise; // the piece's noise is drawn ahead of what the mute and the converter draw
        for (std::size_t rail = 0; rail < kRails; ++rail)
            for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
                noise[rail][i] = nextNoise(rails[rail], spread.noiseTrim[rail]);
        std::array<double, kPiece> gains;
        gains.fill(noiseMode == NoiseMode::On ? 1.0 : 0.0);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count) && noiseMode == NoiseMode::AutoMute; ++i)
            gains[i] =
                mute.process(std::max(std::fabs(zeroIfNan(blocks[0][i])), std::fabs(zeroIfNan(blocks[1][i]))),
                             rails[0].generator);

        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
            std::array<double, kRails> x{zeroIfNan(blocks[0][i]), zeroIfNan(blocks[1][i])};
            if (noiseMode != NoiseMode::Off)
                for (std::size_t rail = 0; rail < kRails; ++rail)
                    x[rail] = withNoise(rails[rail], x[rail], gains[i] * noise[rail][i]);
            if (emulation == kAdc90s)
                convert(x, share);
            else
                runDecade(x, share);
            for (std::size_t rail = 0; rail < kRails; ++rail)
                blocks[rail][i] = zeroIfNan(x[rail]) * compensation;
        }
    }

private:
    static std::array<StripBiquad*, 7> sections(Rail& r)
    {
        return {&r.tilt, &r.hum1, &r.hum2, &r.hum3, &r.bandwidth, &r.crosstalk, &r.bump};
    }
    static void land(StripBiquad& s, double hz, double q, double db)
    {
        s.setFrequency(hz);
        s.setQ(q);
        s.setGainDb(db);
        s.resetState();
    }
    void landHum(StripBiquad& s, const HumPeak& hum, int rail)
    {
        land(s, hum.frequency.of(spread, rail), hum.q.of(spread, rail), hum.gainDb.of(spread, rail));
    }
    // The block form of the general section, which heals otherwise than its sample form.
    static double section(StripBiquad& s, double x)
    {
        s.runBlock(&x, 1);
        return x;
    }

    double nextNoise(Rail& r, double trim)
    {
        r.noiseFilter =
            flush((2.0 * r.generator.next() - 1.0 - r.noiseFilter) * noiseShare + r.noiseFilter, 1e-16);
        double y = r.noiseFilter * noiseLevel * noiseScale * trim;
        if (emulation != kAdc90s)
            for (StripBiquad* s : {&r.tilt, &r.hum1, &r.hum2, &r.hum3}) y = section(*s, y);
        return y;
    }
    double withNoise(Rail& r, double x, double noise)
    {
        const double direct = x + noise;
        const double filtered = emulation == kPre70s ? direct : section(r.bandwidth, direct);
        return d->filteredMix * filtered + d->directMix * direct;
    }

    void runDecade(std::array<double, kRails>& x, double share)
    {
        for (std::size_t i = 0; i < kRails; ++i)
            x[i] = emulation == kPre80s ? zeroIfNan(drive * x[i] * (0.794328234724282 * 0.5))
                                        : biased(rails[i], x[i], spread.curveTrim[i]);
        const std::array<double, kRails> band{rails[0].crosstalk.runSample(x[0]),
                                              rails[1].crosstalk.runSample(x[1])};
        for (std::size_t i = 0; i < kRails; ++i)
            x[i] = zeroIfNan(d->stage2InGain * (x[i] - band[1 - i] * d->crosstalkAmount)) * 0.7071;
        if (emulation != kPre60s)
            for (double& v : x) v = std::clamp(v * 0.7071 * 0.25, -4.0, 4.0);
        const double reading = std::max(std::fabs(x[0]), std::fabs(x[1])) * d->saturationMeter;
        const double fallen = saturation + (reading - saturation) * share;
        saturation = std::min(flush(reading > saturation ? reading : fallen, 1.0000000036274937e-15), 1.0);
        for (std::size_t i = 0; i < kRails; ++i) {
            Rail& r = rails[i];
            x[i] = emulation == kPre60s ? r.tube.process(x[i] * 0.125) * 20.166514627199998 * d->stage2OutGain
                                        : transistor(r, x[i], spread.biasTrim[i]);
            x[i] = section(r.bump, x[i]);
        }
    }
    double biased(Rail& r, double x, double trim)
    {
        const BiasedStageConstants& c = d->stage1;
        const double s = zeroIfNan(drive * x * c.inGain);
        const double follow = (r.slow * 0.998 + s * 0.002) * trim * saturationC * c.saturationB;
        r.slow = flush((s * 0.25 - r.slow) * slowShare + r.slow, 1e-16);
        const double b = c.saturationA * 0.2 + follow;
        const double den = (1.4 - c.saturationA * 0.75) * b * 1.1071487177940904;
        if (den == 0.0) return 0.0;
        const double z = (2.8 - c.saturationA * 1.5) * b;
        return (2.0 * (z * z) + 30.0) * z / (2.0 * 4.8 * (z * z) + 30.0) * s * 0.25 * 1.07 * c.outGain / den;
    }
    double transistor(Rail& r, double a, double trim)
    {
        const double h = a * 0.5;
        double q = h >= 0.0 ? 1.0 : -1.0;
        if (std::fabs(h) < 2.0) q = h >= 0.0 ? h - h * h * 0.25 : h + h * h * 0.25;
        q = 2.0 * q;
        r.harmonic = flush((bias * trim + q - r.harmonic) * harmonicShare + r.harmonic, 1e-16);
        const double even = r.harmonic * r.harmonic * 0.25;
        const double e = (r.harmonic >= 0.0 ? q - even : q + even) * 8.0 * 1.4142;
        return r.transformer.runSampleFixed(e) * 1.4142 * d->stage2MakeUp * d->stage2OutGain;
    }

    void convert(std::array<double, kRails>& x, double share)
    {
        const double t = rails[0].generator.next() * 0.1 + 0.5;
        bool overload = false, full = false;
        for (std::size_t i = 0; i < kRails; ++i) {
            Rail& r = rails[i];
            const double x0 = zeroIfNan(drive * x[i] * 1.0) * 32768.0 * 0.025 * 0.25;
            const double y =
                ((2.0 * x0 - 5.0 * r.x1 + 4.0 * r.x2 - r.x3) * (t * t) +
                 (r.x3 - x0 + 3.0 * r.x1 - 3.0 * r.x2) * (t * t * t) + (r.x2 - x0) * t + 2.0 * r.x1) *
                0.5;
            r.x3 = r.x2;
            r.x2 = r.x1;
            r.x1 = x0;
            double clipped = y;
            if (clipped > 32767.0) clipped = 32767.0;
            if (clipped < -32768.0) clipped = -32768.0;
            overload = overload || std::fabs(y) > 128.0;
            full = full || clipped != y;
            x[i] = requantised((approximated(clipped + 32768.0) - 32768) * 4) * 3.0517578125e-5 * 40.0;
        }
        saturation =
            flush(((overload ? 0.3 : 0.0) - saturation) * share + saturation, 1.0000000036274937e-15);
        if (full) saturation = 1.0;
    }
    static int approximated(double w)
    {
        int code = 0;
        for (const double weight : preamp::detail::kConverterWeights) {
            code = 2 * code + (w >= weight ? 1 : 0);
            if (w >= weight) w -= weight;
        }
        return code;
    }
    static int requantised(int c)
    {
        const int n = c < 0 ? -c - 1 : c;
        int step = 1;
        for (const auto& segment : preamp::detail::kConverterSegments)
            if (n >= segment.base + (c < 0 ? 1 : 0)) step = static_cast<int>(segment.step);
        const int q = n - n % step;
        return c < 0 ? -q : q;
    }

    ComponentSpread spread;
    std::array<Rail, kRails> rails;
    Mute mute;
    double rate = 44100.0, noiseScale = 1.0, noiseShare = 0.0, saturation = 0.0;
    double slowShare = 0.0, harmonicShare = 0.0, saturationC = 0.0, bias = 0.0;
    double drive = 1.0, driveTarget = 1.0, noiseLevel = 1e-4, noiseLevelTarget = 1e-4;
    std::int32_t emulation = kPre70s;
    NoiseMode noiseMode = NoiseMode::Off;
    const DecadeConstants* d = nullptr;
};

} // namespace velmora::plain
