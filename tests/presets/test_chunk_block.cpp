#include "tests/presets/preset_fixtures.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmora::test {
namespace {

constexpr std::size_t kChunkBlock = 18985;
constexpr std::size_t kBank = 8; ///< the bank block behind format word and magic

/// All that a load may touch.
struct StoreState {
    std::vector<Preset> bank;
    Preset current, reference;
    bool dirty;
    std::int32_t slotSelected, auxValue, zoomPercent;

    explicit StoreState(const PresetStore& store)
        : bank(store.bank().begin(), store.bank().end()),
          current(store.current().snapshot()),
          reference(store.reference().snapshot()),
          dirty(store.isDirty()),
          slotSelected(store.slotSelected()),
          auxValue(store.auxValue()),
          zoomPercent(store.zoomPercent())
    {
    }

    bool samePresets(const StoreState& other) const
    {
        return std::equal(bank.begin(), bank.end(), other.bank.begin(), other.bank.end(), sameBytes) &&
               sameBytes(current, other.current) && sameBytes(reference, other.reference) &&
               dirty == other.dirty && slotSelected == other.slotSelected;
    }
    bool operator==(const StoreState& other) const
    {
        return samePresets(other) && auxValue == other.auxValue && zoomPercent == other.zoomPercent;
    }
};

class ChunkBlock : public testing::Test {
protected:
    ChunkBlock()
    {
        for (std::uint32_t slot = 0; slot < 3; ++slot)
            presets_.push_back(randomPreset(70 + slot, "Slot " + std::to_string(slot)));
        good_ = makeBlock(presets_, {.auxValue = 7, .zoomPercent = 130});
        store_.onParameterChanged(32, 0.25);
        store_.setCurrentName("Edited");
    }

    static Bytes makeBlock(std::span<const Preset> presets, const BlockSettings& settings)
    {
        Bytes block(kBlockPrefixSize + blockSize(presets.size()));
        ByteWriter writer(block);
        encodeBlockPrefix(writer);
        encodeBlock(writer, BlockKind::Bank, presets, settings);
        return block;
    }

    Bytes with(std::size_t offset, std::uint32_t word) const
    {
        Bytes bytes = good_;
        putWord(bytes, offset, word);
        return bytes;
    }

    BlockLoad load(const Bytes& bytes)
    {
        master_.sent.clear();
        return store_.readChunkBlock(bytes);
    }

    void expectRefused(const Bytes& bytes, const std::string& what)
    {
        const StoreState before(store_);
        EXPECT_EQ(load(bytes), BlockLoad::Refused) << what;
        EXPECT_EQ(StoreState(store_), before) << what;
        EXPECT_TRUE(master_.sent.empty()) << what;
    }

    void expectCurrentIs(const Preset& preset)
    {
        EXPECT_EQ(store_.currentName(), preset.title());
        EXPECT_TRUE(sameStoredValues(store_.current().snapshot(), preset));
        EXPECT_TRUE(sameBytes(store_.current().snapshot(), store_.reference().snapshot()));
        EXPECT_FALSE(store_.isDirty());
        EXPECT_EQ(store_.slotSelected(), -1);
    }

    using Sent = std::vector<std::pair<std::int32_t, double>>;

