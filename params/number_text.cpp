#include "params/number_text.h"

#include <charconv>
#include <cmath>
#include <cstdint>

#include <algorithm>
#include <array>

namespace velmora {

namespace {

constexpr int kSignificantDigits = 8;

constexpr std::array<std::int64_t, 10> kPowersOfTen{1,      10,      100,      1000,      10000,
                                                    100000, 1000000, 10000000, 100000000, 1000000000};

/// A magnitude at 8 significant places: digits x 10^exponent.
struct Decimal {
    std::int64_t digits;
    int exponent;
};

Decimal toDecimal(float magnitude)
{
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), double{magnitude},
                                   std::chars_format::scientific, kSignificantDigits - 1)
                         .ptr;
    Decimal decimal{0, 0};
    const char* at = buffer.data();
    for (; at != end && *at != 'e'; ++at)
        if (*at != '.') decimal.digits = decimal.digits * 10 + (*at - '0');
    if (at != end) std::from_chars(at + (at[1] == '+' ? 2 : 1), end, decimal.exponent);
    decimal.exponent -= kSignificantDigits - 1;
    return decimal;
}

/// The magnitude in units of the last shown decimal, rounded up from a fraction of 0.49999.
std::int64_t roundedUnits(Decimal decimal, int decimals)
{
    constexpr std::int64_t kRoundUp = 49999;
    constexpr std::int64_t kRoundUpScale = 100000;
    const int shift = decimal.exponent + decimals;
    if (shift >= 0) return decimal.digits * kPowersOfTen[shift];
    if (-shift > kSignificantDigits) return 0;
    const std::int64_t unit = kPowersOfTen[-shift];
    const std::int64_t whole = decimal.digits / unit;
    return (decimal.digits % unit) * kRoundUpScale >= kRoundUp * unit ? whole + 1 : whole;
}

/// A parameter stored in single precision carries a frequency only to about 2.1e-7; without this much slack
/// "1k99" would come back from a host as "1k98".
constexpr double kStorageSlack = 2.5e-7;

bool isBlank(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

} // namespace

std::string numberText(float value, int decimals)
{
    if (!(value < 99999999.0f) || !(value > -9999999.0f)) return {};
    const std::int64_t unit = kPowersOfTen[decimals];
    const std::int64_t units = roundedUnits(toDecimal(std::fabs(value)), decimals);

    const std::string whole = std::to_string(units / unit);
    std::string text = (value < 0.0f ? "-" : "") + whole;
    const int room = kSignificantDigits - static_cast<int>(whole.size());
    const int shown = std::clamp(room, 0, decimals);
    if (shown == 0) return text;
    const std::string fraction = std::to_string(unit + units % unit).substr(1); // keeps leading zeros
    return text + "." + fraction.substr(0, static_cast<std::size_t>(shown));
}

std::string frequencyText(double hertz)
{
    const auto value = static_cast<float>(hertz);
    if (!(value < 99999999.0f)) return {};
    const double reached = double{value} * (1.0 + kStorageSlack);
    if (reached < 10.0) return numberText(value, 2);
    if (reached < 100.0) return numberText(value, 1);
    if (reached < 1000.0) return numberText(value, 0);

    const int whole = wholePart(reached);
    const int hundreds = whole / 100 % 10;
    const int tens = whole / 10 % 10;
    std::string text = std::to_string(whole / 1000) + "k";
    if (hundreds == 0 && tens == 0) return text;
    text += std::to_string(hundreds);
    if (whole < 10000 && tens != 0) text += std::to_string(tens);
    return text;
}

std::string fixedText(double value, int width, int decimals)
{
    if (!std::isfinite(value)) return {};
    std::array<char, 400> buffer{}; // the largest double has 309 digits before the point
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, decimals);
    std::string text(buffer.data(), result.ptr);
    if (text.size() < static_cast<std::size_t>(width))
        text.insert(0, static_cast<std::size_t>(width) - text.size(), ' ');
    return text;
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
    return text;
}

std::optional<double> readNumber(std::string_view text)
{
    std::string_view digits = text;
    if (digits.starts_with('+') && !digits.substr(1).starts_with('-')) digits.remove_prefix(1);
    double value = 0.0;
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (result.ec == std::errc::invalid_argument) return 0.0;
    if (result.ec != std::errc{} || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<double> readFrequency(std::string_view text)
{
    const auto mark = text.find_first_of("kK");
    if (mark == text.npos) return readNumber(text);
    std::string plain(text);
    plain[mark] = '.';
    const auto value = readNumber(plain);
    if (!value || !std::isfinite(*value * 1000.0)) return std::nullopt;
    return *value * 1000.0;
}

int wholePart(double value)
{
    if (std::isnan(value)) return 0;
    constexpr double kLimit = 1e9;
    return static_cast<int>(std::clamp(value, -kLimit, kLimit));
}

} // namespace velmora
