#pragma once

#include "modules/eq/eq_piece.h"

namespace velmora {

/// Share per sample of the two-pole low-pass whose output drives a flavour's saturation.
double eqDriveRate(EqFlavour flavour, double sampleRate);

/// Output stage: the gain of each sample gives way to its drive, the signal itself isn't filtered. NaN
/// becomes silence. The rows behind `frames` are scratch.
void eqSaturate(EqFlavour flavour, EqPiece::Row& audio, EqPiece::Row& drive, std::int32_t frames);

} // namespace velmora
