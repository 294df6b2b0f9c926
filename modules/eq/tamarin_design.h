#pragma once

#include "modules/eq/eq_band.h"

namespace velmora {

/// A main section and the one that works against it.
struct TamarinSections {
    EqSectionSettings main;
    EqSectionSettings counter;
};

/// Tamarin's sections of a band: a boost is a bell with a narrower counter-bell, a cut of an outer band a
/// shelf with its counter at rest, a cut of a mid band a bell with a wider counter-bell. 0 dB is a boost.
TamarinSections tamarinSections(EqBand band, const EqBandSettings& settings);

} // namespace velmora
