#include "editor/engine/toolkit/view/damage.h"

#include <utility>

namespace velmora::Qorvane {

namespace {

double area(const Rect& rect)
{
    return rect.empty() ? 0.0 : rect.width() * rect.height();
}

bool holds(const Rect& outer, const Rect& inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && outer.right >= inner.right &&
           outer.bottom >= inner.bottom;
}

/// Pixels that a merger would draw without need.
double waste(const Rect& a, const Rect& b)
{
    return area(boundsOf(a, b)) - area(a) - area(b) + area(intersection(a, b));
}

} // namespace

void Damage::add(const Rect& rect)
{
    constexpr double kAcceptableWaste = 256.0; // a small blit costs about as much as these pixels
    if (rect.empty()) return;
    for (const Rect& known : rects)
        if (holds(known, rect)) return;
    Rect grown = rect;
    for (std::size_t i = 0; i < rects.size();) {
        if (waste(rects[i], grown) <= kAcceptableWaste) {
            grown = boundsOf(rects[i], grown);
            rects[i] = rects.back();
            rects.pop_back();
            i = 0; // the grown one may reach others now
        } else {
            ++i;
        }
    }
    if (rects.size() < kMost) {
        rects.push_back(grown);
        return;
    }
    std::size_t nearest = 0;
    for (std::size_t i = 1; i < rects.size(); ++i)
        if (waste(rects[i], grown) < waste(rects[nearest], grown)) nearest = i;
    grown = boundsOf(rects[nearest], grown);
    rects[nearest] = rects.back();
    rects.pop_back();
    add(grown);
}

std::vector<Rect> Damage::take()
{
    return std::exchange(rects, {});
}

} // namespace velmora::Qorvane
