#include "modules/dehummer/hum_listener.h"

#include <cmath>

namespace velmora {

namespace {

constexpr double kStartHz = 60.0;

double listenQ(int n)
{
    return 40.0 * std::pow(n, 0.35);
}

} // namespace

HumListener::HumListener()
{
    for (std::size_t k = 0; k < listen.size(); ++k) {
        listen[k] = StripBiquad(StripBiquadKind::BandPass, kHeard[k] * kStartHz, listenQ(kHeard[k]));
        listen[k].setEnabled(true);
    }
}

void HumListener::setSampleRate(double hz)
{
    for (StripBiquad& section : listen) section.setSampleRate(hz);
}

void HumListener::setFundamental(double hz)
{
    for (std::size_t k = 0; k < listen.size(); ++k) listen[k].setFrequency(kHeard[k] * hz);
}

void HumListener::reset()
{
    for (StripBiquad& section : listen) section.resetState();
}

} // namespace velmora
