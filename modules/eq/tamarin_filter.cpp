#include "modules/eq/tamarin_filter.h"

#include "modules/eq/tamarin_design.h"

namespace velmora {

TamarinFilter::TamarinFilter()
{
    for (EqSection& section : chain_) section.setDepthShare(kDepthShare);
}

void TamarinFilter::setBand(EqBand band, const EqBandSettings& settings)
{
    const TamarinSections s = tamarinSections(band, settings);
    main(band).setDesign(s.main);
    counter(band).setDesign(s.counter);
}

void TamarinFilter::enableBand(EqBand band)
{
    main(band).setEnabled(true);
    counter(band).setEnabled(true);
}

void TamarinFilter::setSampleRate(double hz)
{
    for (EqSection& section : chain_) section.setSampleRate(hz);
}

void TamarinFilter::setAnalog(bool on)
{
    softens_ = on;
    for (EqSection& section : chain_) section.setAnalog(on);
}

void TamarinFilter::reset()
{
    for (EqSection& section : chain_) section.reset();
}

void TamarinFilter::process(EqPiece& piece, double)
{
    if (allRun(chain_) && runInLanes(piece)) return;
    runSeriesApart(piece, chain_, [](EqSection& section, double x) { return section.process(x); });
}

bool TamarinFilter::runInLanes(EqPiece& piece)
{
    return runSofteningLanes(anyGlides(chain_), softens_,
                             [&]<typename V, SectionMotion motion, bool softens>() VELMORA_KERNEL_LAMBDA {
                                 return runSeriesInLanes<V, motion, softens>(piece, chain_);
                             });
}

} // namespace velmora
