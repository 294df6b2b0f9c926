#pragma once

#include <cstdint>

namespace velmora {

/// A place in pixels, from the top left.
struct Point {
    double x = 0.0;
    double y = 0.0;

    constexpr bool operator==(const Point&) const = default;
};

/// A rectangle in pixels; right and bottom lie just outside.
struct Rect {
    double left = 0.0;
    double top = 0.0;
    double right = 0.0;
    double bottom = 0.0;

    constexpr double width() const { return right - left; }
    constexpr double height() const { return bottom - top; }
    constexpr bool empty() const { return !(right > left && bottom > top); }
    constexpr bool contains(Point p) const { return p.x >= left && p.x < right && p.y >= top && p.y < bottom; }
    constexpr Rect movedBy(double dx, double dy) const { return {left + dx, top + dy, right + dx, bottom + dy}; }
    constexpr bool operator==(const Rect&) const = default;
};

constexpr Rect rectAt(double left, double top, double width, double height)
{
    return {left, top, left + width, top + height};
}

/// The common part; empty if there is none.
constexpr Rect intersection(const Rect& a, const Rect& b)
{
    const Rect common{a.left > b.left ? a.left : b.left, a.top > b.top ? a.top : b.top,
                      a.right < b.right ? a.right : b.right, a.bottom < b.bottom ? a.bottom : b.bottom};
    return common.empty() ? Rect{} : common;
}

/// The smallest rectangle around both; an empty one counts as nothing.
constexpr Rect boundsOf(const Rect& a, const Rect& b)
{
    if (a.empty()) return b;
    if (b.empty()) return a;
    return {a.left < b.left ? a.left : b.left, a.top < b.top ? a.top : b.top,
            a.right > b.right ? a.right : b.right, a.bottom > b.bottom ? a.bottom : b.bottom};
}

/// Straight alpha.
struct Rgba {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;
    std::uint8_t alpha = 255;

    constexpr bool operator==(const Rgba&) const = default;
};

/// The button word of a mouse event.
enum MouseButtons : std::uint32_t {
    kLeftButton = 0x02,
    kMiddleButton = 0x04,
    kRightButton = 0x08,
    kShiftKey = 0x10,
    kControlKey = 0x20,
    kAltKey = 0x40,
    kDoubleClick = 0x400,
};

/// What an operation on a mouse event answers.
inline constexpr int kMouseNotHandled = 0;
inline constexpr int kMouseHandled = 1;

enum class TextAlign { Left = 0, Centre = 1, Right = 2 };

} // namespace velmora
