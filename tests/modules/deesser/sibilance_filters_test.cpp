#include "modules/deesser/sibilance_filters.h"
#include "modules/deesser/sibilance_gain.h"
#include "modules/deesser/sibilance_levels.h"
#include "tests/plain/sibilance_followers.h"
#include "tests/support/special_rig.h"

namespace velmora::test {
namespace {

struct Response {
    Signal low, high, detected;
};

Response impulseResponse(double frequency, double q, double rate)
{
    SibilanceFilters filters;
    filters.setSampleRate(rate);
    filters.setBand(frequency, q);
    filters.reset();
    Response r;
    SibilanceFilters::Block x{1.0};
    for (int block = 0; block < 256; ++block, x = {}) {
        SibilanceFilters::Bands bands;
        filters.process(x.data(), bands, SibilanceFilters::kLongest);
        r.low.insert(r.low.end(), bands.low.begin(), bands.low.end());
        r.high.insert(r.high.end(), bands.high.begin(), bands.high.end());
        r.detected.insert(r.detected.end(), bands.detected.begin(), bands.detected.end());
    }
    return r;
}

double gainDb(const Signal& response, double hz, double rate)
{
    return db(std::abs(bin(response, hz, rate, 0, response.size())));
}

// Two sections of Q 0.7 a side: each is 20 log10 0.7 = -3.1 dB down at the crossover.
TEST(SibilanceFilters, CrossoverFollowsFrequencyAndQ)
{
    for (double rate : {44100.0, 96000.0}) {
        for (const auto& [frequency, q] : {std::pair{6000.0, 6.0}, {3000.0, 0.5}, {8000.0, 16.0}}) {
            const double split = frequency / 4.0 * (1.0 + q / 20.0);
            const Response r = impulseResponse(frequency, q, rate);
            const double low = gainDb(r.low, split, rate);
            const double high = gainDb(r.high, split, rate);
            std::printf("band %.0f Hz Q %.1f: crossover %.0f Hz, %.3f and %.3f dB\n", frequency, q, split,
                        low, high);
            EXPECT_NEAR(low, high, 0.05);
            EXPECT_NEAR(low, 2.0 * db(0.7), 0.05);
            EXPECT_NEAR(gainDb(r.low, split / 4.0, rate), 0.0, 0.1);
            EXPECT_LT(gainDb(r.high, split / 4.0, rate), -45.0);
            for (double octave : {-2.0, -0.5, 0.0, 0.5, 1.5}) {
                const double hz = split * std::exp2(octave);
                const auto sum =
                    bin(r.low, hz, rate, 0, r.low.size()) + bin(r.high, hz, rate, 0, r.high.size());
                EXPECT_NEAR(db(std::abs(sum)), 0.0, 0.2) << octave; // the sides sum to an all-pass, nearly
            }
        }
    }
}

TEST(SibilanceFilters, DetectorPeaksAtTheFrequencySixDecibelsDown)
{
    const Response r = impulseResponse(6000.0, 6.0, 96000.0);
    const auto band = [&](double hz) {
        return gainDb(r.detected, hz, 96000.0) - gainDb(r.high, hz, 96000.0);
    };
    std::printf("detector: %.2f dB at 6 kHz, %.2f at 5 kHz, %.2f at 3 kHz\n", band(6000.0), band(5000.0),
                band(3000.0));
    EXPECT_NEAR(band(6000.0), -6.0, 1e-3);
    EXPECT_LT(band(5000.0), -7.0);
    EXPECT_LT(band(3000.0), -18.0);
}

TEST(SibilanceLevels, TwoLanesHaveTheBitsOfTheFollowersOneByOne)
{
    const SibilanceRates rates = sibilanceRates(6000.0, 48000.0);
    SibilanceLevels levels;
    SibilanceGain computer;
    plain::SibilanceFollowers one;
    const Signal wide = noise(20000, 0.5, 3);
    const Signal band = noise(20000, 1.0, 4);
    double deepest = 1.0;
    for (std::size_t n = 0; n < wide.size(); ++n) {
        const double burst = n / 3000 % 2 == 0 ? 1.0 : 1e-4;
        const double w = std::fabs(wide[n]);
        const double b = burst * std::fabs(band[n]);
        levels.follow(w, b, rates);
        const double got = computer.follow(levels.wideToBand(), rates);
        const double expected = one.follow(w, b, rates);
        ASSERT_EQ(got, expected) << n;
        if (n > 10000) deepest = std::min(deepest, got);
    }
    std::printf("ratio down to %.3f\n", deepest);
    EXPECT_LT(deepest, 0.8);
}

} // namespace
} // namespace velmora::test
