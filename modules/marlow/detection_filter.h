#pragma once

#include "modules/marlow/glided_band.h"
#include "modules/marlow/instant_section.h"

#include <cstdint>

namespace velmora {

enum class MarlowShape : std::int32_t { LowShelf, Peak, HighShelf };
enum class MarlowControl : std::int32_t { Off, Direct, Complement };

/// What the detector listens to: two sections in series made from the band's own frequency and Q, for the
/// band itself or for everything but the band.
class DetectionFilter {
public:
    void setSampleRate(double hz);
    void reset();

    /// @param control Direct or Complement.
    void design(MarlowShape shape, MarlowControl control, const GlidedBand& band);

    double process(double x) { return detectSecond.process(detectFirst.process(x)); }

private:
    InstantSection detectFirst;
    InstantSection detectSecond;
};

} // namespace velmora
