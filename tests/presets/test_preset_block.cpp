#include "presets/byte_reader.h"
#include "tests/presets/preset_fixtures.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmora::test {
namespace {

TEST(ByteReader, StaysInsideAndFailsForGood)
{
    const Bytes bytes{1, 2, 3, 4, 5, 6};
    ByteReader native(bytes);
    EXPECT_EQ(native.word(), 0x04030201u);
    EXPECT_EQ(native.word(), 0u);
    EXPECT_TRUE(native.failed());
    EXPECT_EQ(native.byte(), 0);
    EXPECT_EQ(ByteReader(bytes, true).word(), 0x01020304u);
    ByteReader outer(bytes, true);
    ByteReader inner = outer.part(5);
    EXPECT_EQ(inner.word(), 0x01020304u);
    EXPECT_EQ(inner.byte(), 5);
    EXPECT_EQ(inner.byte(), 0);
    EXPECT_TRUE(inner.failed());
    EXPECT_EQ(outer.remaining(), 1u);
    outer.take(std::numeric_limits<std::size_t>::max());
    EXPECT_TRUE(outer.failed());
}

TEST(ByteWriter, NeverWritesBehindItsBuffer)
{
    Bytes bytes(8, 0xEE);
    ByteWriter writer({bytes.data(), 6});
    writer.word(0x04030201);
    writer.word(0xFFFFFFFF);
    writer.byte(1);
    writer.text(std::string_view("abc"));
    EXPECT_TRUE(writer.failed());
    EXPECT_EQ(bytes, (Bytes{1, 2, 3, 4, 0xEE, 0xEE, 0xEE, 0xEE}));
}

TEST(PresetBlock, SinglePresetHasTheFixedLayout)
{
    const Preset preset = randomPreset(1, "A name");
    const Bytes block = writePresetBlock(preset, {.auxValue = -2, .zoomPercent = 120});
    ASSERT_EQ(block.size(), 6353u);
    EXPECT_EQ(Bytes(block.begin(), block.begin() + 9), (Bytes{'M', 'V', 'q', 'Q', '"', 0, 0, 0, 2}));
    const std::uint32_t header[] = {360, 193, 0, 6312, 13, 0xFFFFFFFE, 120, 0};
    for (std::size_t i = 0; i < std::size(header); ++i)
        EXPECT_EQ(wordAt(block, 9 + 4 * i), header[i]) << "word " << i;

    EXPECT_EQ(wordAt(block, kRecordsAt), 0u);
    EXPECT_EQ(wordAt(block, kRecordsAt + 4), 156u);
    EXPECT_EQ(std::memcmp(&block[kRecordsAt + 12], "A name\0", 7), 0);
    const auto isZero = [](std::uint8_t byte) { return byte == 0; };
    EXPECT_TRUE(
        std::all_of(block.begin() + kRecordsAt + 36, block.begin() + kRecordsAt + kHeadRecord, isZero));

    std::int64_t previous = -1;
    std::size_t at = kRecordsAt + kHeadRecord;
    for (int i = 0; i < 192; ++i, at += kValueRecord) {
        const std::uint32_t id = wordAt(block, at + 12);
        EXPECT_EQ(wordAt(block, at), 1u);
        EXPECT_EQ(wordAt(block, at + 4), 20u);
        EXPECT_EQ(wordAt(block, at + 8), 0u);
        ASSERT_LT(previous, id);
        ASSERT_TRUE(isStored(static_cast<ParameterId>(id)));
        EXPECT_EQ(std::bit_cast<float>(wordAt(block, at + 24)), preset.values.at(id));
        EXPECT_EQ(wordAt(block, at + 16) | wordAt(block, at + 20) | wordAt(block, at + 28), 0u);
        previous = id;
    }
    EXPECT_EQ(at, block.size());
}

TEST(PresetBlock, BankRepeatsTheGroupWithItsSlot)
{
    const Preset presets[] = {randomPreset(1, "a"), randomPreset(2, "b"), randomPreset(3, "c")};
    Bytes block(blockSize(3));
    ByteWriter writer(block);
    encodeBlock(writer, BlockKind::Bank, presets, {});
    ASSERT_EQ(writer.size(), 18977u);
    EXPECT_EQ(block[4], '8');
    EXPECT_EQ(wordAt(block, kCountAt), 579u);
    EXPECT_EQ(wordAt(block, kSizeAt), 18936u);
    for (std::uint32_t slot = 0; slot < 3; ++slot) {
        const std::size_t group = kRecordsAt + slot * kPresetRecords;
        EXPECT_EQ(wordAt(block, group + 8), slot);
        EXPECT_EQ(wordAt(block, group + kPresetRecords - kValueRecord + 8), slot);
        EXPECT_EQ(block[group + 12], "abc"[slot]);
    }
}

} // namespace
} // namespace velmora::test
