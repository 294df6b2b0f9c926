#pragma once

#include "modules/eq/eq_band.h"

namespace velmora {

/// A flavour's filter whose bands are designed when they are next needed. A preset writes a band four times
/// in a row and an automation every block, mostly for flavours that don't run; a glide that is aimed twice
/// without a sample between runs as if aimed once.
template <typename Filter>
class DeferredFilter {
public:
    void touchBand(EqBand band) { stale_[index(band)] = true; }

    /// The filter with all its bands designed to these settings, if touched since the last time.
    Filter& upToDate(const PerBand<EqBandSettings>& bands)
    {
        for (EqBand band : kAllEqBands)
            if (stale_[index(band)]) filter_.setBand(band, bands[index(band)]);
        stale_ = {};
        return filter_;
    }

    /// The filter for what doesn't depend on the bands' settings: a rate redesigns, and a disabled section is
    /// at unity whatever its settings.
    Filter& asItStands() { return filter_; }

private:
    Filter filter_;
    PerBand<bool> stale_{};
};

} // namespace velmora
