#include "modules/input/vintage_converter.h"
#include "tests/modules/input/input_rig.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <set>

namespace velmora::test {
namespace {

using preamp::VintageConverter;

std::int64_t approximate(double w)
{
    return VintageConverter::approximate<Lanes2>(allLanes<Lanes2>(w))[0];
}

std::int64_t requantise(std::int64_t c)
{
    return VintageConverter::requantise<Lanes2>(LaneWords<2>{c, c})[1];
}

TEST(Converter, ApproximationStaysWithinAFewCodesOfAPerfectOne)
{
    double worst = 0.0;
    std::set<int> codes;
    for (double w = 0.0; w < 65535.0; w += 0.25) {
        const auto code = static_cast<int>(approximate(w));
        codes.insert(code);
        worst = std::max(worst, std::fabs(code - w));
    }
    std::printf("converter: worst deviation %.2f codes, %zu of 65536 codes used\n", worst, codes.size());
    EXPECT_LT(worst, 6.0);
    EXPECT_LT(codes.size(), 65536u) << "imperfect weights leave codes out";
    EXPECT_GT(codes.size(), 60000u);
    EXPECT_EQ(approximate(32767.3), 32768);
    EXPECT_EQ(approximate(1.3), 0);
    EXPECT_EQ(approximate(1.4), 1);
    EXPECT_EQ(approximate(65535.0), 65534) << "the weights add up to more than full scale";
}

TEST(Converter, StepsGrowWithTheValue)
{
    for (std::int32_t c = -131072; c <= 131068; c += 4) {
        const std::int32_t n = c < 0 ? -c - 1 : c;
        const std::int32_t from = c < 0 ? n - 1 : n; // negative segments begin one later
        std::int32_t step = 1;
        for (std::int32_t base = 512; base <= 16384 && from >= base; base *= 2) step *= 2;
        const std::int64_t q = std::abs(requantise(c));
        ASSERT_EQ(q % step, 0) << c;
        ASSERT_LE(q, n);
        ASSERT_LT(n - q, step);
    }
    EXPECT_EQ(requantise(0), 0);
    EXPECT_EQ(requantise(-4), -3);
    EXPECT_EQ(requantise(131068), 131008);
}

TEST(Converter, HoldsSilenceAndStepsByDrive)
{
    InputRig rig(5);
    EXPECT_EQ(peak(rig.run(silence(0.2))), 0.0);

    // A slow ramp leaves in steps of four codes: 40 / 8192 over the drive's remaining gain.
    Signal ramp(44100);
    for (std::size_t i = 0; i < ramp.size(); ++i) ramp[i] = 1e-7 * static_cast<double>(i);
    const Signal out = rig.run(ramp);
    const double drive = std::pow(1000.0, 0.5) * 4.0 * 0.31622777;
    const double step = 4.0 * 40.0 / 32768.0 * std::pow(drive, -0.9576);
    std::set<double> levels(out.begin(), out.end());
    for (const double level : levels)
        EXPECT_NEAR(level / step, std::round(level / step), 1e-9) << "levels are whole codes";
    std::printf("converter: %zu levels on a ramp of %.2f codes\n", levels.size(),
                ramp.back() * drive * 204.8);
    EXPECT_GT(levels.size(), 20u);
}

TEST(Converter, OverloadMeterAndClip)
{
    InputRig quiet(5), loud(5), clipped(5);
    quiet.run(sine(0.01, 440.0, 1.0));
    EXPECT_EQ(quiet.meter(4), 0.0);
    loud.run(Signal(44100, 0.5)); // 4096 codes
    EXPECT_NEAR(loud.meter(4), 0.3, 1e-6);
    const Signal out = clipped.run(Signal(44100, 10.0));
    EXPECT_EQ(clipped.meter(4), 1.0);
    EXPECT_NEAR(out.back(), 4.0 * 32752 / 32768.0 * 40.0 * std::pow(40.0, -0.9576), 1e-6);
    clipped.set(InputRig::kAnalog, 1.0);
    EXPECT_EQ(clipped.meter(4), 0.0);
}

TEST(Converter, DriveMovesOncePerPieceAtTwoHundredMilliseconds)
{
    const double rate = 96000.0;
    InputRig rig(5, rate);
    const double from = std::pow(1000.0, 0.5) * 4.0 * 0.31622777;
    const double to = 1000.0 * 4.0 * 0.31622777;
    rig.run(Signal(640, 0.02), 64);
    rig.set(InputRig::kDrive, 1.0);
    const Signal out = rig.run(Signal(64 * 200, 0.02));
    const double left = std::pow(0.1091012, 64.0 / (rate * 0.2)); // per piece
    for (const int pieces : {1, 50, 150, 200}) {
        const double drive = to + (from - to) * std::pow(left, pieces);
        const double gain = std::pow(drive, 1.0 - 0.9576);
        const double measured = out[static_cast<std::size_t>(64 * pieces - 1)] / 0.02;
        EXPECT_NEAR(db(measured / gain), 0.0, 0.06) << pieces; // one step of the converter
    }
}

} // namespace
} // namespace velmora::test
