#include "modules/output/master_meter.h"

#include "dsp/flush.h"

#include <algorithm>
#include <cmath>

namespace velmora {

namespace {

constexpr double kMinRate = 44100.0;
constexpr double kMaxRate = 384000.0;
constexpr double kPeakReleaseTime = 1.2;  // seconds
constexpr double kPeakResidue = 0.109;    // -19.25 dB
constexpr double kMeanSquareCutoff = 1.0; // Hz
constexpr double kMeanSquareQ = 0.5;
constexpr double kFlush = 1e-30;         // a level that nobody feeds would end as a denormal number
constexpr double kMeterScale = 0.316228; // +10 dB above full scale reads 1
constexpr double kSineCrest = 1.4142;

constexpr double kFullScale = 1.0;
constexpr std::uint32_t kClipRunLimit = 3;
constexpr std::int32_t kFreshClip = 4;
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

void QORmasterMeter::resetMeanSquare(double hz)
{
    meanSquareFilter = designBiquad(
        {StripBiquadKind::LowPass, kMeanSquareCutoff, kMeanSquareQ, 0.0, std::clamp(hz, kMinRate, kMaxRate)});
    meanSquare = {};
}

void QORmasterMeter::measure(std::size_t channel, const double* x, std::int32_t frames)
{
    const Followers start{peak[channel], meanSquare[channel]};
    Followers end = follow<false>(start, x, frames);
    if (!std::isfinite(end.meanSquare.y1)) end = follow<true>(start, x, frames);
    peak[channel] = flush(end.peak, kFlush);
    meanSquare[channel] = end.meanSquare;
    meanSquare[channel].y1 = flush(end.meanSquare.y1, kFlush);
    meanSquare[channel].y2 = flush(end.meanSquare.y2, kFlush);
    rms[channel] = meanSquare[channel].y1;
    if (end.reachedFullScale)
        countClips(channel, x, frames);
    else if (frames > 0)
        clipRun[channel] = 0;
}

// Both recursions in one loop: each alone would leave the processor waiting. The mean square's takes its
// terms in the order of the strip's second-order section; near its poles another order would be heard from
// afar. Healing lets nothing stay that is no number, and only blocks that meet such need it.
template <bool healing>
QORmasterMeter::Followers QORmasterMeter::follow(Followers start, const double* x, std::int32_t frames) const
{
    const BiquadCoefficients c = meanSquareFilter;
    const double fall = peakReleaseCoefficient;
    auto [held, m, full] = start;
    for (std::int32_t i = 0; i < frames; ++i) {
        const double magnitude = std::fabs(x[i]);
        full |= magnitude >= kFullScale;
        held = magnitude > held ? magnitude : held - held * fall;
        double square = magnitude * magnitude;
        if (healing && std::isnan(square)) square = 0.0;
        double y = c.b0 * square + c.b1 * m.x1 + c.b2 * m.x2 - c.a1 * m.y1 - c.a2 * m.y2;
        if (healing && std::isnan(y)) y = m.y1 = 0.0;
        m = {square, m.x1, y, m.y1};
    }
    return {held, m, full};
}

void QORmasterMeter::countClips(std::size_t channel, const double* x, std::int32_t frames)
{
    for (std::int32_t i = 0; i < frames; ++i) {
        clipRun[channel] = std::fabs(x[i]) >= kFullScale ? clipRun[channel] + 1 : 0;
        if (clipRun[channel] >= kClipRunLimit)
            clipTimer[channel].store(kFreshClip, std::memory_order_relaxed);
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
