#pragma once

#include "dsp/strip_biquad.h"

namespace velmora::limiter {

/// Low shelves around the saturator: the low end reaches the curve 20 dB down and comes back behind it, so
/// bass saturates less. The key has a pre-emphasis of its own.
class Emphasis {
public:
    void init();
    void setSampleRate(double hz);
    /// @param highPassHz the HPF control, 10..1000; the shelves sit well below it
    void setHighPass(double highPassHz);
    void reset();

    /// Both pre-emphases, in place.
    void runPre(double* detect, double* audio, int count)
    {
        for (int i = 0; i < count; ++i) {
            detect[i] = sidePre.runSample(detect[i]);
            audio[i] = audioPre.runSample(audio[i]);
        }
    }

    /// Applies the gains and takes the pre-emphasis back, in place.
    void runPost(const double* gains, double* audio, int count)
    {
        for (int i = 0; i < count; ++i) audio[i] = audioPost.runSample(gains[i] * audio[i]);
    }

private:
    static constexpr double kShelfDb = 20.0;
    static constexpr double kQ = 0.5;
    static constexpr double kStartHz = 10.0;
    static constexpr double kHighPassToShelf = 2.6;

    static void initShelf(StripBiquad& shelf, double gainDb)
    {
        shelf.initStripBiquad(44100.0, StripBiquadKind::LowShelf, kStartHz, kQ, gainDb);
        shelf.setEnabled(true);
        shelf.setFrequency(kStartHz); // a section designs itself with its first setting after enabling
    }

    StripBiquad sidePre;
    StripBiquad audioPre;
    StripBiquad audioPost;
};

inline void Emphasis::init()
{
    initShelf(sidePre, -kShelfDb);
    initShelf(audioPre, -kShelfDb);
    initShelf(audioPost, kShelfDb);
}

inline void Emphasis::setSampleRate(double hz)
{
    sidePre.setSampleRate(hz);
    audioPre.setSampleRate(hz);
    audioPost.setSampleRate(hz);
}

inline void Emphasis::setHighPass(double highPassHz)
{
    const double hz = highPassHz / kHighPassToShelf;
    sidePre.setFrequency(hz);
    audioPre.setFrequency(hz);
    audioPost.setFrequency(hz);
}

inline void Emphasis::reset()
{
    sidePre.resetState();
    audioPre.resetState();
    audioPost.resetState();
}

} // namespace velmora::limiter
