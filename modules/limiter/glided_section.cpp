#include "modules/limiter/glided_section.h"

namespace velmora::limiter {

namespace {

constexpr double kStartRate = 44100.0;
constexpr std::uint32_t kGlideSamples = 2646; // 60 ms at the start rate; kept at all others

} // namespace

void GlidedSection::init(StripBiquadKind kind, double hz, double q, double gainDb)
{
    settings = {kind, hz, q, gainDb, kStartRate};
    glide.init(kGlideSamples);
    stale = true;
    landing = false;
}

// A design that is to land can't wait any longer when another one glides away from it.
void GlidedSection::setSampleRate(double hz)
{
    if (landing) design();
    settings.sampleRate = hz;
    stale = true;
}

void GlidedSection::glideTo(double hz)
{
    if (landing) design();
    settings.frequency = hz;
    stale = true;
}

void GlidedSection::placeAt(double hz)
{
    settings.frequency = hz;
    stale = landing = true;
}

void GlidedSection::land()
{
    glide.snap();
    filled = false;
    landing = stale;
}

void GlidedSection::design()
{
    glide.aim(designBiquad(settings));
    if (landing) glide.snap();
    stale = landing = filled = false;
}

} // namespace velmora::limiter
