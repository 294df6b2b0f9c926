#include "art/parts/law.h"

#include "params/laws/dynamics_laws.h"
#include "params/laws/output_laws.h"
#include "params/laws/preamp_laws.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace velmora::art {

double positionOf(Law law, double value)
{
    double low = 0.0;
    double high = 1.0;
    for (int halving = 0; halving < 60; ++halving) {
        const double middle = (low + high) / 2;
        // Laws may be no number at their very ends.
        if (law(middle) < value)
            low = middle;
        else
            high = middle;
    }
    return high;
}

double itself(double position)
{
    return position;
}

double preampDriveDb(double position)
{
    return 20.0 * std::log10(preamp::driveGain(position));
}

double preampNoiseDb(double position)
{
    return 20.0 * std::log10(preamp::noiseGain(position));
}

double dynamicsRangeDb(double position)
{
    return 20.0 * std::log10(dynamics::rangeGain(position));
}

double dynamicsShape(double position)
{
    return 200.0 * position - 100.0;
}

double percentage(double position)
{
    return 100.0 * position;
}

double faderDb(double position)
{
    return 20.0 * std::log10(output::faderGain(position));
}

double balanceOffset(double position)
{
    return 20.0 * position - 10.0;
}

double reductionDeflection(double decibels)
{
    return 1.0 - std::pow(10.0, -decibels / 20.0);
}

std::string plainNumber(double value)
{
    std::array<char, 32> digits{};
    std::snprintf(digits.data(), digits.size(), "%g", std::abs(value));
    std::string text = value < 0.0 ? "\u2212" : "";
    return text.append(digits.data());
}

std::string signedNumber(double value)
{
    std::string text = value > 0.0 ? "+" : "";
    return text.append(plainNumber(value));
}

std::string thousands(double value)
{
    if (value < 1000.0) return plainNumber(value);
    const int hundreds = static_cast<int>(std::lround(value / 100.0));
    return std::to_string(hundreds / 10) + "k" + (hundreds % 10 ? std::to_string(hundreds % 10) : "");
}

std::string withoutZero(double value)
{
    const std::string text = thousands(value);
    return text.starts_with("0.") ? text.substr(1) : text;
}

} // namespace velmora::art
