#include "modules/compressor/opto_fet_vca_compressor.h"

#include "params/laws/compressor_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double kGlideHz = 10.0;
constexpr double kInitialThreshold = 0.5;

} // namespace

OptoFetVcaCompressor::OptoFetVcaCompressor()
{
    setThreshold(kInitialThreshold);
}

void OptoFetVcaCompressor::setVariant(std::int32_t typeIndex)
{
    variant = std::clamp<std::int32_t>(typeIndex, Opto, Vca);
}

void OptoFetVcaCompressor::setValue(double& field, double value)
{
    field = std::clamp(value, 0.0, 1.0);
    stale = true;
}

void OptoFetVcaCompressor::setAttack(double value)
{
    setValue(attackValue, value);
}

void OptoFetVcaCompressor::setRelease(double value)
{
    setValue(releaseValue, value);
}

void OptoFetVcaCompressor::setThreshold(double value)
{
    const double thresholdValue = 1.0 - std::clamp(value, 0.0, 1.0);
    controls.thresholdScale = std::pow(10.0, thresholdValue * 0.05 * 50.0) * 0.31623;
}

void OptoFetVcaCompressor::setRatio(double value)
{
    setValue(ratioValue, value);
}

void OptoFetVcaCompressor::setHighPass(double value)
{
    setValue(hpfValue, value);
}

double OptoFetVcaCompressor::gainReduction() const
{
    return 1.0 - std::clamp<double>(gain, 0.0, 1.0);
}

void OptoFetVcaCompressor::updateCoefficients(double sampleRate)
{
    if (!stale) return;
    const CompressorTimes times = compressorTimes(attackValue, releaseValue, sampleRate);
    coefficients = {.opto = optoCoefficients(times),
                    .fet = fetCoefficients(times),
                    .vca = vcaCoefficients(times, ratioValue),
                    .s = stepOfFrequency(kGlideHz, sampleRate),
                    .hpCoefficient = stepOfFrequency(compressor::highPassHz(hpfValue), sampleRate)};
    controls.optoTarget = optoTarget(ratioValue);
    controls.fetTarget = fetTarget(ratioValue);
    stale = false;
}

void OptoFetVcaCompressor::resetCompressor(double sampleRate)
{
    updateCoefficients(sampleRate);
    controls.thresholdScaleCurrent = controls.thresholdScale;
    controls.makeupGainCurrent = controls.makeupGain;
    controls.mixCurrent = controls.mix;
    controls.optoRatio = controls.optoTarget;
    controls.fetRatio = fetResetRatio(ratioValue);
    for (KeyChannel& channel : channels) channel.highPass.reset();
    resetDetectors();
    resetGain();
}

void OptoFetVcaCompressor::resetDetectors()
{
    for (KeyChannel& channel : channels) {
        channel.opto.reset();
        channel.fet.reset();
        channel.vca.reset();
    }
}

} // namespace velmora
