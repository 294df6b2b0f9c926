#include "modules/input/console_noise.h"

#include "modules/input/section_setup.h"

#include <cmath>

namespace velmora::preamp {

namespace {

void landHum(StripBiquad& section, const HumPeak& hum, const ComponentSpread& spread, int rail)
{
    landSection(section, hum.frequency.of(spread, rail), hum.q.of(spread, rail), hum.gainDb.of(spread, rail));
}

} // namespace

void ConsoleNoise::reset(double sampleRate)
{
    filterState_ = 0.0;
    for (StripBiquad* section : {&noiseTilt_, &noiseHum1_, &noiseHum2_, &noiseHum3_})
        restartSection(*section, sampleRate);
}

void ConsoleNoise::tune(const DecadeConstants& decade, const ComponentSpread& spread, int rail)
{
    const double tiltGainDb = decade.tiltGainDb * std::sqrt(spread.factor(TolerancePair::T12, rail));
    landSection(noiseTilt_, decade.tiltFrequency, decade.tiltQ, tiltGainDb);
    landHum(noiseHum1_, decade.hum1, spread, rail);
    landHum(noiseHum2_, decade.hum2, spread, rail);
    landHum(noiseHum3_, decade.hum3, spread, rail);
}

void ConsoleNoise::shape(double* block, int count)
{
    noiseTilt_.runBlock(block, count);
    noiseHum1_.runBlock(block, count);
    noiseHum2_.runBlock(block, count);
    noiseHum3_.runBlock(block, count);
}

} // namespace velmora::preamp
