#include "modules/input/automated_gain.h"

#include "dsp/flush.h"
#include "dsp/one_pole.h"
#include "modules/input/section_setup.h"

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
    for (StripBiquad& filter : rmsFilter) restartSection(filter, sampleRate);
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

void AutomatedGain::process(const RailBlocks& in, RailBlocks& out, int count, bool stereo)
{
    for (int start = 0; start < count; start += kGroup) {
        if (agaUpDown) agaGain += (agaTarget - agaGain) * glide;
        const auto end = static_cast<std::size_t>(std::min(start + kGroup, count));
        for (auto i = static_cast<std::size_t>(start); i < end; ++i) {
            double peak = std::fabs(in[0][i]);
            double meanSquare = rmsFilter[0].runSample(peak * peak);
            if (stereo) {
                const double right = std::fabs(in[1][i]);
                meanSquare = std::max(meanSquare, rmsFilter[1].runSample(right * right));
                peak = std::max(peak, right);
            }
            learn(meanSquare, peak);
            aim();
            moveGain();
            out[0][i] = agaGain * in[0][i];
            out[1][i] = agaGain * in[1][i];
        }
    }
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
void AutomatedGain::aim()
{
    const double now = agaTarget;
    const double detected = agaDetectRms ? rmsLevel : agaMaxPeak;
    double target = now;
    if (detected > 0.0 && (agaUpDown || detected * now >= agaReference))
        target = agaReference / (agaDetectRms ? agaLevelMax : agaMaxPeak);
    agaTarget = std::clamp(target, kGainFloor, kGainCeiling);
}

void AutomatedGain::moveGain()
{
    const double target = agaTarget;
    if (agaUpDown && agaGain > target)
        agaGain = flush(target, kGainFlush);
    else
        agaGain = flush((target - agaGain) * glide + agaGain, kGainFlush);
}

} // namespace velmora::preamp
