#include "tests/modules/input/input_rig.h"
#include "tests/support/gap.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <malloc.h>
#include <random>
#include <unistd.h>

namespace velmora::test {
namespace {

constexpr int kTypes = 6;

Signal music(double seconds)
{
    Signal signal = sine(0.5, 220.0, seconds);
    const Signal second = sine(0.3, 3100.0, seconds);
    for (std::size_t i = 0; i < signal.size(); ++i) signal[i] += second[i];
    return signal;
}

TEST(InputRobustness, CallsOfAnyMultipleOfAPieceSoundAlike)
{
    for (int type = 0; type < kTypes; ++type) {
        for (const double automatic : {0.0, 1.0}) {
            std::vector<Signal> outputs;
            for (const std::size_t block : {64u, 128u, 4096u}) {
                InputRig rig = InputRig::unit(2, type);
                rig.set(InputRig::kAutoIn, automatic);
                rig.set(InputRig::kUpDown, 1.0);
                rig.set(InputRig::kNoiseIn, 0.5);
                rig.set(InputRig::kGain, 0.6);
                outputs.push_back(rig.run(music(0.3), block));
            }
            EXPECT_EQ(outputs[0], outputs[1]) << type;
            EXPECT_EQ(outputs[0], outputs[2]) << type;
        }
    }
}

TEST(InputRobustness, RandomAutomationStaysFinite)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> unit(0.0, 1.0);
    double worst = 0.0;
    for (const double rate : {44100.0, 384000.0}) {
        InputRig rig(3, rate);
        for (int step = 0; step < 3000; ++step) {
            const int offset = 15 + static_cast<int>(unit(random) * 12.0);
            rig.set(offset == 15 ? InputRig::kType : offset,
                    offset == 15 ? std::floor(unit(random) * 16.0) / 15.0 : unit(random));
            Signal in(1 + random() % 100);
            const double level = std::pow(10.0, 12.0 * unit(random) - 6.0);
            for (double& x : in) x = level * (2.0 * unit(random) - 1.0);
            if (unit(random) < 0.01) rig.module->reset();
            for (const double y : rig.run(in)) {
                ASSERT_TRUE(std::isfinite(y)) << step;
                worst = std::max(worst, std::fabs(y));
            }
            for (int meter = 0; meter < 5; ++meter) ASSERT_TRUE(std::isfinite(rig.meter(meter)));
            for (const int meter : {3, 4}) {
                ASSERT_GE(rig.meter(meter), 0.0);
                ASSERT_LE(rig.meter(meter), 1.0);
            }
        }
    }
    std::printf("random automation: largest output %.3g\n", worst);
}

TEST(InputRobustness, RecoversFromAMillionByItsOwnLaw)
{
    for (int type = 1; type < kTypes; ++type) {
        InputRig calm = InputRig::unit(4, type), hit = InputRig::unit(4, type);
        for (InputRig* rig : {&calm, &hit}) {
            rig->set(InputRig::kGain, 1.0);
            rig->set(InputRig::kDrive, 1.0);
            rig->module->reset();
        }
        calm.run(Signal(256, 0.0));
        for (const double y : hit.run(Signal(256, 1e6))) ASSERT_TRUE(std::isfinite(y));
        for (InputRig* rig : {&calm, &hit}) {
            rig->set(InputRig::kGain, 0.5);
            rig->set(InputRig::kDrive, 0.5);
            rig->run(silence(5.0));
        }
        Signal a = calm.run(music(1.0));
        const Signal b = hit.run(music(1.0));
        double apart = 0.0;
        for (std::size_t i = 0; i < a.size(); ++i) apart = std::max(apart, gapBetween(a[i], b[i]));
        std::printf("type %d, 5 s after a million: %.2g apart from a calm twin\n", type, apart);
        EXPECT_LT(apart, 1e-6);
    }
}

TEST(InputRobustness, NanInTheSignalEndsAtTheEmulation)
{
    for (int type = 2; type < kTypes; ++type) {
        InputRig rig(type);
        Signal in = music(0.1);
        in[100] = std::nan("");
        for (const double y : rig.run(in)) ASSERT_TRUE(std::isfinite(y)) << type;
    }
}

TEST(InputRobustness, ResetReturnsToSilence)
{
    for (int type = 0; type < kTypes; ++type) {
        InputRig rig = InputRig::unit(1, type), fresh = InputRig::unit(1, type);
        rig.run(music(0.2));
        rig.module->reset();
        for (int meter = 0; meter < 5; ++meter) EXPECT_EQ(rig.meter(meter), meter == 3 ? 0.5 : 0.0);
        const Signal out = rig.run(silence(0.5));
        EXPECT_EQ(out, fresh.run(silence(0.5))) << type;
        // The bias of the 70s settles behind its high-pass, at -100 dB.
        EXPECT_LE(peak(out), type == 3 ? 1e-5 : 0.0) << type;
    }
}

double residentMegabytes()
{
    std::ifstream statm("/proc/self/statm");
    long size = 0, resident = 0;
    statm >> size >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / 1048576.0;
}

TEST(InputRobustness, AUnitCostsLittleMemoryUntilTheNoiseMutes)
{
    constexpr int kUnits = 64;
    mallopt(M_MMAP_THRESHOLD, 128 * 1024); // or rings would come from memory that an earlier test gave back
    const double before = residentMegabytes();
    std::vector<InputRig> rigs(kUnits);
    for (InputRig& rig : rigs) rig.run(Signal(256, 0.1));
    const double each = (residentMegabytes() - before) / kUnits;
    std::printf("a unit: %zu bytes of its own, %.0f KB resident\n", sizeof(StripEffectInput), each * 1024.0);
    // Untouched rings alone would cost half a megabyte each.
    EXPECT_LT(each, 0.25);
}

} // namespace
} // namespace velmora::test
