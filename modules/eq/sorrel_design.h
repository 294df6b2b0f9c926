#pragma once

#include "modules/eq/eq_band.h"

namespace velmora {

/// Sorrel's section of a band: proportional Q, which rises with boost and cut alike. The outer bands are
/// shelves, and bells when Narrow.
EqSectionSettings sorrelSection(EqBand band, const EqBandSettings& settings);

} // namespace velmora
