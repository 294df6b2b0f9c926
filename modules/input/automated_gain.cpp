#include "modules/input/automated_gain.h"

#include "dsp/flush.h"
#include "dsp/one_pole.h"

#include <algorithm>
#include <cmath>

namespace velmora::preamp {

namespace {

constexpr int kGroup = 16;
constexpr double kGlideSeconds = 0.2 * 0.0625; // 200 ms at one step per group
constexpr double kGainFlush = 1e-15;
const double kGainFloor = std::pow(10.0, -1.5000000223517418); // about -30 dB
const double kGainCeiling = std::pow(10.0, 1.5000000223517418);

} // namespace

void AutomatedGain::reset(double sampleRate)
{
    agaGain = agaTarget;
    glide = onePoleRate(kGlideSeconds, sampleRate);
    for (StripBiquad& filter : rmsFilter) {
        filter.setSampleRate(sampleRate);
        filter.resetState();
        filter.setEnabled(true);
    }
}

void AutomatedGain::clearMaxima()
{
    agaLevelMax = agaMaxMeanSquare = agaMaxPeak = 0.0;
}

void AutomatedGain::seed(double gain)
{
    agaMaxMeanSquare = 0.0;
    agaTarget = gain;
    agaLevelMax = agaMaxPeak = agaReference / gain;
}

void AutomatedGain::process(RailBlocks& blocks, int count, bool stereo)
{
    const Levels levels = detect(blocks, count, stereo);
    double target = agaTarget;
    double gain = agaGain;
    for (int start = 0; start < count; start += kGroup) {
        if (agaUpDown) gain += (target - gain) * glide;
        const auto end = static_cast<std::size_t>(std::min(start + kGroup, count));
        for (auto i = static_cast<std::size_t>(start); i < end; ++i) {
            learn(levels.meanSquare[i], levels.peak[i]);
            target = aimed(target);
            gain = moved(gain, target);
            for (RailBlock& block : blocks) block[i] = gain * block[i];
        }
    }
    agaTarget = target;
    agaGain = gain;
}

AutomatedGain::Levels AutomatedGain::detect(const RailBlocks& blocks, int count, bool stereo)
{
    const auto samples = static_cast<std::size_t>(count);
    Levels levels;
    for (std::size_t i = 0; i < samples; ++i) {
        levels.peak[i] = std::fabs(blocks[0][i]);
        levels.meanSquare[i] = rmsFilter[0].runSample(levels.peak[i] * levels.peak[i]);
    }
    for (std::size_t i = 0; stereo && i < samples; ++i) {
        const double right = std::fabs(blocks[1][i]);
        levels.meanSquare[i] = std::max(levels.meanSquare[i], rmsFilter[1].runSample(right * right));
        levels.peak[i] = std::max(levels.peak[i], right);
    }
    return levels;
}

// Twice the RMS times the root of two: the reading of a sine is twice its peak.
void AutomatedGain::learn(double meanSquare, double peak)
{
    agaMaxMeanSquare = std::max(agaMaxMeanSquare, meanSquare);
    agaMaxPeak = std::max(agaMaxPeak, peak);
    rmsLevel = 2.0 * std::sqrt(agaMaxMeanSquare) * 1.4142;
    agaLevelMax = std::max(agaLevelMax, rmsLevel);
}

// "Down" asks for a new gain only if the level goes past the reference with the present one.
double AutomatedGain::aimed(double now) const
{
    const double detected = agaDetectRms ? rmsLevel : agaMaxPeak;
    double target = now;
    if (detected > 0.0 && (agaUpDown || detected * now >= agaReference))
        target = agaReference / (agaDetectRms ? agaLevelMax : agaMaxPeak);
    return std::clamp(target, kGainFloor, kGainCeiling);
}

double AutomatedGain::moved(double gain, double target) const
{
    if (agaUpDown && gain > target) return flush(target, kGainFlush);
    return flush((target - gain) * glide + gain, kGainFlush);
}

} // namespace velmora::preamp
