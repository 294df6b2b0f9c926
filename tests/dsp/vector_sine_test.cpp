#include "dsp/vector_sine.h"
#include "tests/support/instruction_sets.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

namespace velmora::test {
namespace {

struct Values {
    std::vector<double> sine, cosine;
    bool operator==(const Values&) const = default;
};

Values onLanes(const std::vector<double>& angles)
{
    Values out{angles, angles};
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<width>;
        const auto sine = [](const V& x) VELMORA_KERNEL_LAMBDA { return sineCosineLanes<V>(x).sine; };
        const auto cosine = [](const V& x) VELMORA_KERNEL_LAMBDA { return sineCosineLanes<V>(x).cosine; };
        mapLanes<V>(angles.data(), out.sine.data(), angles.size(), sine);
        mapLanes<V>(angles.data(), out.cosine.data(), angles.size(), cosine);
    });
    return out;
}

// In units of the last place; for results below the floor, of the floor's.
double unitsOff(double value, long double exact, double floor)
{
    const double magnitude = std::max(std::fabs(static_cast<double>(exact)), floor);
    const double unit = std::ldexp(1.0, std::ilogb(magnitude) - 52);
    return static_cast<double>(std::fabs(value - exact) / unit);
}

constexpr double kFloor = 1e-8; // close to a quarter and a half turn

TEST(VectorSine, AgreesWithTheLibraryUpToHalfATurn)
{
    std::vector<double> angles{0.0};
    for (int i = 1; i <= 400000; ++i) angles.push_back(std::numbers::pi * i / 400000.0);
    for (double x = 1e-6; x < 0.1; x *= 1.0001) angles.push_back(x);
    const Values values = onLanes(angles);
    double sine = 0.0;
    double cosine = 0.0;
    for (std::size_t i = 1; i < angles.size(); ++i) {
        const long double angle = angles[i];
        const double floor = angles[i] < 1.0 ? 0.0 : kFloor;
        sine = std::max(sine, unitsOff(values.sine[i], std::sin(angle), floor));
        cosine = std::max(cosine, unitsOff(values.cosine[i], std::cos(angle), floor));
    }
    std::printf("sine within %.3f units of the last place, cosine within %.3f\n", sine, cosine);
    EXPECT_LT(sine, 1.1);
    EXPECT_LT(cosine, 1.1);
    EXPECT_EQ(values.sine[0], 0.0);
    EXPECT_EQ(values.cosine[0], 1.0);
    forEachInstructionSet([&] { EXPECT_EQ(onLanes(angles), values); });
}

} // namespace
} // namespace velmora::test
