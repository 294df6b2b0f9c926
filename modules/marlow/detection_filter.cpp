#include "modules/marlow/detection_filter.h"

namespace velmora {

namespace {

constexpr double kSecondShelfQ = 0.5;

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

void DetectionFilter::design(MarlowShape shape, MarlowControl control, const GlidedBand& band)
{
    const double hz = band.freqNow;
    if (shape == MarlowShape::Peak) {
        const auto kind =
            control == MarlowControl::Direct ? StripBiquadKind::BandPass : StripBiquadKind::Notch;
        detectFirst.design(kind, hz, band.qPeakNow);
        detectSecond.design(kind, hz, band.qPeakNow / 2.0);
        return;
    }
    const StripBiquadKind kind = passKind(shape, control);
    detectFirst.design(kind, hz, band.qShelfNow);
    detectSecond.design(kind, kind == StripBiquadKind::LowPass ? 2.0 * hz : hz / 2.0, kSecondShelfQ);
}

} // namespace velmora
