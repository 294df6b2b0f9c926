#include "presets/factory/table_row.h"
#include "presets/factory_bank.h"
#include "tests/presets/factory_sound.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace velmora::test {
namespace {

/// One test a category, -1 for the presets without one, so that they can run side by side.
class FactorySound : public testing::TestWithParam<std::int32_t> {};

TEST_P(FactorySound, EveryPresetIsUsableOnItsInstrument)
{
    constexpr double kHighestPeak = 3.5; // dBFS
    constexpr double kLargestChange = 9.0;
    double loudest = -INFINITY;
    double largest = 0.0;
    int heard = 0;
    for (const FactoryTableRow& row : factoryTable()) {
        PresetOrigin origin;
        factoryPreset(row.id, nullptr, nullptr, &origin);
        if (origin.category != GetParam()) continue;
        const auto instruments = instrumentsFor(row.id);
        EXPECT_FALSE(instruments.empty()) << row.id;
        for (const Instrument instrument : instruments) {
            const SoundFigures figures = listenTo(row.id, instrument);
            const auto source = kInstrumentNames[static_cast<std::size_t>(instrument)];
            EXPECT_TRUE(figures.finite) << row.id << " on " << source;
            EXPECT_LE(figures.outputPeak, kHighestPeak) << row.id << " on " << source;
            EXPECT_LE(std::fabs(figures.change()), kLargestChange) << row.id << " on " << source;
            loudest = std::max(loudest, figures.outputPeak);
            largest = std::max(largest, std::fabs(figures.change()));
            ++heard;
        }
    }
    EXPECT_GT(heard, 0);
    std::printf("[ measured ] %d renderings, highest peak %.1f dBFS, largest change of level %.1f dB\n",
                heard, loudest, largest);
}

INSTANTIATE_TEST_SUITE_P(Categories, FactorySound, testing::Range(-1, static_cast<int>(kCategoryCount)));

} // namespace
} // namespace velmora::test
