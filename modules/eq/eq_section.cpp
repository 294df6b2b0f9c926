#include "modules/eq/eq_section.h"

namespace velmora {

namespace {

constexpr double kReferenceRate = 44100.0;
constexpr double kDepth = 0.4;
constexpr double kDepthQExponent = 0.75;
constexpr double kTrackPi = 3.1415; // the trackers are tuned with these digits
constexpr double kLowTrackFloor = 0.01;
constexpr double kBandTrackHz = 7000.0;

} // namespace

void EqSection::setDesign(const EqSectionSettings& s)
{
    biquad_.setDesign(s.kind, s.frequency, s.q, s.gainDb);
    updateTrackRates();
}

void EqSection::setSampleRate(double hz)
{
    biquad_.setSampleRate(hz);
    updateTrackRates();
}

void EqSection::setAnalog(bool on)
{
    analog_ = on;
    const double rate = biquad_.sampleRate();
    analogDepth_ = on ? kDepth * (kReferenceRate / rate) * std::sqrt(2.0 * biquad_.frequency() / rate) /
                            std::pow(biquad_.q(), kDepthQExponent)
                      : kIdleDepth;
}

void EqSection::reset()
{
    biquad_.resetState();
    lowTrack_ = 0.0;
    bandTrack_ = 0.0;
}

void EqSection::updateTrackRates()
{
    const double rate = biquad_.sampleRate();
    lowTrackRate_ = 1.0 - std::exp(-kTrackPi * (0.5 * biquad_.frequency() / rate + kLowTrackFloor));
    bandTrackRate_ = 1.0 - std::exp(-kTrackPi * kBandTrackHz / rate);
}

} // namespace velmora
