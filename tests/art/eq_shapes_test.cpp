#include "tests/art/picture_probe.h"

#include <gtest/gtest.h>

#include <array>
#include <map>

namespace velmora::art {
namespace {

constexpr int kScale = 8;

/// The signs beside a band's switch, from the middle one.
struct Signs {
    std::uint32_t panel;
    double x, y, pitch, width;
    double edge; ///< brightness between face and ink
    bool lightInk;
};

constexpr Signs kSorrel{35000, 10.5, 93.5, 21, 10.5, 0.62, true};
constexpr Signs kTamarin{35100, 139.5, 107.5, 13.5, 10, 0.62, true};
constexpr Signs kJuniper{35200, 144, 107, 14, 7.2, 0.45, false};

constexpr double kSorrelBand = 112; // Tamarin's too
constexpr double kJuniperBand = 116;

struct Span {
    double left, right; ///< of the ink from the sign's middle, in its widths

    double width() const { return right - left; }
};

const PictureProbe& pictureOf(std::uint32_t panel)
{
    static std::map<std::uint32_t, PictureProbe> drawn;
    return drawn.try_emplace(panel, panel, kScale).first->second;
}

/// Where a sign has ink in one of its rows. @param position 0 at the top to 2 @param row -0.5..0.5 from top
/// to bottom
Span inkOf(const Signs& signs, double top, int position, double row)
{
    const PictureProbe& probe = pictureOf(signs.panel);
    const double height = 0.6 * signs.width;
    const double y = signs.y + top + signs.pitch * (position - 1) + height * row;
    Span span{1.0, -1.0};
    for (double x = -0.55; x <= 0.55; x += 0.01) {
        const bool isLight = probe.brightnessAt(signs.x + signs.width * x, y) > signs.edge;
        if (isLight != signs.lightInk) continue;
        span.left = std::min(span.left, x);
        span.right = std::max(span.right, x);
    }
    return span;
}

void expectBellsNarrow(const Signs& signs, double top)
{
    const std::array widths{inkOf(signs, top, 0, 0).width(), inkOf(signs, top, 1, 0).width(),
                            inkOf(signs, top, 2, 0).width()};
    EXPECT_GT(widths[0], widths[1] + 0.05) << signs.panel << " at " << top;
    EXPECT_GT(widths[1], widths[2] + 0.05) << signs.panel << " at " << top;
    EXPECT_GT(widths[2], 0.0) << signs.panel << " at " << top;
}

// A switch stands up at its parameter's 0, the widest or softest of its shapes.

TEST(EqShapes, BellsNarrowDownwards)
{
    for (const double top : {kSorrelBand, 2 * kSorrelBand}) expectBellsNarrow(kSorrel, top);
    for (const double top : {0.0, kSorrelBand, 2 * kSorrelBand, 3 * kSorrelBand})
        expectBellsNarrow(kTamarin, top);
    for (const double top : {kJuniperBand, 2 * kJuniperBand}) expectBellsNarrow(kJuniper, top);
}

TEST(EqShapes, SorrelsOuterBandsGoFromSoftShelfToBell)
{
    const double low = 3 * kSorrelBand;
    EXPECT_GT(inkOf(kSorrel, 0, 0, -0.5).left, inkOf(kSorrel, 0, 1, -0.5).left + 0.05);
    EXPECT_GT(inkOf(kSorrel, 0, 1, -0.5).right, 0.4);
    EXPECT_LT(inkOf(kSorrel, 0, 2, -0.5).right, 0.3);
    EXPECT_LT(inkOf(kSorrel, low, 0, -0.5).right, inkOf(kSorrel, low, 1, -0.5).right - 0.05);
    EXPECT_LT(inkOf(kSorrel, low, 1, -0.5).left, -0.4);
    EXPECT_GT(inkOf(kSorrel, low, 2, -0.5).left, -0.3);
}

TEST(EqShapes, JunipersShelvesSteepenDownwards)
{
    const double low = 3 * kJuniperBand;
    for (int position = 0; position < 2; ++position) {
        EXPECT_GT(inkOf(kJuniper, 0, position, -0.5).left,
                  inkOf(kJuniper, 0, position + 1, -0.5).left + 0.05);
        EXPECT_LT(inkOf(kJuniper, low, position, -0.5).right,
                  inkOf(kJuniper, low, position + 1, -0.5).right - 0.05);
    }
    EXPECT_GT(inkOf(kJuniper, 0, 2, -0.5).right, 0.4);
    EXPECT_LT(inkOf(kJuniper, low, 2, -0.5).left, -0.4);
}

} // namespace
} // namespace velmora::art
