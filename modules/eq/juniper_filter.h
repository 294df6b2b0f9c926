#pragma once

#include "modules/eq/eq_lanes.h"
#include "modules/eq/eq_piece.h"
#include "modules/eq/smoothed_values.h"

namespace velmora {

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
    /// A bell's band is what neither its low nor its high section lets through; the outer bands have one
    /// section each. The sections that hear the input come first.
    enum Split : std::size_t { Low, High, HighMidLow, LowMidLow, HighMidHigh, LowMidHigh, kSplits };
    /// What the splits leave of a sample.
    struct Parts {
        double low, high, highMid, lowMid;
    };

    /// What a band's part is multiplied with when it is added back.
    struct Weights {
        bool moving = false; ///< false: the first row holds for all samples
        EqPiece::MixRows rows;
    };

    template <typename Action>
    void forBand(EqBand band, Action action);
    void weigh(const EqPiece& piece, double step, Weights& weights);
    bool runInLanes(EqPiece& piece, const Weights& weights);
    template <typename V, SectionMotion motion, bool softens>
    bool runLanes(EqPiece& piece, const Weights& weights);
    void runApart(EqPiece& piece, const Weights& weights);
    static double addBack(double x, const Parts& parts, const Weights& weights, std::size_t n);

    std::array<EqSection, kSplits> splits_;
    bool softens_ = false;
    SmoothedValues<kEqBands> gain_{1e-14, 1.0};
    PerBand<double> gainTarget_{1.0, 1.0, 1.0, 1.0};
    PerBand<double> restGain_{1.0, 1.0, 1.0, 1.0};
};

} // namespace velmora
