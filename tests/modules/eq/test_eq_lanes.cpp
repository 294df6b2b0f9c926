#include "modules/eq/eq_saturation.h"
#include "tests/modules/eq/eq_rig.h"
#include "tests/plain/eq_filters.h"
#include "tests/plain/eq_saturation.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmora::test {
namespace {

constexpr double kInf = std::numeric_limits<double>::infinity();
constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

/// A random session that both forms of a filter go through.
class Session {
public:
    explicit Session(unsigned seed) : engine_(seed) {}

    /// Acts on the filters, and lays out the next piece.
    template <typename Plain, typename Fast>
    void move(Plain& plain, Fast& fast, EqPiece& piece)
    {
        const auto both = [&](auto action) {
            action(plain);
            action(fast);
        };
        const auto band = static_cast<EqBand>(chance(4));
        const EqBandSettings settings{1, 20.0 * std::pow(1000.0, unit()), 36.0 * unit() - 18.0,
                                      static_cast<EqWidth>(chance(3))};
        const bool on = chance(2) != 0;
        if (chance(12) == 0) both([&](auto& filter) { filter.enableBand(band); });
        if (chance(20) == 0) both([&](auto& filter) { filter.setBand(band, settings); });
        if (chance(40) == 0) both([&](auto& filter) { filter.setAnalog(on); });
        if (chance(150) == 0) both([](auto& filter) { filter.reset(); });
        layOut(piece);
    }

private:
    unsigned chance(unsigned of) { return static_cast<unsigned>(engine_()) % of; }
    double unit() { return static_cast<double>(engine_()) / static_cast<double>(engine_.max()); }

    void layOut(EqPiece& piece)
    {
        piece.frames = static_cast<std::int32_t>(chance(3) == 0 ? 1 + chance(5) : 1 + chance(64));
        const double level = std::pow(10.0, 8.0 * unit() - 6.0);
        for (double& x : input_) x = level * (2.0 * unit() - 1.0);
        if (chance(25) == 0) {
            constexpr std::array kOdd{kNan, kInf, -kInf, 5e-324, -1e-310, 1e300, -0.0};
            for (unsigned i = 0; i < 3; ++i) input_[chance(64)] = kOdd[chance(kOdd.size())];
        }
        piece.input = input_.data();
        piece.fading = chance(4) == 0;
        piece.gainMoving = chance(4) == 0;
        for (auto& row : piece.mix)
            for (double& mix : row) mix = unit();
        for (double& gain : piece.gain) gain = unit();
    }

    std::minstd_rand engine_;
    std::array<double, EqPiece::kMaxFrames> input_;
};

template <typename Plain, typename Fast>
void expectSameBits(unsigned seed, double rate)
{
    Plain plain;
    Fast fast;
    plain.setSampleRate(rate);
    fast.setSampleRate(rate);
    Session session(seed);
    EqPiece expected;
    expected.follower.rate = 0.2;
    EqPiece got = expected;
    for (int block = 0; block < 1500; ++block) {
        session.move(plain, fast, got);
        const DriveFollower before = got.follower;
        expected = got;
        plain.process(expected, 0.02);
        fast.process(got, 0.02);
        ASSERT_TRUE(same(got.follower.low, expected.follower.low)) << "block " << block;
        for (std::size_t n = 0; n < static_cast<std::size_t>(got.frames); ++n) {
            ASSERT_TRUE(same(got.output[n], expected.output[n])) << "block " << block << " sample " << n;
            ASSERT_TRUE(same(got.drive[n], expected.drive[n])) << "block " << block << " sample " << n;
        }
        if (std::isnan(got.follower.band)) got.follower = before;
    }
}

TEST(EqLanes, GiveTheBitsOfSectionBySection)
{
    forEachInstructionSet([] {
        for (unsigned seed = 1; seed <= 4; ++seed) {
            const double rate = seed % 2 == 0 ? 44100.0 : 192000.0;
            expectSameBits<plain::SorrelFilter, SorrelFilter>(seed, rate);
            expectSameBits<plain::TamarinFilter, TamarinFilter>(seed, rate);
            expectSameBits<plain::JuniperFilter, JuniperFilter>(seed, rate);
        }
    });
}

TEST(EqLanes, SaturationFollowsItsFormulaToTheBit)
{
    forEachInstructionSet([] {
        for (EqFlavour flavour : kFlavours) {
            EqPiece::Row audio, drive;
            for (std::size_t count = 1; count <= EqPiece::kMaxFrames; ++count) {
                for (std::size_t n = 0; n < count; ++n) {
                    drive[n] =
                        (n % 2 == 0 ? 1.0 : -1.0) * std::pow(10.0, 0.13 * static_cast<double>(n) - 7.0);
                    audio[n] = 1.7 * drive[n] + 0.3;
                }
                if (count == 3) drive[0] = 0.0, audio[1] = kNan, drive[2] = kNan;
                const EqPiece::Row y = audio, t = drive;
                eqSaturate(flavour, audio, drive, static_cast<std::int32_t>(count));
                for (std::size_t n = 0; n < count; ++n)
                    EXPECT_EQ(audio[n], plain::eqSaturate(flavour, y[n], t[n])) << "drive " << t[n];
            }
        }
    });
}

// A preset writes all parameters in a row. Bands are designed behind that, for a flavour that doesn't run
// long after; it mustn't be heard.
TEST(EqLanes, LateDesignSoundsAsIfEachSetterHadDesigned)
{
    const auto load = [](EqRig& rig, double shift) {
        for (EqBand band : kAllEqBands)
            rig.setBand(band, 1.0, 0.5 + shift, 0.4 + shift, band == EqBand::Low ? 0.0 : 0.5);
    };
    const Signal x = noise(6000, 1.0);
    for (EqFlavour flavour : kFlavours) {
        EqRig direct(flavour), detour(flavour);
        for (EqRig* rig : {&direct, &detour}) {
            load(*rig, 0.1);
            rig->module.reset();
            rig->run(x);
        }
        detour.setFlavour(flavour == EqFlavour::Sorrel ? EqFlavour::Tamarin : EqFlavour::Sorrel);
        load(detour, -0.3);
        detour.setFlavour(flavour);
        load(detour, 0.2);
        load(direct, 0.2);
        EXPECT_EQ(direct.run(x), detour.run(x)) << name(flavour);
    }
}

TEST(EqLanes, DepthIsThatOfTheSwitchBeforeAnythingHasRun)
{
    const Signal x = noise(2000, 2.0);
    for (EqFlavour flavour : kFlavours) {
        const auto play = [&](double atSwitch, bool blockBetween) {
            EqRig rig(flavour);
            for (EqBand band : kAllEqBands) rig.setBand(band, 1.0, 0.8, atSwitch, 0.5);
            if (blockBetween) rig.run(Signal(64));
            rig.set(Analog, 1.0);
            if (blockBetween) rig.run(Signal(64));
            for (EqBand band : kAllEqBands) rig.set(band, Freq, 0.9);
            rig.module.reset();
            return rig.run(x);
        };
        EXPECT_EQ(play(0.1, false), play(0.1, true));
        // Sorrel's limit follows the band, the softening of the others doesn't.
        EXPECT_EQ(play(0.1, false) == play(0.9, false), flavour == EqFlavour::Sorrel);
    }
}

} // namespace
} // namespace velmora::test
