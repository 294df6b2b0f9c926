#pragma once

#include "dsp/biquad_design.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace velmora {

/// The four bands, in the order of their parameters.
enum class EqBand : std::size_t { High, HighMid, LowMid, Low };
inline constexpr std::size_t kEqBands = 4;
inline constexpr std::array<EqBand, kEqBands> kAllEqBands{EqBand::High, EqBand::HighMid, EqBand::LowMid,
                                                          EqBand::Low};

/// Bandwidth of a bell, steepness of a shelf.
enum class EqWidth : std::size_t { Wide, Normal, Narrow };
inline constexpr std::size_t kEqWidths = 3;

/// The equaliser circuits that one set of controls drives; values of the Type parameter.
enum class EqFlavour : std::int32_t { Sorrel = 1, Tamarin = 2, Juniper = 3 };

template <typename T>
using PerBand = std::array<T, kEqBands>;
template <typename T>
using PerWidth = std::array<T, kEqWidths>;

constexpr std::size_t index(EqBand band)
{
    return static_cast<std::size_t>(band);
}
constexpr std::size_t index(EqWidth width)
{
    return static_cast<std::size_t>(width);
}
constexpr bool isMidBand(EqBand band)
{
    return band == EqBand::HighMid || band == EqBand::LowMid;
}

/// What the user sets on a band.
struct EqBandSettings {
    std::int32_t in = 1;       ///< 0 or 1, acts by a crossfade alone
    double frequency = 1000.0; ///< Hz
    double gainDb = 0.0;       ///< -18..+18 dB
    EqWidth width = EqWidth::Wide;
};

/// What a flavour makes of it for one section; the Q is clamped by the section.
struct EqSectionSettings {
    StripBiquadKind kind = StripBiquadKind::Peaking;
    double frequency = 1000.0; ///< Hz
    double q = 1.0;
    double gainDb = 0.0; ///< dB, unused by high-pass and low-pass
};

} // namespace velmora
