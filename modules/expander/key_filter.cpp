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

BiquadChain KeyFilter::chain(const double* key, double* filtered, Links& links)
{
    std::size_t count = 0;
    const auto append = [&](std::array<StripBiquad, 2>& sections) {
        for (StripBiquad& section : sections) links[count++] = {&section};
    };
    if (highPassIn_) append(highPass_);
    if (lowPassIn_) append(lowPass_);
    if (count != 0) links[count - 1].output = filtered;
    return {key, std::span(links).first(count)};
}

void KeyFilter::reset()
{
    for (StripBiquad& section : highPass_) section.resetState();
    for (StripBiquad& section : lowPass_) section.resetState();
}

} // namespace velmora
