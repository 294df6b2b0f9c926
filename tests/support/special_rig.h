#pragma once

#include "engine/audio_record.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <cstdint>
#include <cstdio>
#include <numbers>
#include <random>
#include <vector>

/// Rig and common checks of the modules that live in inserts only.
namespace velmora::test {

using Signal = std::vector<double>;

struct Setting {
    std::uint32_t offset;
    double value;
};
using Settings = std::vector<Setting>;

/// A module in the first insert's window, set up the way an insert does it.
template <typename Module>
class SpecialRig {
public:
    explicit SpecialRig(const Settings& settings = {}, double rate = 44100.0) : rate_(rate)
    {
        for (unsigned c = 0; c < 4; ++c) record_.channels[c] = buffers_[c].data();
        module.setSampleRate(rate);
        module.activate();
        module.loadDefaults();
        set(settings);
        module.reset();
    }

    void set(std::uint32_t offset, double value) { module.setParameter(kWindow + offset, value); }
    void set(const Settings& settings)
    {
        for (const Setting& s : settings) set(s.offset, s.value);
    }
    double meter(std::uint32_t number)
    {
        double reading = -1.0;
        module.getMeter(kMeters + number, &reading);
        return reading;
    }
    double rate() const { return rate_; }
    std::size_t samples(double seconds) const { return static_cast<std::size_t>(seconds * rate_); }

    /// Runs in place in pieces of the given lengths (repeated); the key, if any, feeds the auxiliary pair.
    Signal run(const Signal& input, const std::vector<std::size_t>& pieces = {64}, const Signal& key = {})
    {
        Signal output(input.size());
        std::size_t at = 0;
        for (std::size_t p = 0; at < input.size(); ++p) {
            const std::size_t count = std::min(pieces[p % pieces.size()], input.size() - at);
            std::copy_n(input.data() + at, count, buffers_[0].data());
            buffers_[1] = buffers_[0];
            if (!key.empty()) std::copy_n(key.data() + at, count, buffers_[2].data());
            module.processMono(record_, record_, static_cast<std::int32_t>(count));
            EXPECT_EQ(buffers_[0][count - 1], buffers_[1][count - 1]);
            std::copy_n(buffers_[1].data(), count, output.data() + at);
            at += count;
        }
        return output;
    }

    static constexpr std::uint32_t kWindow = 256;
    static constexpr std::uint32_t kMeters = 399;
    Module module{kWindow, kMeters, 711};

private:
    double rate_;
    std::array<std::array<double, 64>, 4> buffers_{};
    AudioRecord record_;
};

inline double db(double linear)
{
    return 20.0 * std::log10(linear);
}

inline Signal sine(double hz, double rate, double amplitude, std::size_t length)
{
    Signal s(length);
    for (std::size_t n = 0; n < length; ++n)
        s[n] = amplitude * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate);
    return s;
}

inline Signal noise(std::size_t length, double amplitude, unsigned seed = 1)
{
    std::minstd_rand engine(seed);
    std::uniform_real_distribution<double> value(-amplitude, amplitude);
    Signal s(length);
    for (double& x : s) x = value(engine);
    return s;
}

/// Fourier sum over the samples from..to.
inline std::complex<double> bin(const Signal& s, double hz, double rate, std::size_t from, std::size_t to)
{
    std::complex<double> sum;
    for (std::size_t n = from; n < to; ++n)
        sum += s[n] * std::polar(1.0, -2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate);
    return sum;
}

/// Amplitude of a sine within the samples from..to, which should span whole periods.
inline double amplitude(const Signal& s, double hz, double rate, std::size_t from, std::size_t to)
{
    return 2.0 * std::abs(bin(s, hz, rate, from, to)) / static_cast<double>(to - from);
}

