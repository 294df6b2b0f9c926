#include "modules/marlow/detection_filter.h"

namespace velmora {

namespace {

constexpr MarlowTrack kSecondShelfQ = [] {
    MarlowTrack track{};
    track.fill(0.5);
    return track;
}();

// A shelf is heard through a pass filter on its own side or on the other.
StripBiquadKind passKind(MarlowShape shape, MarlowControl control)
{
    const bool below = (shape == MarlowShape::LowShelf) == (control == MarlowControl::Direct);
    return below ? StripBiquadKind::LowPass : StripBiquadKind::HighPass;
}

} // namespace

void DetectionFilter::setSampleRate(double hz)
{
    detectFirst.setSampleRate(hz);
    detectSecond.setSampleRate(hz);
}

void DetectionFilter::reset()
{
    detectFirst.reset();
    detectSecond.reset();
}

void DetectionFilter::design(MarlowShape shape, MarlowControl control, const GlidedBand& band,
                             std::size_t frames)
{
    MarlowTrack second;
    const auto scaled = [&](const MarlowTrack& track, double by) -> const MarlowTrack& {
        for (std::size_t i = 0; i < MarlowTrack::whole(frames); ++i) second[i] = track[i] * by;
        return second;
    };
    if (shape == MarlowShape::Peak) {
        const auto kind =
            control == MarlowControl::Direct ? StripBiquadKind::BandPass : StripBiquadKind::Notch;
        detectFirst.design(kind, {band.freq, band.qPeak, band.stands()}, frames);
        detectSecond.design(kind, {band.freq, scaled(band.qPeak, 0.5), band.stands()}, frames);
        return;
    }
    const StripBiquadKind kind = passKind(shape, control);
    detectFirst.design(kind, {band.freq, band.qShelf, band.stands()}, frames);
    const double octave = kind == StripBiquadKind::LowPass ? 2.0 : 0.5;
    detectSecond.design(kind, {scaled(band.freq, octave), kSecondShelfQ, band.stands()}, frames);
}

} // namespace velmora
