#pragma once

#include "editor/engine/geometry.h"

#include <cmath>

namespace velmora::Qorvane {

/// Numbers that drawing can work with: not NaN, and far from where device pixels overflow.
inline constexpr double kMaxCoordinate = 1e6;

inline bool isCoordinate(double x)
{
    return std::abs(x) <= kMaxCoordinate;
}

inline bool isCoordinate(Point p)
{
    return isCoordinate(p.x) && isCoordinate(p.y);
}

inline bool isCoordinate(const Rect& r)
{
    return isCoordinate(r.left) && isCoordinate(r.top) && isCoordinate(r.right) && isCoordinate(r.bottom);
}

} // namespace velmora::Qorvane
