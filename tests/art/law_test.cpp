#include "art/parts/law.h"

#include "params/laws/compressor_laws.h"
#include "params/laws/dynamics_laws.h"
#include "params/laws/equalizer_laws.h"
#include "params/laws/filters_laws.h"
#include "params/laws/limiter_laws.h"
#include "params/laws/preamp_laws.h"
#include "params/laws/special_laws.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmora::art {
namespace {

struct Span {
    const char* name;
    Law law;
    double least;
    double greatest;
};

const Span kSpans[] = {
    {"preamp gain", preamp::gainDb, -30, 30},
    {"drive", preampDriveDb, -30, 30},
    {"noise", preampNoiseDb, -120, -60},
    {"low pass", filters::lowPassHz, 300, 30000},
    {"parametric Q", filters::parametricQ, 0.05, 20},
    {"gate attack", dynamics::attackMs, 0.1, 250},
    {"hold", dynamics::holdMs, 0, 400},
    {"ratio", compressor::ratio, 1, 20},
    {"high band", equalizer::highHz, 1400, 28000},
    {"low band", equalizer::lowHz, 20, 400},
    {"limiter release", limiter::releaseMs, 10, 1000},
    {"sibilance", deesser::frequencyHz, 500, 16000},
    {"hum", dehummer::attenuationDb, -48, 0},
    {"fader", faderDb, -60, 10},
    {"range", dynamicsRangeDb, -40, 0},
    {"shape", dynamicsShape, -100, 100},
};

TEST(Laws, AreFollowedBackwards)
{
    for (const Span& span : kSpans) {
        double last = -1.0;
        for (int step = 0; step <= 40; ++step) {
            const double value = span.least + (span.greatest - span.least) * step / 40;
            const double position = positionOf(span.law, value);
            EXPECT_GT(position, last) << span.name << " at " << value;
            EXPECT_LE(position, 1.0) << span.name << " at " << value;
            EXPECT_NEAR(span.law(position), value, 1e-6 * std::max(1.0, std::abs(value))) << span.name;
            last = position;
        }
    }
}

TEST(Laws, EndWhereTheControlEnds)
{
    EXPECT_NEAR(positionOf(filters::lowPassHz, 300), 0.0, 1e-9);
    EXPECT_NEAR(positionOf(filters::lowPassHz, 30000), 1.0, 1e-9);
    EXPECT_NEAR(positionOf(equalizer::highHz, 1400), 0.0, 1e-9);
    EXPECT_NEAR(positionOf(equalizer::highHz, 28000), 1.0, 1e-9);
    EXPECT_EQ(positionOf(filters::lowPassHz, 50000), 1.0);
    EXPECT_NEAR(positionOf(filters::lowPassHz, 100), 0.0, 1e-9);
    EXPECT_NEAR(reductionDeflection(0), 0.0, 1e-12);
    EXPECT_NEAR(reductionDeflection(20), 0.9, 1e-12);
}

TEST(Laws, NumbersReadAsOnHardware)
{
    EXPECT_EQ(plainNumber(-30), "\u221230");
    EXPECT_EQ(plainNumber(0.05), "0.05");
    EXPECT_EQ(signedNumber(10), "+10");
    EXPECT_EQ(signedNumber(0), "0");
    EXPECT_EQ(thousands(500), "500");
    EXPECT_EQ(thousands(1000), "1k");
    EXPECT_EQ(thousands(2500), "2k5");
    EXPECT_EQ(thousands(16000), "16k");
    EXPECT_EQ(withoutZero(0.5), ".5");
}

} // namespace
} // namespace velmora::art
