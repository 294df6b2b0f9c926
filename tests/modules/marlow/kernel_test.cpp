#include "modules/marlow/strip_effect_marlow.h"
#include "tests/plain/marlow.h"
#include "tests/support/gap.h"
#include "tests/support/instruction_sets.h"
#include "tests/support/special_rig.h"

#include <limits>

namespace velmora::test {
namespace {

using Rig = SpecialRig<StripEffectMarlow>;

Settings settingsOf(const plain::MarlowValues& v)
{
    return {{16, v.threshold},
            {17, v.time},
            {18, v.frequency},
            {19, v.above},
            {20, v.below},
            {21, v.q},
            {22, v.transition},
            {23, 0.5 * static_cast<double>(v.shape)},
            {24, 0.5 * static_cast<double>(v.control)}};
}

// Quiet and loud in turn, with a sample here and there that is hardly a number.
Signal material(std::size_t length)
{
    Signal x = noise(length, 0.5, 3);
    for (std::size_t i = 0; i < length; ++i) {
        const double level = i / 1500 % 2 == 0 ? 0.8 : 0.01;
        x[i] = level * (x[i] + 0.5 * std::sin(0.021 * static_cast<double>(i)));
    }
    for (std::size_t i = 500; i < length; i += 2001) x[i] = std::numeric_limits<double>::denorm_min();
    return x;
}

/// Parts under each of the values in turn; the band glides from one to the next, and comes to rest on the way
/// where there is time for it.
Signal fast(const std::vector<plain::MarlowValues>& turns, double rate, const Signal& x,
            const std::vector<std::size_t>& pieces)
{
    Rig rig(settingsOf(turns[0]), rate);
    const auto part = static_cast<std::ptrdiff_t>(x.size() / turns.size());
    Signal y;
    for (std::size_t turn = 0; turn < turns.size(); ++turn) {
        rig.set(settingsOf(turns[turn]));
        const auto from = x.begin() + static_cast<std::ptrdiff_t>(turn) * part;
        const Signal out = rig.run({from, from + part}, pieces);
        y.insert(y.end(), out.begin(), out.end());
    }
    return y;
}
Signal plainly(const std::vector<plain::MarlowValues>& turns, double rate, const Signal& x)
{
    plain::Marlow eq(turns[0], rate);
    const std::size_t part = x.size() / turns.size();
    Signal y;
    for (const plain::MarlowValues& turn : turns) {
        eq.set(turn);
        for (std::size_t i = 0; i < part; ++i) y.push_back(eq.process(x[y.size()]));
    }
    return y;
}

TEST(MarlowKernel, AgreesWithThePlainFormOnEveryInstructionSet)
{
    using enum MarlowShape;
    using enum MarlowControl;
    // From the lowest frequencies, where last bits weigh most, up to Nyquist.
    const std::vector<plain::MarlowValues> peaks{{0.6, 0.2, 0.0, 1.0, 0.2, 0.5, 0.3, Peak, Direct},
                                                 {0.6, 0.0, 1.0, 0.1, 0.9, 0.0, 0.1, Peak, Complement},
                                                 {0.6, 0.0, 0.5, 0.1, 0.9, 0.9, 0.1, Peak, Off}};
    const std::vector<plain::MarlowValues> shelves{{0.6, 0.2, 0.0, 1.0, 0.2, 0.5, 0.3, LowShelf, Direct},
                                                   {0.6, 0.0, 1.0, 0.1, 0.9, 0.0, 0.1, HighShelf, Direct},
                                                   {0.6, 0.0, 0.0, 0.1, 0.9, 0.9, 0.1, LowShelf, Complement}};
    const Signal x = material(90000);
    for (const auto& turns : {peaks, shelves})
        for (double rate : {44100.0, 96000.0, 384000.0}) {
            const Signal expected = plainly(turns, rate, x);
            const Signal y = fast(turns, rate, x, {64});
            double worst = 0.0;
            double peak = 0.0;
            for (std::size_t i = 0; i < x.size(); ++i) {
                worst = std::max(worst, gapBetween(y[i], expected[i]));
                peak = std::max(peak, std::fabs(expected[i]));
            }
            std::printf("%6.0f Hz: off the plain form by %.1e of a peak of %.1f\n", rate, worst, peak);
            EXPECT_LT(worst, 1e-11 * peak);
            forEachInstructionSet([&] {
                EXPECT_EQ(fast(turns, rate, x, {64}), y);
                EXPECT_EQ(fast(turns, rate, x, {1, 5, 2, 64, 3}), y);
            });
        }
}

// With equal gains nothing moves, and a resting band has the library's designs: not a bit differs.
TEST(MarlowKernel, KeepsEveryBitOfAFilterThatStands)
{
    const Signal x = material(20000);
    for (MarlowShape shape : {MarlowShape::LowShelf, MarlowShape::Peak, MarlowShape::HighShelf})
        for (double rate : {44100.0, 384000.0}) {
            const std::vector<plain::MarlowValues> still{
                {0.6, 0.2, 0.0, 0.5, 0.5, 0.3, 0.5, shape, MarlowControl::Direct}};
            EXPECT_EQ(fast(still, rate, x, {64}), plainly(still, rate, x));
        }
}

} // namespace
} // namespace velmora::test
