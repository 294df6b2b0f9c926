#include "dsp/biquad_design.h"
#include "tests/dsp/biquad_response.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>

namespace velmora::test {
namespace {

using Kind = StripBiquadKind;
using Complex = std::complex<double>;

constexpr std::array kRates{44100.0, 48000.0, 96000.0, 192000.0, 384000.0};
constexpr std::array kPrototypeKinds{Kind::HighPass, Kind::LowShelf,  Kind::Peaking, Kind::BandPass,
                                     Kind::Notch,    Kind::HighShelf, Kind::LowPass, Kind::AllPass};

// Q near Nyquist, as a table of its own: {exponent, scale}.
double shrunkQ(const BiquadSettings& s)
{
    const auto shrink = [&](double exponent, double scale) {
        return s.q * (1.0 - std::pow(s.frequency / (scale * s.sampleRate), exponent));
    };
    switch (s.kind) {
    case Kind::HighPass:
        return shrink(6.0, 0.5001);
    case Kind::LowShelf:
        return shrink(3.5, 0.5001);
    case Kind::HighShelf:
        return shrink(4.0, 0.5001);
    case Kind::LowPass:
        return shrink(8.0, 0.50001);
    case Kind::Peaking:
    case Kind::BandPass:
    case Kind::Notch:
        return shrink(2.8, 0.5001);
    default:
        return s.q;
    }
}

// Analogue prototype at s = j tan(w/2) / tan(w0/2): the bilinear transform seen from the other side.
Complex prototype(const BiquadSettings& set, double hz)
{
    const double turn = std::numbers::pi / set.sampleRate;
    const Complex s(0.0, std::tan(turn * hz) / std::tan(turn * set.frequency));
    const double q = shrunkQ(set);
    const double a = std::pow(10.0, set.gainDb / 40.0);
    const double r = std::sqrt(a) / q;
    switch (set.kind) {
    case Kind::HighPass:
        return s * s / (s * s + s / q + 1.0);
    case Kind::LowPass:
        return 1.0 / (s * s + s / q + 1.0);
    case Kind::BandPass:
        return s / q / (s * s + s / q + 1.0);
    case Kind::Notch:
        return (s * s + 1.0) / (s * s + s / q + 1.0);
    case Kind::AllPass:
        return (s * s - s / q + 1.0) / (s * s + s / q + 1.0);
    case Kind::Peaking:
        return (s * s + s * a / q + 1.0) / (s * s + s / (a * q) + 1.0);
    case Kind::LowShelf:
        return a * (s * s + r * s + a) / (a * s * s + r * s + 1.0);
    case Kind::HighShelf:
        return a * (a * s * s + r * s + 1.0) / (s * s + r * s + a);
    default:
        return 1.0;
    }
}

TEST(BiquadDesign, FollowsItsAnaloguePrototype)
{
    for (Kind kind : kPrototypeKinds) {
        double worst = 0.0;
        for (double rate : kRates)
            for (double share : {0.002, 0.02, 0.1, 0.3, 0.45, 0.495})
                for (double q : {0.3, 0.7071, 4.0})
                    for (double gain : {-15.0, 0.0, 9.0}) {
                        const BiquadSettings set{kind, share * rate, q, gain, rate};
                        const BiquadCoefficients c = designBiquad(set);
                        for (double probe : {0.001, 0.0071, 0.05, 0.17, 0.31, 0.44, 0.49})
                            worst = std::max(worst, std::abs(response(c, probe * rate, rate) -
                                                             prototype(set, probe * rate)));
                    }
        std::printf("%-15s largest distance from the prototype %.2e\n", name(kind), worst);
        EXPECT_LT(worst, 1e-9) << name(kind);
    }
}

// The ends of the band and the centre, where each kind has its defining gain.
TEST(BiquadDesign, HasItsDefiningGains)
{
    for (double rate : kRates) {
        const double f = 0.05 * rate;
        const auto gainAt = [&](Kind kind, double hz, double db = 0.0) {
            return std::abs(response(designBiquad({kind, f, 2.0, db, rate}), hz, rate));
        };
        const double top = rate / 2.0;
        EXPECT_LT(gainAt(Kind::HighPass, 0.0), 1e-9);
        EXPECT_NEAR(gainAt(Kind::HighPass, top), 1.0, 1e-9);
        EXPECT_NEAR(gainAt(Kind::LowPass, 0.0), 1.0, 1e-9);
        EXPECT_LT(gainAt(Kind::LowPass, top), 1e-9);
        EXPECT_NEAR(gainAt(Kind::BandPass, f), 1.0, 1e-9);
        EXPECT_LT(gainAt(Kind::BandPass, 0.0) + gainAt(Kind::BandPass, top), 1e-9);
        EXPECT_LT(gainAt(Kind::Notch, f), 1e-9);
        EXPECT_NEAR(gainAt(Kind::Notch, 0.0), 1.0, 1e-9);
        EXPECT_NEAR(gainAt(Kind::AllPass, f), 1.0, 1e-9);
        for (double db : {-18.0, 6.0}) {
            EXPECT_NEAR(toDb(gainAt(Kind::Peaking, f, db)), db, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::Peaking, 0.0, db)), 0.0, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::LowShelf, 0.0, db)), db, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::LowShelf, f, db)), db / 2.0, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::LowShelf, top, db)), 0.0, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::HighShelf, 0.0, db)), 0.0, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::HighShelf, f, db)), db / 2.0, 1e-9);
            EXPECT_NEAR(toDb(gainAt(Kind::HighShelf, top, db)), db, 1e-9);
        }
    }
}

