#include "presets/factory/table_row.h"
#include "tests/presets/factory_sound.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmora::test {
namespace {

TEST(FactorySound, EveryPresetIsUsableOnItsInstrument)
{
    constexpr double kHighestPeak = 3.5; // dBFS
    constexpr double kLargestChange = 9.0;
    double loudest = -INFINITY;
    double largest = 0.0;
    for (const FactoryTableRow& row : factoryTable()) {
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
        }
    }
    std::printf("[ measured ] %zu presets, highest peak %.1f dBFS, largest change of level %.1f dB\n",
                factoryTable().size(), loudest, largest);
}

} // namespace
} // namespace velmora::test
