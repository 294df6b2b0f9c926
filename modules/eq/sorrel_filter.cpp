#include "modules/eq/sorrel_filter.h"

#include "modules/eq/sorrel_design.h"

namespace velmora {

void SorrelFilter::setBand(EqBand band, const EqBandSettings& settings)
{
    const EqSectionSettings s = sorrelSection(band, settings);
    chain_[kEqPlace[index(band)]].setDesign(s.kind, s.frequency, s.q, s.gainDb);
}

void SorrelFilter::setSampleRate(double hz)
{
    for (StripBiquad& section : chain_) section.setSampleRate(hz);
}

void SorrelFilter::setAnalog(bool on)
{
    limits_ = on;
    for (StripBiquad& section : chain_) section.setSoftLimit(on);
}

void SorrelFilter::reset()
{
    for (StripBiquad& section : chain_) section.resetState();
}

void SorrelFilter::process(EqPiece& piece, double)
{
    if (allRun(chain_) && runInLanes(piece)) return;
    runSeriesApart(piece, chain_, [](StripBiquad& section, double x) { return section.runSample(x); });
}

bool SorrelFilter::runInLanes(EqPiece& piece)
{
    const bool gliding = anyGlides(chain_);
    bool sound = false;
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = EqVector<decltype(width)::value>;
        if (limits_)
            sound = runSeriesInLanes<V, SectionMotion::Limited, false>(piece, chain_);
        else if (gliding)
            sound = runSeriesInLanes<V, SectionMotion::Gliding, false>(piece, chain_);
        else
            sound = runSeriesInLanes<V, SectionMotion::Steady, false>(piece, chain_);
    });
    return sound;
}

} // namespace velmora
