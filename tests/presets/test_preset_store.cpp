#include "tests/support/files.h"
#include "tests/presets/preset_fixtures.h"

#include <atomic>
#include <gtest/gtest.h>
#include <limits>
#include <thread>

namespace velmora::test {
namespace {

TEST(PresetStore, StartsAsTheFactoryDefault)
{
    RecordingMaster master;
    const PresetStore store(master);
    EXPECT_EQ(store.currentName(), "Default");
    EXPECT_FALSE(store.isDirty());
    EXPECT_EQ(store.auxValue(), 0);
    ASSERT_EQ(store.bank().size(), 235u);
    EXPECT_EQ(store.bank()[234].title(), "Init");
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        ASSERT_EQ(store.currentValue(id), static_cast<float>(defaultValue(id)));
    EXPECT_TRUE(master.sent.empty());

    EXPECT_EQ(store.listEntryName(0), "Default");
    EXPECT_EQ(store.listEntryName(1), "Let's start from scratc");
    EXPECT_EQ(store.listEntryName(232), "Transient Distorted");
    EXPECT_EQ(store.listEntryName(234), "Init");
    for (const std::int32_t beyond : {-1, 235, 512, std::numeric_limits<std::int32_t>::max()})
        EXPECT_EQ(store.listEntryName(beyond), "");
}

TEST(PresetStore, KeepsZoomAndHintsInTheStoredSettings)
{
    RecordingMaster master;
    {
        const PresetStore store(master);
        EXPECT_EQ(store.zoomPercent(), 100);
        EXPECT_TRUE(PresetStore::hintsShown());
        const PresetStore other(master);
        PresetStore::setHintsShown(false);
    }
    EXPECT_EQ(master.settings[849], 0.1);
    EXPECT_EQ(master.settings[847], 0.0);
    {
        const PresetStore store(master);
        EXPECT_FALSE(PresetStore::hintsShown());
        PresetStore::setHintsShown(true);
    }
    struct {
        double stored;
        std::int32_t percent;
    } const rows[] = {{0.0, 70}, {0.069, 70}, {0.07, 70}, {0.119, 119}, {0.4, 400}, {0.401, 100}, {1.0, 100}};
    for (const auto& row : rows) {
        master.settings[849] = static_cast<float>(row.stored);
        EXPECT_EQ(PresetStore(master).zoomPercent(), row.percent) << row.stored;
    }
}

TEST(PresetStore, TracksChangesAgainstTheReference)
{
    RecordingMaster master;
    PresetStore store(master);
    const double start = store.currentValue(40), other = store.currentValue(41);

    store.onParameterChanged(40, 0.3333);
    EXPECT_EQ(store.currentValue(40), 0.3333f);
    EXPECT_TRUE(store.isDirty());
    store.onParameterChanged(41, other);
    EXPECT_TRUE(store.isDirty());
    store.onParameterChanged(500, 0.7);
    EXPECT_TRUE(store.isDirty());
    store.onParameterChanged(40, start);
    EXPECT_FALSE(store.isDirty());

    store.onParameterChanged(40, 7.0);
    EXPECT_EQ(store.currentValue(40), 1.0f);
    store.onParameterChanged(40, -7.0);
    EXPECT_EQ(store.currentValue(40), 0.0f);
    store.onParameterChanged(40, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(store.currentValue(40), 0.0f);

    store.onParameterChanged(40, start);
    const Preset before = store.current().snapshot();
    for (const std::int32_t id : {-1, 360, 818, 819, 860, std::numeric_limits<std::int32_t>::min()})
        store.onParameterChanged(id, 0.123);
    EXPECT_TRUE(sameBytes(store.current().snapshot(), before));
    EXPECT_FALSE(store.isDirty());
}

TEST(PresetStore, ApplyingSendsTheStoredValuesInOrderAndTracksNothing)
{
    RecordingMaster master;
    PresetStore store(master);
    master.store = &store;
    const Preset before = store.current().snapshot();
    const Preset preset = randomPreset(5, "Applied");
    store.applyPreset(preset);

    ASSERT_EQ(master.sent.size(), 194u);
    EXPECT_EQ(master.sent.front(), (std::pair<std::int32_t, double>(860, 1.0)));
    EXPECT_EQ(master.sent.back(), (std::pair<std::int32_t, double>(861, 1.0)));
    for (std::size_t i = 1; i + 1 < master.sent.size(); ++i) {
        const auto [id, value] = master.sent[i];
        EXPECT_TRUE(isStored(id));
        EXPECT_TRUE(i == 1 || master.sent[i - 1].first < id);
        EXPECT_EQ(value, preset.values.at(static_cast<std::size_t>(id)));
    }
    EXPECT_TRUE(sameBytes(store.current().snapshot(), before));
    EXPECT_FALSE(store.isDirty());
    store.onParameterChanged(40, 0.9);
    EXPECT_EQ(store.currentValue(40), 0.9f);
}

TEST(PresetStore, SavesTheCurrentPreset)
{
    const TemporaryFolder folder;
    RecordingMaster master;
    PresetStore store(master);
    store.onParameterChanged(40, 0.625);
    store.setCurrentName("A name that is far too long for it");
    EXPECT_EQ(store.currentName(), "A name that is far too ");
    const std::string path = folder.file("saved.qor");
    ASSERT_TRUE(store.savePresetFile(path));
    EXPECT_EQ(readBytes(path), store.writePresetBlock(store.current().snapshot()));
    Preset preset = randomPreset(1, "");
    ASSERT_EQ(store.loadPresetFile(path, 0, &preset), PresetFileStatus::Loaded);
    EXPECT_EQ(preset.title(), store.currentName());
    EXPECT_TRUE(sameStoredValues(preset, store.current().snapshot()));
}

TEST(PresetStore, AudioThreadChangesValuesWhileTheMainThreadReadsAndLoads)
{
    RecordingMaster master;
    PresetStore store(master);
    std::atomic<bool> done{false};
    std::atomic<int> changes{0};
    std::thread audio([&] {
        std::mt19937 random(3);
        while (!done) {
            store.onParameterChanged(static_cast<std::int32_t>(random() % 900),
                                     static_cast<double>(random() % 1001) * 0.001);
            ++changes;
        }
    });
    Bytes block(18985);
    const Preset preset = randomPreset(8, "Applied");
    for (int round = 0; round < 100 || changes < 1000; ++round) {
        ASSERT_EQ(store.writeChunkBlock(block), block.size());
        ASSERT_EQ(store.readChunkBlock(block), BlockLoad::Loaded);
        store.applyPreset(preset);
        const float value = store.currentValue(round % kHostParameterCount);
        ASSERT_TRUE(value >= 0.0f && value <= 1.0f);
        store.isDirty();
    }
    done = true;
    audio.join();
    store.onParameterChanged(40, 0.5);
    bool same = store.current().hasValuesOf(store.reference());
    EXPECT_EQ(store.isDirty(), !same);
}

} // namespace
} // namespace velmora::test
