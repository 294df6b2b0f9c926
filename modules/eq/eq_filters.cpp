#include "modules/eq/eq_filters.h"

#include "modules/eq/juniper_design.h"
#include "modules/eq/sorrel_design.h"
#include "modules/eq/tamarin_design.h"

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
    for (StripBiquad& section : chain_) section.setSoftLimit(on);
}

void SorrelFilter::reset()
{
    for (StripBiquad& section : chain_) section.resetState();
}

void SorrelFilter::process(EqPiece& piece, double)
{
    runDiagonally<kEqBands>(piece.frames, [&](std::size_t k, std::int32_t n) {
        const auto at = static_cast<std::size_t>(n);
        const double y = piece.audio[at];
        piece.audio[at] = y + (chain_[k].runSample(y) - y) * piece.mix[at][index(kEqSeries[k])];
    });
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
    for (EqSection& section : chain_) section.setAnalog(on);
}

void TamarinFilter::reset()
{
    for (EqSection& section : chain_) section.reset();
}

void TamarinFilter::process(EqPiece& piece, double)
{
    runDiagonally<2 * kEqBands>(piece.frames, [&](std::size_t k, std::int32_t n) {
        const auto at = static_cast<std::size_t>(n);
        const double y = piece.audio[at];
        const double wet = chain_[k].process(y, kDepthShare);
        piece.audio[at] = y + (wet - y) * piece.mix[at][index(kEqSeries[k / 2])];
    });
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

void JuniperFilter::process(EqPiece& piece, double step)
{
    const auto frames = static_cast<std::size_t>(piece.frames);
    for (std::size_t n = 0; n < frames; ++n)
        piece.audio[n] = processSample(piece.audio[n], piece.mix[n], step);
}

double JuniperFilter::processSample(double x, const PerBand<double>& mix, double step)
{
    for (std::size_t b = 0; b < kEqBands; ++b)
        gain_[b] = flush(gain_[b] + (gainTarget_[b] - gain_[b]) * step, kGainFlush);
    PerBand<double> part;
    part[index(EqBand::Low)] = x - low_.process(x, kDepthShare);
    part[index(EqBand::High)] = x - high_.process(x, kDepthShare);
    part[index(EqBand::HighMid)] = highMid_.process(x);
    part[index(EqBand::LowMid)] = lowMid_.process(x);
    double y = x;
    for (std::size_t b = 0; b < kEqBands; ++b) y += mix[b] * (gain_[b] - 1.0) * part[b];
    return y;
}

} // namespace velmora
