#include "art/paint/shape.h"
#include "tests/art/panel_knobs.h"
#include "tests/art/picture_probe.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <optional>

namespace velmora::art {
namespace {

constexpr int kScale = 4;
constexpr double kReachDegrees = 7;
constexpr double kStepDegrees = 0.25;
constexpr double kLeastContrast = 0.12;
constexpr double kOffDegrees = 0.75;

/// Where the middle of the mark closest to an angle stands on a circle. @return degrees off; none without a
/// mark
std::optional<double> markNear(const PictureProbe& pixels, const PanelKnob& knob, double angle)
{
    const double middle = knob.frame / 2;
    std::vector<double> ring;
    for (double off = -kReachDegrees; off <= kReachDegrees; off += kStepDegrees) {
        const Spot spot = onCircle(knob.x + middle, knob.y + middle, knob.tip, angle + off);
        ring.push_back(pixels.brightnessAt(spot.x, spot.y));
    }
    std::vector<double> sorted = ring;
    std::nth_element(sorted.begin(), sorted.begin() + static_cast<std::ptrdiff_t>(sorted.size() / 2),
                     sorted.end());
    const double ground = sorted[sorted.size() / 2];
    double strongest = 0.0;
    for (const double brightness : ring) strongest = std::max(strongest, std::abs(brightness - ground));
    if (strongest < kLeastContrast) return std::nullopt;

    double sum = 0.0;
    int count = 0;
    for (std::size_t step = 0; step < ring.size(); ++step) {
        if (std::abs(ring[step] - ground) < strongest / 2) continue;
        sum += -kReachDegrees + kStepDegrees * static_cast<double>(step);
        ++count;
    }
    return sum / count;
}

/// A knob that is given a printed number points at that number's tick.
TEST(Dials, TicksStandWhereTheirNumbersTurnTheKnob)
{
    for (const PanelUnderTest& panel : panelsUnderTest()) {
        const PictureProbe pixels(panel.printed, kScale);
        for (const PanelKnob& knob : panel.knobs) {
            const ParameterRow* row = findRow(panel.rows, knob.offset);
            ASSERT_NE(row, nullptr);
            for (const std::string_view number : knob.numbers) {
                const auto position = parseRowStrictly(*row, number);
                ASSERT_TRUE(position.has_value()) << row->word << " " << number;
                const auto off = markNear(pixels, knob, dialAngle(*position));
                ASSERT_TRUE(off.has_value()) << panel.printed << " " << row->word << " " << number;
                EXPECT_NEAR(*off, 0.0, kOffDegrees) << panel.printed << " " << row->word << " " << number;
            }
        }
    }
}

} // namespace
} // namespace velmora::art