template <typename Module>
void expectSilenceAndReset(const Settings& settings)
{
    SpecialRig<Module> used(settings);
    SpecialRig<Module> fresh(settings);
    const Signal loud = noise(used.samples(0.5), 0.9);
    const Signal silence(used.samples(0.1), 0.0);
    EXPECT_EQ(fresh.run(silence), silence);
    EXPECT_NE(used.run(loud), loud);

    used.module.reset();
    fresh.module.reset();
    EXPECT_EQ(used.run(silence), silence);
    used.module.reset();
    EXPECT_EQ(used.run(loud), fresh.run(loud));

    const Signal tail = used.run(Signal(used.samples(6.0), 0.0));
    EXPECT_LT(std::fabs(tail.back()), 1e-12);

    used.module.deactivate();
    EXPECT_EQ(used.run(loud), loud);
    EXPECT_EQ(used.meter(0), used.meter(1));
    used.module.resetMeters();
    EXPECT_EQ(used.meter(0), 0.0);
}

/// Type 0 is wiring: no reduction stays on the meter, and the setting comes back with the type.
template <typename Module>
void expectTypeZeroShowsNoReduction(const Settings& settings, const Signal& reduced)
{
    constexpr std::uint32_t kType = 0;
    SpecialRig<Module> rig(settings);
    rig.run(reduced);
    EXPECT_GT(rig.meter(2), 0.1);
    rig.set(kType, 0.0);
    EXPECT_EQ(rig.meter(2), 0.0);
    EXPECT_EQ(rig.run(reduced), reduced);
    EXPECT_EQ(rig.meter(2), 0.0);
    rig.set(kType, 1.0 / 15.0);
    rig.run(reduced);
    EXPECT_GT(rig.meter(2), 0.1);
}

template <typename Module>
void expectSplitInvariance(const Settings& settings)
{
    const Signal x = noise(4096, 0.9);
    const Signal key = noise(4096, 0.5, 2);
    const Signal whole = SpecialRig<Module>(settings).run(x, {64}, key);
    EXPECT_EQ(SpecialRig<Module>(settings).run(x, {1}, key), whole);
    EXPECT_EQ(SpecialRig<Module>(settings).run(x, {5, 59, 17, 47}, key), whole);
}

/// Random parameters in each block, with a signal that goes up to the strip's limit.
template <typename Module>
void expectFiniteUnderAutomation(std::uint32_t firstOffset, std::uint32_t lastOffset)
{
    for (double rate : {44100.0, 384000.0}) {
        SpecialRig<Module> rig({}, rate);
        std::minstd_rand engine(7);
        std::uniform_int_distribution<std::uint32_t> offset(firstOffset - 1, lastOffset);
        std::uniform_real_distribution<double> value(-0.2, 1.2);
        double peak = 0.0;
        for (unsigned block = 0; block < 4000; ++block) {
            const std::uint32_t target = offset(engine);
            rig.set(target < firstOffset ? 5 : target, std::clamp(value(engine), 0.0, 1.0));
            const double level = block % 10 == 9 ? 1e6 : 0.5;
            for (double y : rig.run(noise(64, level, block + 1), {64}, noise(64, level, block + 2))) {
                ASSERT_TRUE(std::isfinite(y)) << "block " << block;
                peak = std::max(peak, std::fabs(y));
            }
            for (std::uint32_t meter = 0; meter < 4; ++meter) ASSERT_TRUE(std::isfinite(rig.meter(meter)));
            ASSERT_GE(rig.meter(2), 0.0);
            ASSERT_LE(rig.meter(2), 1.0);
        }
        std::printf("automation at %.0f Hz: peak %.2g\n", rate, peak);
    }
}

/// After a burst at the strip's limit the module comes back by its own law.
template <typename Module>
void expectRecovery(const Settings& settings)
{
    SpecialRig<Module> burst(settings);
    SpecialRig<Module> calm(settings);
    const std::size_t length = burst.samples(7.0);
    Signal x = noise(length, 0.5);
    calm.run(x);
    std::transform(x.begin(), x.begin() + 4410, x.begin(), [](double v) { return v * 2e6; });
    burst.run(x);
    const Signal after = noise(burst.samples(0.1), 0.5, 3);
    const Signal a = burst.run(after);
    const Signal b = calm.run(after);
    double worst = 0.0;
    for (std::size_t n = 0; n < a.size(); ++n) worst = std::max(worst, gapBetween(a[n], b[n]));
    std::printf("7 s after a burst of 1e6: %.1e off\n", worst);
    EXPECT_LT(worst, 1e-9);
    EXPECT_NEAR(burst.meter(2), calm.meter(2), 0.03);
}

} // namespace velmora::test
