#pragma once

#include <string>

namespace velmora::art {

/// From a control's position 0..1 to the value it shows; rises throughout. The laws of params/laws/ are such.
using Law = double (*)(double);

/// Where a value lies on a control, that is, the inverse of its law. @return 0..1; values beyond the law's
/// ends give the nearer end
double positionOf(Law law, double value);

/// Laws for scales that count in other units than the value itself.
double itself(double position);
double preampDriveDb(double position);
double preampNoiseDb(double position);
double dynamicsRangeDb(double position);
double dynamicsShape(double position); ///< -100..100
double percentage(double position);
double faderDb(double position);
double balanceOffset(double position); ///< -10..10

/// Deflection of gain reduction meters: 0 dB 0, 6 dB about half, infinite reduction 1.
double reductionDeflection(double decibels);

/// Texts of numbers on scales; a minus is a real one.
std::string plainNumber(double value);  ///< "0.5", "-30"
std::string signedNumber(double value); ///< "+10", "0", "-30"
std::string thousands(double value);    ///< "500", "1k", "2k5"
std::string withoutZero(double value);  ///< as thousands, and ".5"

} // namespace velmora::art
