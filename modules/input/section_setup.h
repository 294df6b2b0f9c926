#pragma once

#include "dsp/strip_biquad.h"

namespace velmora::preamp {

/// The section gets the rate in Hz, silence and runs.
inline void restartSection(StripBiquad& section, double sampleRate)
{
    section.setSampleRate(sampleRate);
    section.resetState();
    section.setEnabled(true);
}

/// Lands an enabled section on a design at once: no glide, no history.
inline void landSection(StripBiquad& section, double frequency, double q, double gainDb = 0.0)
{
    section.setFrequency(frequency);
    section.setQ(q);
    section.setGainDb(gainDb);
    section.resetState();
}

} // namespace velmora::preamp
