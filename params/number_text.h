#pragma once

#include <optional>
#include <string>
#include <string_view>

/// Numbers as texts and back, the same under every locale.
namespace velmora {

/// Decimal text of a value, rounded half away from zero, up to 8 digits in all. The digits are those of the
/// value at 8 significant places, so that what single precision can't hold doesn't show. A negative value
/// keeps its sign when all its digits are 0.
/// @range decimals 0..7. @return "" for a value at or above 99999999, at or below -9999999, or NaN.
std::string numberText(float value, int decimals);

/// Short text of a frequency in Hz: "8.25", "63.0", "440", "1k5", "2k35", "12k3". Digits that don't show are
/// cut off from 1000 Hz on.
std::string frequencyText(double hertz);

/// Fixed-point text as C's "%W.Df" writes it. @return "" for a value that isn't finite.
std::string fixedText(double value, int width, int decimals);

/// The text without blanks at its ends.
std::string_view trimmed(std::string_view text);

/// The number at the start of a text, decimal mark ".", sign and exponent allowed; 0 if there is none.
/// @return nothing if it names no finite double ("nan", "inf", "1e999").
std::optional<double> readNumber(std::string_view text);

/// As `readNumber`, but a "k" or "K" stands for the decimal mark and multiplies by 1000: "1k5" is 1500.
std::optional<double> readFrequency(std::string_view text);

/// Whole part of a value, cut toward zero and held within 1e9, so that small sums on it stay in int; 0 for
/// NaN.
int wholePart(double value);

} // namespace velmora
