#pragma once

#include "modules/eq/eq_piece.h"
#include "modules/eq/eq_section.h"
#include "modules/eq/juniper_design.h"
#include "modules/eq/sorrel_design.h"
#include "modules/eq/tamarin_design.h"

#include <algorithm>

/// The equaliser's filters section by section: the forms in lanes have to give the same bits.
namespace velmora::plain {

inline constexpr PerBand<std::size_t> kPlace{2, 1, 0, 3}; // low mid, high mid, high, low

inline double run(StripBiquad& section, double x)
{
    return section.runSample(x);
}
inline double run(EqSection& section, double x)
{
    return section.process(x);
}

/// Output gain and drive.
inline void finish(EqPiece& piece)
{
    for (std::size_t n = 0; n < static_cast<std::size_t>(piece.frames); ++n) {
        piece.output[n] *= piece.gain[piece.gainMoving ? n : 0];
        piece.drive[n] = piece.follower.follow(piece.output[n]);
    }
}

/// Sections in series, each over the whole piece, with a crossfade behind each.
template <typename Section, std::size_t count>
void runSeries(EqPiece& piece, std::array<Section, count>& chain)
{
    constexpr PerBand<EqBand> kOrder{EqBand::LowMid, EqBand::HighMid, EqBand::High, EqBand::Low};
    std::copy_n(piece.input, piece.frames, piece.output.begin());
    for (std::size_t k = 0; k < count; ++k) {
        for (std::int32_t n = 0; n < piece.frames; ++n) {
            double& x = piece.output[static_cast<std::size_t>(n)];
            x = x + (run(chain[k], x) - x) * piece.mixAt(n, kOrder[k * kEqBands / count]);
        }
    }
    finish(piece);
}

class SorrelFilter {
public:
    void setBand(EqBand band, const EqBandSettings& settings)
    {
        const EqSectionSettings s = sorrelSection(band, settings);
        chain_[kPlace[index(band)]].setDesign(s.kind, s.frequency, s.q, s.gainDb);
    }
    void enableBand(EqBand band) { chain_[kPlace[index(band)]].setEnabled(true); }
    void setSampleRate(double hz)
    {
        for (StripBiquad& s : chain_) s.setSampleRate(hz);
    }
    void setAnalog(bool on)
    {
        for (StripBiquad& s : chain_) s.setSoftLimit(on);
    }
    void reset()
    {
        for (StripBiquad& s : chain_) s.resetState();
    }
    void process(EqPiece& piece, double) { runSeries(piece, chain_); }

private:
    static constexpr auto kBell = StripBiquadKind::Peaking;
    PerBand<StripBiquad> chain_{StripBiquad(kBell), StripBiquad(kBell), StripBiquad(kBell),
                                StripBiquad(kBell)};
};

/// What Tamarin and Juniper share: sections with a softening.
template <std::size_t count>
class SofteningFilter {
public:
    void setSampleRate(double hz)
    {
        for (EqSection& s : sections_) s.setSampleRate(hz);
    }
    void setAnalog(bool on)
    {
        for (EqSection& s : sections_) s.setAnalog(on);
    }

protected:
    std::array<EqSection, count> sections_;
};

class TamarinFilter : public SofteningFilter<2 * kEqBands> {
public:
    TamarinFilter()
    {
        for (EqSection& s : sections_) s.setDepthShare(0.125);
    }
    void setBand(EqBand band, const EqBandSettings& settings)
    {
        const TamarinSections s = tamarinSections(band, settings);
        sections_[2 * kPlace[index(band)]].setDesign(s.main);
        sections_[2 * kPlace[index(band)] + 1].setDesign(s.counter);
    }
    void enableBand(EqBand band)
    {
        for (std::size_t k : {0, 1}) sections_[2 * kPlace[index(band)] + k].setEnabled(true);
    }
    void reset()
    {
        for (EqSection& s : sections_) s.reset();
    }
    void process(EqPiece& piece, double) { runSeries(piece, sections_); }
};

/// Sections 2b and 2b + 1 belong to band b; the outer bands have one.
class JuniperFilter : public SofteningFilter<2 * kEqBands> {
public:
    void setBand(EqBand band, const EqBandSettings& settings)
    {
        if (isMidBand(band)) {
            first(band).setDesign(juniperBellSplit(settings).low);
            second(band).setDesign(juniperBellSplit(settings).high);
        } else {
            first(band).setDesign(juniperShelfSplit(band, settings));
        }
        target_[index(band)] = juniperBandGain(band, settings);
        rest_[index(band)] = juniperRestGain(settings);
    }
    void enableBand(EqBand band)
    {
        first(band).setEnabled(true);
        second(band).setEnabled(true);
    }
    void reset()
    {
        for (EqSection& s : sections_) s.reset();
        gain_ = rest_;
    }
    void process(EqPiece& piece, double step)
    {
        std::copy_n(piece.input, piece.frames, piece.output.begin());
        for (EqBand band : kAllEqBands) {
            double& gain = gain_[index(band)];
            for (std::int32_t n = 0; n < piece.frames; ++n) {
                gain = flush(gain + (target_[index(band)] - gain) * step, 1e-14);
                double part = piece.input[n] - first(band).process(piece.input[n]);
                if (isMidBand(band)) part -= second(band).process(part);
                piece.output[static_cast<std::size_t>(n)] += piece.mixAt(n, band) * (gain - 1.0) * part;
            }
        }
        finish(piece);
    }

private:
    EqSection& first(EqBand band) { return sections_[2 * index(band)]; }
    EqSection& second(EqBand band) { return sections_[2 * index(band) + 1]; }

    PerBand<double> gain_{1.0, 1.0, 1.0, 1.0}, target_ = gain_, rest_ = gain_;
};

} // namespace velmora::plain
