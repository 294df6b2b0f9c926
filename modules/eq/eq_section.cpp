#include "modules/eq/eq_section.h"

#include <cmath>

namespace velmora {

namespace {

constexpr double kReferenceRate = 44100.0;
constexpr double kDepth = 0.4;
constexpr double kDepthQExponent = 0.75;
constexpr double kTrackPi = 3.1415; // the trackers are tuned with these digits
constexpr double kLowTrackFloor = 0.01;
constexpr double kBandTrackHz = 7000.0;

} // namespace

EqSection::EqSection()
{
    updateTrackRates();
}

void EqSection::setDesign(const EqSectionSettings& s)
{
    biquad_.setDesign(s.kind, s.frequency, s.q, s.gainDb);
    updateLowTrackRate();
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
    softening_.depth = analogDepth_ * depthShare_;
}

void EqSection::reset()
{
    biquad_.resetState();
    softening_.lowTrack = 0.0;
    softening_.bandTrack = 0.0;
}

void EqSection::updateTrackRates()
{
    softening_.bandTrackRate = 1.0 - std::exp(-kTrackPi * kBandTrackHz / biquad_.sampleRate());
    updateLowTrackRate();
}

void EqSection::updateLowTrackRate()
{
    const double share = 0.5 * biquad_.frequency() / biquad_.sampleRate();
    softening_.lowTrackRate = 1.0 - std::exp(-kTrackPi * (share + kLowTrackFloor));
}

} // namespace velmora
