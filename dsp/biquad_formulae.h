#pragma once

#include "dsp/biquad_design.h"
#include "dsp/lanes.h"
#include "dsp/vector_math.h"
#include "dsp/vector_sine.h"

#include <array>
#include <cstddef>
#include <numbers>

/// The cookbook's sections (see `designBiquad`) for one value or for lanes of them, which get the same bits.
/// c is the cosine of the angular frequency, alpha its sine by twice the Q; a the amplitude of half the gain,
/// b the sine times the root of a, by the Q.
namespace velmora::formulae {

inline constexpr double kHighestShare = 0.499; ///< of the sample rate: the frequency is held there

/// Near Nyquist: Q x (1 - (f / (scale x rate)) ^ exponent)
struct QWarp {
    double exponent;
    double scale;
};

inline constexpr std::array<QWarp, 11> kQWarps{{
    {0.0, 0.0},     // None: Q stays
    {6.0, 0.5001},  // HighPass
    {0.0, 0.0},     // Smoother
    {3.5, 0.5001},  // LowShelf
    {2.8, 0.5001},  // Peaking
    {2.8, 0.5001},  // BandPass
    {2.8, 0.5001},  // Notch
    {4.0, 0.5001},  // HighShelf
    {8.0, 0.50001}, // LowPass
    {0.0, 0.0},     // OnePoleLowPass
    {0.0, 0.0},     // AllPass
}};

/// As `BiquadPrewarp`.
template <typename V>
struct PrewarpLanes {
    V c, s, q;
};

/// As `prewarpBiquad`, but for the last bit.
template <typename V>
VELMORA_KERNEL PrewarpLanes<V> prewarp(StripBiquadKind kind, const V& hz, const V& q, double sampleRate)
{
    const V held = minLanes<V>(hz, allLanes<V>(kHighestShare * sampleRate));
    const auto [sine, cosine] = sineCosineLanes<V>(2.0 * std::numbers::pi * held / sampleRate);
    const QWarp warp = kQWarps[static_cast<std::size_t>(kind)];
    if (warp.exponent == 0.0) return {cosine, sine, q};
    const V share = (kind == StripBiquadKind::BandPass ? hz : held) / (warp.scale * sampleRate);
    return {cosine, sine, q * (1.0 - powLanes<V>(share, allLanes<V>(warp.exponent)))};
}

/// As `BiquadCoefficients`.
template <typename T>
struct BiquadTerms {
    T a0, a1, a2, b0, b1, b2;
};

template <typename T>
VELMORA_KERNEL BiquadTerms<T> highPass(const T& c, const T& alpha)
{
    const T d = 1.0 + alpha;
    const T b0 = (1.0 + c) / 2.0 / d;
    return {d, -2.0 * c / d, (1.0 - alpha) / d, b0, -(1.0 + c) / d, b0};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> lowPass(const T& c, const T& alpha)
{
    const T d = 1.0 + alpha;
    const T b0 = (1.0 - c) / 2.0 / d;
    return {d, -2.0 * c / d, (1.0 - alpha) / d, b0, (1.0 - c) / d, b0};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> peaking(const T& c, const T& alpha, const T& a)
{
    const T d = 1.0 + alpha / a;
    const T b1 = -2.0 * c / d;
    return {d, b1, (1.0 - alpha / a) / d, (1.0 + alpha * a) / d, b1, (1.0 - alpha * a) / d};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> bandPass(const T& c, const T& alpha)
{
    const T d = 1.0 + alpha;
    const T b0 = alpha / d;
    return {d, -2.0 * c / d, (1.0 - alpha) / d, b0, T{}, -b0};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> notch(const T& c, const T& alpha)
{
    const T d = 1.0 + alpha;
    const T b1 = -2.0 * c / d;
    return {d, b1, (1.0 - alpha) / d, 1.0 / d, b1, 1.0 / d};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> allPass(const T& c, const T& alpha)
{
    const T d = 1.0 + alpha;
    const T b0 = (1.0 - alpha) / d;
    const T b1 = -2.0 * c / d;
    return {d, b1, b0, b0, b1, T{} + 1.0};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> lowShelf(const T& c, const T& a, const T& b)
{
    const T d = (a + 1.0) + (a - 1.0) * c + b;
    return {d,
            -2.0 * ((a - 1.0) + (a + 1.0) * c) / d,
            ((a + 1.0) + (a - 1.0) * c - b) / d,
            a * ((a + 1.0) - (a - 1.0) * c + b) / d,
            2.0 * a * ((a - 1.0) - (a + 1.0) * c) / d,
            a * ((a + 1.0) - (a - 1.0) * c - b) / d};
}

template <typename T>
VELMORA_KERNEL BiquadTerms<T> highShelf(const T& c, const T& a, const T& b)
{
    const T d = (a + 1.0) - (a - 1.0) * c + b;
    return {d,
            2.0 * ((a - 1.0) - (a + 1.0) * c) / d,
            ((a + 1.0) - (a - 1.0) * c - b) / d,
            a * ((a + 1.0) + (a - 1.0) * c + b) / d,
            -2.0 * a * ((a - 1.0) + (a + 1.0) * c) / d,
            a * ((a + 1.0) + (a - 1.0) * c - b) / d};
}

} // namespace velmora::formulae
