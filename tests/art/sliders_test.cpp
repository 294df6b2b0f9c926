#include "params/tables/module_tables.h"
#include "tests/art/picture_probe.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string_view>
#include <vector>

namespace velmora::art {
namespace {

constexpr int kScale = 4;

/// A slider, or a bar, with ticks that its parameter's law puts there.
struct SliderUnderTest {
    std::uint32_t panel;
    Rows rows;
    ParameterId offset;
    double tickX; ///< a column that ticks cross
    double low;   ///< middle of the cap at 0
    double travel;
    std::vector<std::string_view> numbers;
};

std::vector<SliderUnderTest> slidersUnderTest()
{
    const std::vector<std::string_view> levels{"10", "5", "0", "-5", "-10", "-20", "-40", "-60"};
    std::vector<SliderUnderTest> sliders{
        {37001, outputRows(), 18, 54, 439, 316, levels},
        {37001, outputRows(), 18, 101, 426, 315, levels}, // the meter, which shares the fader's law
    };
    const std::vector<std::vector<std::string_view>> bands{
        {"4000", "6000", "8000", "10000", "14000", "28000"},
        {"500", "800", "1500", "2500", "4000", "7000"},
        {"100", "200", "300", "500", "800", "1300", "2000"},
        {"20", "70", "100", "140", "230", "400"},
    };
    for (ParameterId band = 0; band < 4; ++band) {
        sliders.push_back({35100, equalizerRows(), 18 + 4 * band, 32, 129 + 112.0 * band, 50, bands[band]});
        sliders.push_back({35200, equalizerRows(), 18 + 4 * band, 28, 126 + 116.0 * band, 82, bands[band]});
    }
    return sliders;
}

/// Middle of the row near `y` that differs most from its surroundings in one column.
double tickNear(const PictureProbe& pixels, double x, double y)
{
    constexpr double kReach = 1.8;
    constexpr double kStep = 1.0 / kScale;
    const double ground = (pixels.brightnessAt(x, y - 2.2) + pixels.brightnessAt(x, y + 2.2)) / 2;
    double sum = 0;
    double weight = 0;
    for (double off = -kReach; off <= kReach; off += kStep) {
        const double contrast = std::abs(pixels.brightnessAt(x, y + off) - ground);
        if (contrast < 0.2) continue;
        sum += contrast * (y + off + kStep / 2);
        weight += contrast;
    }
    return weight > 0 ? sum / weight : -1;
}

/// A slider that is given a printed number stands at that number's tick.
TEST(Sliders, TicksStandWhereTheirNumbersMoveTheCap)
{
    for (const SliderUnderTest& slider : slidersUnderTest()) {
        const PictureProbe pixels(slider.panel, kScale);
        const ParameterRow* row = findRow(slider.rows, slider.offset);
        ASSERT_NE(row, nullptr);
        for (const std::string_view number : slider.numbers) {
            const auto position = parseRowStrictly(*row, number);
            ASSERT_TRUE(position.has_value()) << row->word << " " << number;
            const double y = slider.low - slider.travel * *position;
            EXPECT_NEAR(tickNear(pixels, slider.tickX, y), y, 0.8)
                << slider.panel << " " << row->word << " " << number;
        }
    }
}

} // namespace
} // namespace velmora::art
