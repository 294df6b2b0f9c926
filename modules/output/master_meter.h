#pragma once

#include "dsp/biquad_design.h"
#include "dsp/meter_cell.h"

#include <array>
#include <atomic>
#include <cstdint>

namespace velmora {

/// Peak, RMS and clip state of the master meter, for two channels.
///
/// The audio thread measures, clears and resets; the readings may be taken from any other thread at any time.
/// Everything that a reading touches is therefore an atomic word.
class QORmasterMeter {
public:
    enum Channel : std::size_t { Left, Right, kChannels };

    QORmasterMeter();

    /// Takes the rate in Hz, clamped to 44100..384000, and clears all readings.
    void setMeterRate(double hz);

    /// Clears peak, RMS and clip state.
    void clearMeter();
    /// Clears what the readings show; a run of full-scale samples goes on counting.
    void clearReadings();
    /// Puts the clip indicators out.
    void clearClip();

    /// Peak reading 0..1; 1 is 10 dB above full scale.
    double peakReading(std::size_t channel) const;
    /// RMS reading 0..1, scaled so that a sine reads the same as on peak.
    double rmsReading(std::size_t channel) const;
    /// Brightness 0..1 of the clip indicator. Reading it ages it: full for three reads after a clip, then
    /// fading to one half, where it stays until cleared. For one reader at a time.
    double readClipIndicator(std::size_t channel);

protected:
    /// Call at the head of each block: what stood there counts in the readings as long as the block runs.
    void markBlockStart();

    /// Measures a block of one channel. @param x linear, of any sign.
    void measure(std::size_t channel, const double* x, std::int32_t frames);

    /// Brings the mean square of both channels to rest, for a rate in Hz.
    void resetMeanSquare(double hz);

    /// Shows the left readings on the right; the right clip indicator stays as it is.
    void mirrorLeft();

private:
    /// The mean square's filter at work: the last two squares, and what came out for them.
    struct MeanSquare {
        double x1 = 0.0, x2 = 0.0;
        double y1 = 0.0, y2 = 0.0;
    };
    /// What a block is followed with.
    struct Followers {
        double peak;
        MeanSquare meanSquare;
        bool reachedFullScale = false;
    };
    template <bool healing>
    Followers follow(Followers start, const double* x, std::int32_t frames) const;
    void countClips(std::size_t channel, const double* x, std::int32_t frames);

    std::array<MeterCell, kChannels> peak;
    std::array<MeterCell, kChannels> rms; ///< mean square; the root is taken by the reading
    std::array<MeterCell, kChannels> peakAtBlockStart;
    std::array<MeterCell, kChannels> rmsAtBlockStart;
    std::array<std::uint32_t, kChannels> clipRun{}; ///< consecutive samples at or above full scale
    std::array<std::atomic<std::int32_t>, kChannels> clipTimer{}; ///< 0 off, 4 just clipped, 1 fading
    std::array<MeterCell, kChannels> clipShown;
    double peakReleaseCoefficient = 1.0;
    std::array<MeanSquare, kChannels> meanSquare{};
    BiquadCoefficients meanSquareFilter;

    static_assert(std::atomic<std::int32_t>::is_always_lock_free);
};

} // namespace velmora
