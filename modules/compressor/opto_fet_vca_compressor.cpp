#include "modules/compressor/opto_fet_vca_compressor.h"

#include "params/laws/compressor_laws.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double kGlideHz = 10.0;

} // namespace

void OptoFetVcaCompressor::setVariant(std::int32_t typeIndex)
{
    variant = std::clamp<std::int32_t>(typeIndex, Opto, Vca);
}

void OptoFetVcaCompressor::setValue(double& field, double value, unsigned marks)
{
    field = std::clamp(value, 0.0, 1.0);
    stale |= marks;
}

void OptoFetVcaCompressor::setAttack(double value)
{
    setValue(attackValue, value, kDetectors);
}

void OptoFetVcaCompressor::setRelease(double value)
{
    setValue(releaseValue, value, kDetectors);
}

void OptoFetVcaCompressor::setThreshold(double value)
{
    setValue(thresholdValue, value, kThreshold);
}

void OptoFetVcaCompressor::setRatio(double value)
{
    setValue(ratioValue, value, kRatio | detectorMark(Vca));
}

void OptoFetVcaCompressor::setMix(double value)
{
    controls.mix.target = std::clamp(value, 0.0, 1.0);
}

void OptoFetVcaCompressor::setMakeup(double value)
{
    setValue(makeupValue, value, kMakeup);
}

void OptoFetVcaCompressor::setHighPass(double value)
{
    setValue(hpfValue, value, kHighPass);
}

double OptoFetVcaCompressor::gainReduction() const
{
    return 1.0 - std::clamp<double>(gain, 0.0, 1.0);
}

bool OptoFetVcaCompressor::takeStale(unsigned marks)
{
    const bool found = (stale & marks) != 0;
    stale &= ~marks;
    return found;
}

void OptoFetVcaCompressor::updateCoefficients(double sampleRate)
{
    if ((stale & (kShared | detectorMark(variant))) == 0) return;
    if (takeStale(kRate)) coefficients.s = stepOfFrequency(kGlideHz, sampleRate);
    if (takeStale(kHighPass))
        coefficients.hpCoefficient = stepOfFrequency(compressor::highPassHz(hpfValue), sampleRate);
    if (takeStale(kRatio)) {
        controls.optoRatio.target = optoTarget(ratioValue);
        controls.fetRatio.target = fetTarget(ratioValue);
    }
    if (takeStale(kThreshold))
        controls.threshold.target = std::pow(10.0, (1.0 - thresholdValue) * 0.05 * 50.0) * 0.31623;
    if (takeStale(kMakeup)) controls.makeup.target = std::pow(10.0, compressor::makeupDb(makeupValue) * 0.05);
    if (takeStale(detectorMark(variant))) updateDetector(sampleRate);
}

void OptoFetVcaCompressor::updateDetector(double sampleRate)
{
    const CompressorTimes times = compressorTimes(attackValue, releaseValue, sampleRate);
    if (variant == Opto)
        coefficients.opto = optoCoefficients(times);
    else if (variant == Fet)
        coefficients.fet = fetCoefficients(times);
    else
        coefficients.vca = vcaCoefficients(times, ratioValue);
}

void OptoFetVcaCompressor::resetCompressor(double sampleRate)
{
    updateCoefficients(sampleRate);
    controls.threshold.land();
    controls.makeup.land();
    controls.mix.land();
    controls.optoRatio.land();
    controls.fetRatio.now = fetResetRatio(ratioValue);
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
