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

    /// Designs for the samples of a block. @param control Direct or Complement.
    void design(MarlowShape shape, MarlowControl control, const GlidedBand& band, std::size_t frames);

    /// What both sections remember.
    struct History {
        InstantSection::History first, second;
    };
    History history() const { return {detectFirst.history(), detectSecond.history()}; }
    void setHistory(const History& history)
    {
        detectFirst.setHistory(history.first);
        detectSecond.setHistory(history.second);
    }

    /// One sample of that block.
    VELMORA_KERNEL double process(double x, std::size_t i, History& h) const
    {
        return detectSecond.process(detectFirst.process(x, i, h.first), i, h.second);
    }

private:
    InstantSection detectFirst;
    InstantSection detectSecond;
};

} // namespace velmora
