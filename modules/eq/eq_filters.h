#pragma once

#include "modules/eq/eq_band.h"
#include "modules/eq/eq_section.h"

/// The three flavours' filters. Each takes the whole of the band settings and runs the four bands on one
/// sample, with `mix` crossfading each band in (0 dry .. 1). All three answer to the same operations:
/// setBand designs a band's sections and starts their glide, enableBand switches them on.
namespace velmora {

/// Order in which the serial flavours run their bands.
inline constexpr PerBand<EqBand> kEqSeries{EqBand::LowMid, EqBand::HighMid, EqBand::High, EqBand::Low};

/// Four sections in series; their soft limit acts inside the feedback.
class SorrelFilter {
public:
    static constexpr EqFlavour kFlavour = EqFlavour::Sorrel;

    void setBand(EqBand band, const EqBandSettings& settings);
    void enableBand(EqBand band) { main_[index(band)].setEnabled(true); }
    void setSampleRate(double hz);
    void setAnalog(bool on);
    void reset();

    double process(double x, const PerBand<double>& mix, double)
    {
        double y = x;
        for (EqBand band : kEqSeries) {
            const std::size_t b = index(band);
            y = y + (main_[b].runSample(y) - y) * mix[b];
        }
        return y;
    }

private:
    static constexpr auto kBell = StripBiquadKind::Peaking;

    PerBand<StripBiquad> main_{StripBiquad(kBell), StripBiquad(kBell), StripBiquad(kBell),
                               StripBiquad(kBell)};
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

    double process(double x, const PerBand<double>& mix, double)
    {
        double y = x;
        for (EqBand band : kEqSeries) {
            const std::size_t b = index(band);
            y = y + (bands_[b].main.process(y, kDepthShare) - y) * mix[b];
            y = y + (bands_[b].counter.process(y, kDepthShare) - y) * mix[b];
        }
        return y;
    }

private:
    static constexpr double kDepthShare = 0.125;

    struct Band {
        EqSection main;
        EqSection counter;
    };
    PerBand<Band> bands_;
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
    double process(double x, const PerBand<double>& mix, double step)
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