    RecordingMaster master_;
    PresetStore store_{master_};
    std::vector<Preset> presets_;
    Bytes good_;
};

TEST_F(ChunkBlock, IsWrittenFromCurrentAndTwoFactorySlots)
{
    Bytes block(kChunkBlock, 0xEE);
    ASSERT_EQ(store_.writeChunkBlock(block), kChunkBlock);
    EXPECT_EQ(Bytes(block.begin(), block.begin() + 13),
              (Bytes{0, 0, 0, 2, 'M', 'V', 'q', 'Q', 'M', 'V', 'q', 'Q', '8'}));
    EXPECT_EQ(wordAt(block, kBank + kAuxAt), 0u);
    EXPECT_EQ(wordAt(block, kBank + kZoomAt), 100u);
    const Preset expected[] = {store_.current().snapshot(), store_.bank()[1], store_.bank()[2]};
    EXPECT_EQ(block, makeBlock(expected, {}));
    EXPECT_EQ(store_.bank()[1].title(), "Let's start from scratc");
    EXPECT_EQ(store_.bank()[0].values[32], 0.25f);

    Bytes small(kChunkBlock - 1, 0xEE);
    EXPECT_EQ(store_.writeChunkBlock(small), 0u);
    EXPECT_EQ(small, Bytes(kChunkBlock - 1, 0xEE));
}

TEST_F(ChunkBlock, LoadsInBothByteOrdersAndIsWrittenBackTheSame)
{
    Bytes swapped = good_;
    swapBlock(swapped, kBank);
    reverseWord(swapped, 0);
    reverseWord(swapped, 4);
    for (const Bytes& block : {good_, swapped}) {
        store_.onParameterChanged(33, 0.75);
        ASSERT_EQ(load(block), BlockLoad::Loaded);
        expectCurrentIs(presets_[0]);
        EXPECT_TRUE(sameStoredValues(store_.bank()[2], presets_[2]));
        EXPECT_EQ(store_.bank()[3].title(), "Smacka 808 BD");
        EXPECT_EQ(master_.sent, (Sent{{819, 7.0}, {849, 1.3}}));
        Bytes written(kChunkBlock);
        ASSERT_EQ(store_.writeChunkBlock(written), kChunkBlock);
        EXPECT_EQ(written, good_);
    }
}

TEST_F(ChunkBlock, EveryTruncationIsRefused)
{
    const StoreState before(store_);
    master_.sent.clear();
    for (std::size_t size = 0; size < good_.size(); ++size)
        ASSERT_EQ(store_.readChunkBlock(std::span(good_).first(size)), BlockLoad::Refused) << size;
    EXPECT_EQ(StoreState(store_), before);
    EXPECT_TRUE(master_.sent.empty());
    Bytes longer = good_;
    longer.resize(longer.size() + 50, 0xCD);
    EXPECT_EQ(load(longer), BlockLoad::Loaded);
}

TEST_F(ChunkBlock, RefusesForeignMagicKindCountsAndLengths)
{
    for (std::size_t i = 4; i < 12; ++i) {
        Bytes bytes = good_;
        bytes[i] ^= 0x20;
        expectRefused(bytes, "magic");
    }
    Bytes sibling = good_;
    sibling[4] = sibling[8] = 'S';
    expectRefused(sibling, "sibling");
    Bytes single = good_;
    single[kBank + 4] = '"';
    expectRefused(single, "kind");

    constexpr std::size_t head = kBank + kRecordsAt + kPresetRecords;
    constexpr std::size_t value = head + kHeadRecord;
    expectRefused(with(kBank + kCountAt, 0xFFFFFFFF), "negative count");
    expectRefused(with(kBank + kCountAt, 580), "count beyond the records");
    expectRefused(with(kBank + kCountAt, 0x7FFFFFFF), "huge count");
    expectRefused(with(kBank + kSizeAt, 18937), "size beyond the data");
    expectRefused(with(kBank + kSizeAt, 0x80000000), "negative size");
    expectRefused(with(kBank + kSizeAt, 18935), "size below the records");
    expectRefused(with(head + 4, 23), "short head");
    expectRefused(with(value + 4, 15), "short value");
    expectRefused(with(value + 4, 0xFFFFFFF4), "length that wraps round");
    for (const std::size_t harmless : {0, 5, 9, 25, 37})
        EXPECT_EQ(load(with(harmless ? kBank + harmless : 0, 0x80FF7F01)), BlockLoad::Loaded) << harmless;
}

TEST_F(ChunkBlock, ValueFailureTakesTheEditorSettingsAlone)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    constexpr std::size_t lastValue = kChunkBlock - kValueRecord + 24;
    std::uint32_t aux = 100;
    for (const float value : {nan, -0.001f, 1.001f, std::numeric_limits<float>::infinity()}) {
        Bytes bytes = with(lastValue, std::bit_cast<std::uint32_t>(value));
        putWord(bytes, kBank + kAuxAt, ++aux);
        putWord(bytes, kBank + kZoomAt, 20);
        const StoreState before(store_);
        EXPECT_EQ(load(bytes), BlockLoad::ValueFailure) << value;
        EXPECT_TRUE(StoreState(store_).samePresets(before));
        EXPECT_EQ(store_.auxValue(), static_cast<std::int32_t>(aux));
        EXPECT_EQ(store_.zoomPercent(), 20);
        EXPECT_EQ(master_.sent, (Sent{{819, static_cast<double>(aux)}, {849, 0.5}}));
    }
}

TEST_F(ChunkBlock, ZoomIsTakenAboveZeroAndSentAsAFactor)
{
    struct {
        std::int32_t stored, kept;
        double sent;
    } const rows[] = {{150, 150, 1.5}, {0, 150, 1.5}, {-5, 150, 1.5},
                      {1, 1, 1.0},     {2, 2, 0.5},   {50, 50, 0.5}};
    for (const auto& row : rows) {
        ASSERT_EQ(load(with(kBank + kZoomAt, static_cast<std::uint32_t>(row.stored))), BlockLoad::Loaded);
        EXPECT_EQ(store_.zoomPercent(), row.kept);
        ASSERT_EQ(master_.sent.size(), 2u);
        EXPECT_DOUBLE_EQ(master_.sent[1].second, row.sent) << row.stored;
    }
}

TEST_F(ChunkBlock, CurrentSlotPicksThePresetAndFallsBackToTheFirst)
{
    struct {
        std::int32_t slot;
        std::size_t expected;
    } const rows[] = {{1, 1}, {2, 2}, {235, 0}, {std::numeric_limits<std::int32_t>::max(), 0}, {-1, 0}};
    for (const auto& row : rows) {
        ASSERT_EQ(load(with(kBank + kSlotAt, static_cast<std::uint32_t>(row.slot))), BlockLoad::Loaded);
        expectCurrentIs(presets_[row.expected]);
    }
    ASSERT_EQ(load(with(kBank + kSlotAt, 234)), BlockLoad::Loaded);
    EXPECT_EQ(store_.currentName(), "Init");
}

