#pragma once

#include "modules/eq/series_lanes.h"

namespace velmora {

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
    bool runInLanes(EqPiece& piece);

    static constexpr auto kBell = StripBiquadKind::Peaking;

    PerBand<StripBiquad> chain_{StripBiquad(kBell), StripBiquad(kBell), StripBiquad(kBell),
                                StripBiquad(kBell)}; // in series order
    bool limits_ = false;
};

} // namespace velmora
