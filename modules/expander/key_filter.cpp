#include "modules/expander/key_filter.h"

namespace velmora {

KeyFilter::KeyFilter()
{
    for (StripBiquad& section : highPass_) section.setEnabled(true);
    for (StripBiquad& section : lowPass_) section.setEnabled(true);
}

void KeyFilter::setHighPassFrequency(double hz)
{
    for (StripBiquad& section : highPass_) section.setFrequency(hz);
}

void KeyFilter::setLowPassFrequency(double hz)
{
    for (StripBiquad& section : lowPass_) section.setFrequency(hz);
}

void KeyFilter::setSampleRate(double hz)
{
    for (StripBiquad& section : highPass_) section.setSampleRate(hz);
    for (StripBiquad& section : lowPass_) section.setSampleRate(hz);
}

void KeyFilter::reset()
{
    for (StripBiquad& section : highPass_) section.resetState();
    for (StripBiquad& section : lowPass_) section.resetState();
}

} // namespace velmora