TEST_F(ChunkBlock, RecordsOfOtherSlotsIdsAndTypesAreSkipped)
{
    const std::uint32_t nan = 0x7FC00000;
    constexpr std::size_t first = kBank + kRecordsAt + kHeadRecord;
    for (const std::uint32_t slot : {235u, 0x7FFFFFFFu, 0xFFFFFFFFu}) {
        Bytes bytes = with(first + 24, nan);
        putWord(bytes, first + 8, slot);
        ASSERT_EQ(load(bytes), BlockLoad::Loaded) << slot;
        EXPECT_EQ(store_.currentValue(0), static_cast<float>(defaultValue(0)));
    }
    Bytes bytes = with(first + 24, nan);
    putWord(bytes, first + 12, 360);
    EXPECT_EQ(load(bytes), BlockLoad::Loaded);
    putWord(bytes, first, 9);
    EXPECT_EQ(load(bytes), BlockLoad::Loaded);

    // Slot 234 is the last one; a value without a head changes the slot in place.
    Bytes last = with(first + 8, 234);
    ASSERT_EQ(load(last), BlockLoad::Loaded);
    EXPECT_EQ(store_.bank()[234].values[0], presets_[0].values[0]);
    EXPECT_EQ(store_.bank()[234].title(), "Init");
}

TEST_F(ChunkBlock, ASlotsHeadStartsItFromTheDefaults)
{
    ASSERT_EQ(load(good_), BlockLoad::Loaded);
    Bytes headsOnly = good_;
    for (std::size_t at = kBank + kRecordsAt + kHeadRecord; at < kBank + kRecordsAt + kPresetRecords;
         at += kValueRecord)
        putWord(headsOnly, at, 5);
    ASSERT_EQ(load(headsOnly), BlockLoad::Loaded);
    EXPECT_EQ(store_.currentName(), "Slot 0");
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        ASSERT_EQ(store_.currentValue(id), static_cast<float>(defaultValue(id))) << id;
}

TEST_F(ChunkBlock, OlderSizesWithMoreSlotsAndFewerValuesLoad)
{
    // 180 slots of 189 values: the three newest limiter ids are missing from each.
    Bytes older = makeBlock(std::vector<Preset>(180, presets_[1]), {});
    Bytes block(older.begin(), older.begin() + kBank + kRecordsAt);
    for (std::size_t at = kBank + kRecordsAt; at < older.size();) {
        const std::size_t size = 12 + wordAt(older, at + 4);
        const std::uint32_t id = wordAt(older, at + 12);
        if (wordAt(older, at) == 0 || (id != 217 && id != 220 && id != 221))
            block.insert(block.end(), older.begin() + static_cast<std::ptrdiff_t>(at),
                         older.begin() + static_cast<std::ptrdiff_t>(at + size));
        at += size;
    }
    putWord(block, kBank + kCountAt, 180 * 190);
    putWord(block, kBank + kSizeAt, static_cast<std::uint32_t>(block.size() - kBank - kRecordsAt));
    EXPECT_EQ(block.size(), 1119153u - 224);
    ASSERT_EQ(load(block), BlockLoad::Loaded);
    EXPECT_EQ(store_.bank()[179].title(), presets_[1].title());
    EXPECT_EQ(store_.currentValue(32), presets_[1].values[32]);
    EXPECT_EQ(store_.currentValue(217), static_cast<float>(defaultValue(217)));
}

TEST_F(ChunkBlock, RandomDamageNeverHalfChangesTheStore)
{
    std::mt19937 random(4711);
    int counts[3] = {};
    for (int round = 0; round < 3000; ++round) {
        Bytes bytes = good_;
        if (round % 2) swapBlock(bytes, kBank);
        const int edits = 1 + static_cast<int>(random() % 8);
        for (int i = 0; i < edits; ++i) {
            const std::size_t range = i % 2 ? bytes.size() : kBank + kRecordsAt + kHeadRecord;
            bytes[random() % range] = static_cast<std::uint8_t>(random());
        }
        const StoreState before(store_);
        const BlockLoad result = load(bytes);
        const StoreState after(store_);
        ++counts[static_cast<int>(result)];
        ASSERT_EQ(master_.sent.size(), result == BlockLoad::Refused ? 0u : 2u);
        ASSERT_TRUE(result != BlockLoad::Refused || after == before) << "round " << round;
        ASSERT_TRUE(result != BlockLoad::ValueFailure || after.samePresets(before)) << "round " << round;
        for (const Preset& preset : after.bank) {
            ASSERT_EQ(preset.name.back(), '\0');
            for (const float value : preset.values) ASSERT_TRUE(value >= 0.0f && value <= 1.0f);
        }
    }
    std::printf("[ measured ] of 3000 damaged blocks %d load, %d fail by value, %d are refused\n", counts[0],
                counts[1], counts[2]);
    for (const int count : counts) EXPECT_GT(count, 50);
}

} // namespace
} // namespace velmora::test
