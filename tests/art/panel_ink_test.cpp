#include "tests/art/panel_knobs.h"
#include "tests/art/picture_probe.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmora::art {
namespace {

constexpr double kInkContrast = 0.10;
constexpr double kEdgeMargin = 2;
constexpr double kBodyMargin = 1.5;

bool isBelowABody(const PanelUnderTest& panel, double x, double y)
{
    for (const PanelKnob& knob : panel.knobs) {
        const double middle = knob.frame / 2;
        if (std::hypot(x - knob.x - middle, y - knob.y - middle) < knob.body + kBodyMargin) return true;
    }
    return false;
}

/// What printing adds to a bare panel stays clear of the panel's edge and of the knobs.
TEST(PanelInk, KeepsClearOfEdgeAndKnobs)
{
    for (const PanelUnderTest& panel : panelsUnderTest()) {
        if (panel.plain == 0) continue;
        const PictureProbe printed(panel.printed);
        const PictureProbe plain(panel.plain);
        int inked = 0;
        for (int row = 0; row < printed.height(); ++row) {
            for (int column = 0; column < printed.width(); ++column) {
                if (std::abs(printed.brightness(column, row) - plain.brightness(column, row)) < kInkContrast)
                    continue;
                ++inked;
                const double x = column + 0.5;
                const double y = row + 0.5;
                EXPECT_TRUE(x > kEdgeMargin && x < printed.width() - kEdgeMargin)
                    << panel.printed << " at " << x << ", " << y;
                EXPECT_FALSE(isBelowABody(panel, x, y)) << panel.printed << " at " << x << ", " << y;
            }
        }
        EXPECT_GT(inked, 1000) << panel.printed;
    }
}

/// Print leaves the value windows to the values.
TEST(PanelInk, KeepsClearOfWindows)
{
    struct Window {
        std::uint32_t printed;
        std::uint32_t plain;
        int x, y, width, height;
    };
    constexpr Window windows[]{
        {36006, 36000, 17, 183, 43, 15}, {36006, 36000, 92, 183, 43, 15},  {36006, 36000, 48, 318, 57, 12},
        {36006, 36000, 48, 451, 57, 12}, {36006, 36000, 26, 521, 19, 12},  {36101, 36100, 15, 181, 46, 15},
        {36101, 36100, 90, 181, 46, 15}, {36101, 36100, 46, 307, 60, 15},  {36101, 36100, 46, 440, 60, 15},
        {36201, 36200, 15, 181, 46, 15}, {36201, 36200, 46, 440, 60, 15},  {36301, 36300, 90, 181, 46, 15},
        {36301, 36300, 46, 307, 60, 15}, {36301, 36300, 46, 440, 60, 15},  {36301, 36300, 26, 521, 19, 12},
        {37001, 37000, 16, 465, 46, 16}, {37001, 37000, 100, 434, 26, 28},
    };
    for (const Window& window : windows) {
        const PictureProbe printed(window.printed);
        const PictureProbe plain(window.plain);
        for (int y = window.y; y < window.y + window.height; ++y)
            for (int x = window.x; x < window.x + window.width; ++x)
                EXPECT_EQ(printed.brightness(x, y), plain.brightness(x, y))
                    << window.printed << " at " << x << ", " << y;
    }
}

} // namespace
} // namespace velmora::art
