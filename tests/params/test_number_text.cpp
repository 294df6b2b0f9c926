#include "params/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <limits>
#include <string>

namespace velmora {
namespace {

TEST(NumberText, ShowsWhatWasMeantInDecimal)
{
    EXPECT_EQ(numberText(-14.4f, 1), "-14.4");
    EXPECT_EQ(numberText(0.0f, 1), "0.0");
    EXPECT_EQ(numberText(0.05f, 1), "0.1");
    EXPECT_EQ(numberText(0.049f, 1), "0.0");
    EXPECT_EQ(numberText(-0.06f, 1), "-0.1");
    EXPECT_EQ(numberText(-0.04f, 1), "-0.0");
    EXPECT_EQ(numberText(12.3489f, 1), "12.3");
    EXPECT_EQ(numberText(12.35f, 1), "12.4");
    EXPECT_EQ(numberText(2.5f, 0), "3");
    EXPECT_EQ(numberText(0.499991f, 0), "1"); // the limit is a hair below the half
    EXPECT_EQ(numberText(0.49998f, 0), "0");
    EXPECT_EQ(numberText(99.999f, 2), "100.00");
    EXPECT_EQ(numberText(1e-30f, 2), "0.00");
    EXPECT_EQ(numberText(1.05f, 2), "1.05");
}

TEST(NumberText, HoldsEightDigits)
{
    EXPECT_EQ(numberText(1234567.0f, 2), "1234567.0");
    EXPECT_EQ(numberText(16777216.0f, 2), "16777216");
    EXPECT_EQ(numberText(1e8f, 0), "");
    EXPECT_EQ(numberText(-1e7f, 0), "");
    EXPECT_EQ(numberText(-9999998.0f, 0), "-9999998");
    EXPECT_EQ(numberText(std::numeric_limits<float>::quiet_NaN(), 1), "");
    EXPECT_EQ(numberText(std::numeric_limits<float>::infinity(), 1), "");
}

/// Every decimal that single precision resolves comes out as it went in.
TEST(NumberText, IsExactOnEveryDecimalStep)
{
    int checked = 0;
    for (int hundredths = -999999; hundredths <= 999999; ++hundredths, ++checked) {
        const int magnitude = std::abs(hundredths);
        const std::string fraction = std::to_string(100 + magnitude % 100).substr(1);
        const std::string expected = std::string(hundredths < 0 ? "-" : "")
                                         .append(std::to_string(magnitude / 100))
                                         .append(".")
                                         .append(fraction);
        ASSERT_EQ(numberText(static_cast<float>(hundredths / 100.0), 2), expected);
    }
    std::cout << "decimals checked " << checked << "\n";
}

TEST(FrequencyText, UsesTheThousandMark)
{
    EXPECT_EQ(frequencyText(8.25), "8.25");
    EXPECT_EQ(frequencyText(63.0), "63.0");
    EXPECT_EQ(frequencyText(440.0), "440");
    EXPECT_EQ(frequencyText(1000.0), "1k");
    EXPECT_EQ(frequencyText(1500.0), "1k5");
    EXPECT_EQ(frequencyText(2350.0), "2k35");
    EXPECT_EQ(frequencyText(2050.0), "2k05");
    EXPECT_EQ(frequencyText(1999.0), "1k99");
    EXPECT_EQ(frequencyText(9999.0), "9k99");
    EXPECT_EQ(frequencyText(12000.0), "12k");
    EXPECT_EQ(frequencyText(12009.0), "12k");
    EXPECT_EQ(frequencyText(12050.0), "12k0");
    EXPECT_EQ(frequencyText(12350.0), "12k3");
    EXPECT_EQ(frequencyText(1989.9998), "1k99"); // 1990 Hz as single precision stores its parameter
    EXPECT_EQ(frequencyText(1989.99), "1k98");
    EXPECT_EQ(frequencyText(std::nan("")), "");
}

TEST(NumberReading, TakesTheNumberAtTheStart)
{
    EXPECT_EQ(readNumber("12.5 dB"), 12.5);
    EXPECT_EQ(readNumber("-3"), -3.0);
    EXPECT_EQ(readNumber("+.5"), 0.5);
    EXPECT_EQ(readNumber("1e3"), 1000.0);
    EXPECT_EQ(readNumber("1,5"), 1.0);
    EXPECT_EQ(readNumber("abc"), 0.0);
    EXPECT_EQ(readNumber("+-5"), 0.0);
    EXPECT_EQ(readFrequency("1k5"), 1500.0);
    EXPECT_EQ(readFrequency("2K"), 2000.0);
    EXPECT_EQ(readFrequency("2k05"), 2050.0);
    EXPECT_EQ(readFrequency("1.5k"), 1500.0);
    EXPECT_EQ(readFrequency("440"), 440.0);
    for (const char* text : {"nan", "inf", "-INF", "NaN(1)", "1e999", "-1e999"}) {
        EXPECT_FALSE(readNumber(text)) << text;
        EXPECT_FALSE(readFrequency(text)) << text;
    }
    EXPECT_FALSE(readFrequency("1e308k")); // the mark takes the decimal point's place behind an exponent
}

} // namespace
} // namespace velmora
