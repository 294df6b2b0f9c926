#include "modules/output/master_meter.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double kMinRate = 44100.0;
constexpr double kMaxRate = 384000.0;
constexpr double kPeakReleaseTime = 1.2; // seconds
constexpr double kPeakResidue = 0.109;   // -19.25 dB
constexpr double kMeterScale = 0.316228; // +10 dB above full scale reads 1
constexpr double kSineCrest = 1.4142;

constexpr std::int32_t kFadingClip = 1;
constexpr double kFadePerRead = 0.05;
constexpr double kFadedClip = 0.5;

double clampReading(double value)
{
    return std::clamp(value, 0.0, 1.0);
}

} // namespace

QORmasterMeter::QORmasterMeter()
{
    setMeterRate(kMinRate);
}

void QORmasterMeter::setMeterRate(double hz)
{
    const double sampleRate = std::clamp(hz, kMinRate, kMaxRate);
    peakReleaseCoefficient = 1.0 - std::pow(kPeakResidue, 1.0 / (kPeakReleaseTime * sampleRate));
    clearMeter();
}

void QORmasterMeter::clearMeter()
{
    clearReadings();
    clearClip();
}

void QORmasterMeter::clearReadings()
{
    for (std::size_t c = 0; c < kChannels; ++c) {
        peak[c] = 0.0;
        rms[c] = 0.0;
        peakAtBlockStart[c] = 0.0;
        rmsAtBlockStart[c] = 0.0;
        clipTimer[c].store(0, std::memory_order_relaxed);
        clipShown[c] = 0.0;
    }
}

void QORmasterMeter::clearClip()
{
    for (std::size_t c = 0; c < kChannels; ++c) {
        clipRun[c] = 0;
        clipTimer[c].store(0, std::memory_order_relaxed);
    }
}

void QORmasterMeter::markBlockStart()
{
    for (std::size_t c = 0; c < kChannels; ++c) {
        peakAtBlockStart[c] = static_cast<double>(peak[c]);
        rmsAtBlockStart[c] = static_cast<double>(rms[c]);
    }
}

void QORmasterMeter::mirrorLeft()
{
    clipRun[Right] = clipRun[Left];
    peak[Right] = static_cast<double>(peak[Left]);
    rms[Right] = static_cast<double>(rms[Left]);
}

double QORmasterMeter::peakReading(std::size_t channel) const
{
    const double level = std::max<double>(peak[channel], peakAtBlockStart[channel]);
    return clampReading(level * kMeterScale);
}

double QORmasterMeter::rmsReading(std::size_t channel) const
{
    // Rounding may leave the filter's tail a hair below zero.
    const double level = std::max<double>({rms[channel], rmsAtBlockStart[channel], 0.0});
    return clampReading(std::sqrt(level) * kSineCrest * kMeterScale);
}

double QORmasterMeter::readClipIndicator(std::size_t channel)
{
    std::atomic<std::int32_t>& timer = clipTimer[channel];
    const std::int32_t t = timer.load(std::memory_order_relaxed);
    if (t > kFadingClip) {
        // If the audio thread has written since, its fresh clip or clearing stands.
        std::int32_t expected = t;
        timer.compare_exchange_strong(expected, t - 1, std::memory_order_relaxed);
    }
    double shown = 1.0;
    if (t == 0)
        shown = 0.0;
    else if (t == kFadingClip)
        shown = std::max(clipShown[channel] - kFadePerRead, kFadedClip);
    clipShown[channel] = shown;
    return clampReading(shown);
}

} // namespace velmora
