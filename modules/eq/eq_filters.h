#pragma once

#include "dsp/run_diagonally.h"
#include "modules/eq/eq_band.h"
#include "modules/eq/eq_section.h"

/// The three flavours' filters. Each takes the whole of the band settings and runs the four bands over a
/// piece of audio, crossfading each band in. All three answer to the same operations: setBand designs a
/// band's sections and starts their glide, enableBand switches them on.
namespace velmora {

/// A piece of audio in place, and how far each band is faded in at each sample.
struct EqPiece {
    static constexpr std::int32_t kMaxFrames = 64;

    std::int32_t frames = 0;
    std::array<double, kMaxFrames> audio;
    std::array<PerBand<double>, kMaxFrames> mix; ///< 0 dry .. 1
};

/// Order in which the serial flavours run their bands.
inline constexpr PerBand<EqBand> kEqSeries{EqBand::LowMid, EqBand::HighMid, EqBand::High, EqBand::Low};
/// Place of each band in that order.
inline constexpr PerBand<std::size_t> kEqPlace{2, 1, 0, 3};

/// Four sections in series; their soft limit acts inside the feedback.
class SorrelFilter {
public:
    static constexpr EqFlavour kFlavour = EqFlavour::Sorrel;

    void setBand(EqBand band, const EqBandSettings& settings);
    void enableBand(EqBand band) { chain_[kEqPlace[index(band)]].setEnabled(true); }
    void setSampleRate(double hz);
    void setAnalog(bool on);
    void reset();
    void process(EqPiece& piece, double step);

private:
    static constexpr auto kBell = StripBiquadKind::Peaking;

    PerBand<StripBiquad> chain_{StripBiquad(kBell), StripBiquad(kBell), StripBiquad(kBell),
                                StripBiquad(kBell)}; // in series order
};

/// Eight sections in series, two a band, each crossfaded on its own.
class TamarinFilter {
public:
    static constexpr EqFlavour kFlavour = EqFlavour::Tamarin;

    void setBand(EqBand band, const EqBandSettings& settings);
    void enableBand(EqBand band);
    void setSampleRate(double hz);
    void setAnalog(bool on);
    void reset();
    void process(EqPiece& piece, double step);

private:
    static constexpr double kDepthShare = 0.125;

    EqSection& main(EqBand band) { return chain_[2 * kEqPlace[index(band)]]; }
    EqSection& counter(EqBand band) { return chain_[2 * kEqPlace[index(band)] + 1]; }

    std::array<EqSection, 2 * kEqBands> chain_; // in series order, main before counter
};

/// Bands are split off by complements of low-pass and high-pass and added back to the dry signal with their
/// gain less 1, so they act in parallel. The gains glide by a one-pole step of their own.
class JuniperFilter {
public:
    static constexpr EqFlavour kFlavour = EqFlavour::Juniper;

    void setBand(EqBand band, const EqBandSettings& settings);
    void enableBand(EqBand band);
    void setSampleRate(double hz);
    void setAnalog(bool on);
    void reset();

    /// @param step share of the way to their targets that the band gains move per sample.
    void process(EqPiece& piece, double step);

private:
    static constexpr double kDepthShare = 1.0;
    static constexpr double kGainFlush = 1e-14;

    struct Bell {
        EqSection splitLow;
        EqSection splitHigh;

        double process(double x)
        {
            const double above = x - splitLow.process(x, kDepthShare);
            return above - splitHigh.process(above, kDepthShare);
        }
    };

    double processSample(double x, const PerBand<double>& mix, double step);
    template <typename Action>
    void forBand(EqBand band, Action action);
    template <typename Action>
    void forEachSection(Action action);

    EqSection low_;
    EqSection high_;
    Bell highMid_;
    Bell lowMid_;
    PerBand<double> gain_{1.0, 1.0, 1.0, 1.0};
    PerBand<double> gainTarget_{1.0, 1.0, 1.0, 1.0};
    PerBand<double> restGain_{1.0, 1.0, 1.0, 1.0};
};

} // namespace velmora
