#pragma once

#include "modules/eq/series_lanes.h"

namespace velmora {

/// Eight sections in series, two a band, each crossfaded on its own.
class TamarinFilter {
public:
    static constexpr EqFlavour kFlavour = EqFlavour::Tamarin;

    TamarinFilter();
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
    bool runInLanes(EqPiece& piece);

    std::array<EqSection, 2 * kEqBands> chain_; // in series order, main before counter
    bool softens_ = false;
};

} // namespace velmora
