#include "params/catalogue.h"
#include "tests/modules/compressor/compressor_rig.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

using Rig = CompressorRig;

double peakOf(const Signal& x, std::size_t from = 0)
{
    double peak = 0.0;
    for (std::size_t i = from; i < x.size(); ++i) peak = std::max(peak, std::fabs(x[i]));
    return peak;
}

// A rig deep in gain reduction.
void press(Rig& rig)
{
    rig.set(Rig::Threshold, 0.1);
    rig.set(Rig::Ratio, 0.8);
    rig.module.reset();
}

TEST(SignalPath, MixAndMakeup)
{
    for (int variant : kVariants) {
        Rig rig(variant);
        press(rig);
        rig.set(Rig::Makeup, 0.6); // 12 dB
        rig.set(Rig::Mix, 0.0);
        rig.module.reset();
        const Signal x = rig.sine(0.3, 0.5);
        EXPECT_EQ(rig.run(x), x); // dry, bit for bit
        EXPECT_LT(rig.gain(), 0.5);

        rig.set(Rig::Mix, 0.25);
        rig.module.reset();
        const Signal y = rig.run(x);
        const double wet = rig.gain() * fromDb(12.0);
        EXPECT_NEAR(y.back(), (0.25 * wet + 0.75) * x.back(), 1e-12);
    }
}

TEST(SignalPath, ControlsGlideWithinTenHertz)
{
    Rig rig(Vca);
    rig.set(Rig::Ratio, 0.0);
    rig.module.reset();
    rig.set(Rig::Makeup, 1.0);
    const Signal y = rig.run(Signal(rig.samples(0.5), 0.1));
    for (std::size_t i : {0U, 700U, 2000U, 20000U}) {
        const double left = std::exp(-2.0 * std::numbers::pi * 10.0 / 44100.0 * static_cast<double>(i + 1));
        EXPECT_NEAR(y[i] / 0.1, 10.0 - 9.0 * left, 1e-9);
    }
}

TEST(SignalPath, MonitorIsTheKeyBehindItsHighPass)
{
    for (double value : {0.0, 0.5, 1.0})
        for (double hz : {50.0, 1000.0}) {
            Rig rig(Vca, 96000.0);
            press(rig);
            rig.set(Rig::Monitor, 1.0);
            rig.set(Rig::HighPass, value);
            const Signal y = rig.run(rig.sine(1.0, 0.5, hz));
            const double keep = std::exp(-2.0 * std::numbers::pi * 10.0 * std::pow(100.0, value) / 96000.0);
            const double w = 2.0 * std::numbers::pi * hz / 96000.0;
            const double distance = std::sqrt(1.0 - 2.0 * keep * std::cos(w) + keep * keep);
            const double response = 2.0 * keep * std::sin(w / 2.0) / distance;
            const double measured = peakOf(y, rig.samples(0.5)) / 0.5;
            std::printf("key high-pass %.1f at %.0f Hz: %.3f dB\n", value, hz, toDb(measured));
            EXPECT_NEAR(measured / response, 1.0, 1e-3);
            EXPECT_GT(rig.read(Rig::GainReduction), 0.1);
            // The meter shows what would be heard without the monitor.
            EXPECT_LT(rig.read(Rig::OutLevel), 0.6 * rig.read(Rig::InLevel));
        }
}

TEST(SignalPath, HighPassKeepsBassFromTheDetector)
{
    for (int variant : kVariants) {
        std::array<double, 2> depth{};
        for (int on : {0, 1}) {
            Rig rig(variant);
            press(rig);
            rig.set(Rig::HighPass, on);
            rig.run(rig.sine(1.0, 0.2, 60.0));
            depth[static_cast<unsigned>(on)] = -toDb(rig.gain());
        }
        std::printf("%s 60 Hz: %.2f dB, with the high-pass at 1 kHz %.2f dB\n",
                    kVariantNames[static_cast<unsigned>(variant)], depth[0], depth[1]);
        EXPECT_GT(depth[0], depth[1] + 3.0);
    }
}

TEST(SignalPath, SideChainTakesTheAuxiliaryPair)
{
    for (int variant : kVariants) {
        Rig rig(variant);
        press(rig);
        rig.set(Rig::Release, 0.0);
        rig.set(Rig::SideChain, 1.0);
        const Signal loud = rig.sine(0.5, 1.0);
        const Signal y = rig.run(loud);
        EXPECT_NEAR(peakOf(y, y.size() / 2), 1.0, 2e-3); // nothing at the auxiliary input
        const Signal quiet = rig.sine(0.5, 0.001);
        const Signal ducked = rig.run(quiet, loud);
        EXPECT_LT(peakOf(ducked, ducked.size() / 2), 0.0005);
    }
}

TEST(SignalPath, StereoDetectorsAreSeparate)
{
    for (int variant : kVariants) {
        Rig mono(variant);
        Rig quietMono(variant);
        Rig stereo(variant);
        for (Rig* rig : {&mono, &quietMono, &stereo}) press(*rig);
        const Signal loud = mono.sine(0.2, 0.8);
        const Signal quiet = mono.sine(0.2, 0.02);
        const auto [l, r] = stereo.runStereo(quiet, loud);
        EXPECT_EQ(r, mono.run(loud));
        EXPECT_EQ(l, quietMono.run(quiet));
        EXPECT_EQ(stereo.gain(), std::min(mono.gain(), quietMono.gain()));
    }
}

TEST(SignalPath, DefaultsComeFromTheCatalogue)
{
    Rig rig(Vca);
    Rig other(Vca);
    rig.module.loadDefaults();
    for (std::uint32_t offset = 16; offset < 24; ++offset)
        other.set(offset, defaultValue(static_cast<ParameterId>(kWindow + offset)));
    rig.module.reset();
    other.module.reset();
    const Signal x = rig.sine(0.2, 0.9);
    const Signal y = rig.run(x);
    EXPECT_EQ(y, other.run(x));
    EXPECT_NE(y, x);
}

} // namespace
} // namespace velmora::test
