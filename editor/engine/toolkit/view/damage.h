#pragma once

#include "editor/engine/geometry.h"

#include <vector>

namespace velmora::Qorvane {

/// The parts of a frame that wait to be drawn, merged so that few rectangles cover little too much.
class Damage {
public:
    void add(const Rect& rect);
    bool empty() const { return rects.empty(); }
    /// Hands out what has gathered.
    std::vector<Rect> take();
    void clear() { rects.clear(); }

private:
    static constexpr std::size_t kMost = 64; ///< from here on the two nearest are merged

    std::vector<Rect> rects;
};

} // namespace velmora::Qorvane
