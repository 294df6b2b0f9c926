#pragma once

#include "modules/eq/eq_band.h"

namespace velmora {

/// Sections that split a mid band off: what neither the low-pass nor the high-pass lets through.
struct JuniperBellSplit {
    EqSectionSettings low;
    EqSectionSettings high;
};

/// Section whose complement is an outer band: a low-pass for High, a high-pass for Low.
EqSectionSettings juniperShelfSplit(EqBand band, const EqBandSettings& settings);

/// Sections of a mid band; a cut is twice as wide as a boost.
JuniperBellSplit juniperBellSplit(const EqBandSettings& settings);

/// Linear gain with which a band is added back.
double juniperBandGain(EqBand band, const EqBandSettings& settings);

/// Linear gain from which a band moves to `juniperBandGain` after a reset.
double juniperRestGain(const EqBandSettings& settings);

} // namespace velmora
