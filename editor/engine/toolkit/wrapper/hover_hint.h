#pragma once

#include "editor/engine/geometry.h"

#include <cstdint>

namespace velmora::Qorvane {

class CView;
class QORFrame;

/// Shows the hint of the widget under a mouse that keeps still.
class HoverHint {
public:
    static constexpr int kStillTicks = 47; ///< of 17 ms

    void tick(QORFrame& frame, std::uint32_t buttonWord);
    void reset(QORFrame& frame);

private:
    Point lastPosition;
    const CView* lastView = nullptr; // compared only
    int stillTicks = 0;
};

} // namespace velmora::Qorvane