TEST(BiquadDesign, KindsWithoutASecondOrderAudioPath)
{
    for (double rate : kRates) {
        // The one-pole's -3 dB point lies at its frequency by construction.
        for (double hz : {30.0, 1000.0, 12000.0}) {
            const BiquadCoefficients c = designBiquad({Kind::OnePoleLowPass, hz, 1.0, 0.0, rate});
            EXPECT_NEAR(std::norm(response(c, hz, rate)), 0.5, 1e-9);
            EXPECT_NEAR(std::abs(response(c, 0.0, rate)), 1.0, 1e-9);
        }
        const BiquadCoefficients smoother = designBiquad({Kind::Smoother, 50.0, 1.0, 0.0, rate});
        EXPECT_DOUBLE_EQ(smoother.a0, std::pow(0.005, 50.0 / rate));
        EXPECT_EQ(std::abs(response(smoother, 777.0, rate)), 1.0);
    }
}

// A low-pass and a high-pass have the gain Q at their own frequency, which shows the shrunken Q.
TEST(BiquadDesign, QShrinksTowardsNyquist)
{
    const double rate = 48000.0;
    for (double share : {0.1, 0.4, 0.47, 0.499}) {
        const double f = share * rate;
        const double low = std::abs(response(designBiquad({Kind::LowPass, f, 3.0, 0.0, rate}), f, rate));
        const double high = std::abs(response(designBiquad({Kind::HighPass, f, 3.0, 0.0, rate}), f, rate));
        std::printf("at %.3f of the rate, Q 3 acts as %.5f (low-pass), %.5f (high-pass)\n", share, low, high);
        EXPECT_NEAR(low, 3.0 * (1.0 - std::pow(share / 0.50001, 8.0)), 1e-7);
        EXPECT_NEAR(high, 3.0 * (1.0 - std::pow(share / 0.5001, 6.0)), 1e-7);
    }
}

TEST(BiquadDesign, FrequencyIsHeldBelowNyquist)
{
    const double rate = 44100.0;
    const auto design = [&](Kind kind, double hz) { return designBiquad({kind, hz, 0.8, 6.0, rate}); };
    for (Kind kind : kPrototypeKinds) {
        const BiquadCoefficients above = design(kind, 0.7 * rate);
        const BiquadCoefficients held = design(kind, 0.499 * rate);
        if (kind == Kind::BandPass) {
            EXPECT_NE(above.b0, held.b0); // its Q takes the frequency as it is
            EXPECT_DOUBLE_EQ(above.a1 * above.a0, held.a1 * held.a0);
        } else {
            EXPECT_EQ(above.b0, held.b0) << name(kind);
            EXPECT_EQ(above.a2, held.a2) << name(kind);
        }
    }
    // The one-pole takes it directly: beyond Nyquist its cosine turns back.
    EXPECT_NEAR(design(Kind::OnePoleLowPass, 0.7 * rate).a1, design(Kind::OnePoleLowPass, 0.3 * rate).a1,
                1e-12);
}

} // namespace
} // namespace velmora::test
