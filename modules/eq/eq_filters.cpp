#include "modules/eq/eq_filters.h"

#include "modules/eq/juniper_design.h"
#include "modules/eq/sorrel_design.h"
#include "modules/eq/tamarin_design.h"

namespace velmora {

void SorrelFilter::setBand(EqBand band, const EqBandSettings& settings)
{
    const EqSectionSettings s = sorrelSection(band, settings);
    main_[index(band)].setDesign(s.kind, s.frequency, s.q, s.gainDb);
}

void SorrelFilter::setSampleRate(double hz)
{
    for (StripBiquad& section : main_) section.setSampleRate(hz);
}

void SorrelFilter::setAnalog(bool on)
{
    for (StripBiquad& section : main_) section.setSoftLimit(on);
}

void SorrelFilter::reset()
{
    for (StripBiquad& section : main_) section.resetState();
}

void TamarinFilter::setBand(EqBand band, const EqBandSettings& settings)
{
    const TamarinSections s = tamarinSections(band, settings);
    bands_[index(band)].main.setDesign(s.main);
    bands_[index(band)].counter.setDesign(s.counter);
}

void TamarinFilter::enableBand(EqBand band)
{
    bands_[index(band)].main.setEnabled(true);
    bands_[index(band)].counter.setEnabled(true);
}

void TamarinFilter::setSampleRate(double hz)
{
    for (Band& band : bands_) {
        band.main.setSampleRate(hz);
        band.counter.setSampleRate(hz);
    }
}

void TamarinFilter::setAnalog(bool on)
{
    for (Band& band : bands_) {
        band.main.setAnalog(on);
        band.counter.setAnalog(on);
    }
}

void TamarinFilter::reset()
{
    for (Band& band : bands_) {
        band.main.reset();
        band.counter.reset();
    }
}

template <typename Action>
void JuniperFilter::forBand(EqBand band, Action action)
{
    switch (band) {
    case EqBand::High:
        action(high_);
        break;
    case EqBand::Low:
        action(low_);
        break;
    case EqBand::HighMid:
        action(highMid_.splitLow);
        action(highMid_.splitHigh);
        break;
    case EqBand::LowMid:
        action(lowMid_.splitLow);
        action(lowMid_.splitHigh);
        break;
    }
}

template <typename Action>
void JuniperFilter::forEachSection(Action action)
{
    for (EqBand band : kAllEqBands) forBand(band, action);
}

void JuniperFilter::setBand(EqBand band, const EqBandSettings& settings)
{
    if (isMidBand(band)) {
        Bell& bell = band == EqBand::HighMid ? highMid_ : lowMid_;
        const JuniperBellSplit split = juniperBellSplit(settings);
        bell.splitLow.setDesign(split.low);
        bell.splitHigh.setDesign(split.high);
    } else {
        (band == EqBand::High ? high_ : low_).setDesign(juniperShelfSplit(band, settings));
    }
    gainTarget_[index(band)] = juniperBandGain(band, settings);
    restGain_[index(band)] = juniperRestGain(settings);
}

void JuniperFilter::enableBand(EqBand band)
{
    forBand(band, [](EqSection& section) { section.setEnabled(true); });
}

void JuniperFilter::setSampleRate(double hz)
{
    forEachSection([hz](EqSection& section) { section.setSampleRate(hz); });
}

void JuniperFilter::setAnalog(bool on)
{
    forEachSection([on](EqSection& section) { section.setAnalog(on); });
}

void JuniperFilter::reset()
{
    forEachSection([](EqSection& section) { section.reset(); });
    gain_ = restGain_;
}

} // namespace velmora
