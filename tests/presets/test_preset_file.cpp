#include "tests/support/files.h"
#include "tests/presets/preset_fixtures.h"

#include <gtest/gtest.h>
#include <limits>

namespace velmora::test {
namespace {

using Status = PresetFileStatus;

const Preset kSaved = randomPreset(11, "Saved one");
const Preset kBefore = randomPreset(12, "Before");

class PresetFile : public testing::Test {
protected:
    /// Reads `bytes` over a preset of other values.
    Status load(const Bytes& bytes, int swapMode = 0)
    {
        preset_ = kBefore;
        return readPresetBlock(bytes, swapMode, &preset_);
    }

    void expectRefused(const Bytes& bytes, Status expected, const std::string& what)
    {
        EXPECT_EQ(load(bytes), expected) << what;
        EXPECT_TRUE(sameBytes(preset_, kBefore)) << what;
    }

    void expectLoaded(const Bytes& bytes, int swapMode = 0)
    {
        EXPECT_EQ(load(bytes, swapMode), Status::Loaded);
        EXPECT_EQ(preset_.title(), kSaved.title());
        EXPECT_TRUE(sameStoredValues(preset_, kSaved));
    }

    TemporaryFolder folder_;
    std::string path_ = folder_.file("x.qor");
    Preset preset_ = kBefore;
    Bytes good_ = writePresetBlock(kSaved);
};

TEST_F(PresetFile, RoundTripKeepsWhatIsNotStored)
{
    ASSERT_TRUE(savePresetFile(path_, kSaved));
    EXPECT_EQ(readBytes(path_), good_);
    EXPECT_EQ(entryCount(folder_), 1u);
    EXPECT_EQ(loadPresetFile(path_, 0, &preset_), Status::Loaded);
    EXPECT_EQ(preset_.title(), kSaved.title());
    EXPECT_TRUE(sameStoredValues(preset_, kSaved));
    EXPECT_EQ(preset_.values[1], kBefore.values[1]);
    EXPECT_FALSE(savePresetFile(folder_.file("missing/x.qor"), kSaved));
}

TEST_F(PresetFile, ReadsBothByteOrdersAndTheSibling)
{
    Bytes swapped = good_;
    swapBlock(swapped);
    expectLoaded(swapped);
    Bytes sibling = good_;
    sibling[0] = 'S';
    expectLoaded(sibling);
    Bytes swappedSibling = swapped;
    swappedSibling[3] = 'S';
    expectLoaded(swappedSibling);

    Bytes oddMagic = swapped; // native magic in front of swapped fields
    reverseWord(oddMagic, 0);
    expectLoaded(oddMagic, 1);
    EXPECT_NE(load(good_, 1), Status::Loaded);
    EXPECT_TRUE(sameBytes(preset_, kBefore));
}

TEST_F(PresetFile, EveryTruncationLeavesThePresetAsItWas)
{
    for (std::size_t size = 0; size < good_.size(); ++size)
        expectRefused(Bytes(good_.begin(), good_.begin() + static_cast<std::ptrdiff_t>(size)),
                      size < 5 ? Status::NotAPreset : Status::Truncated, std::to_string(size));
    Bytes longer = good_;
    longer.resize(good_.size() + 100, 0xAB);
    expectLoaded(longer);
}

TEST_F(PresetFile, RefusesForeignKindsCountsAndLengths)
{
    const auto corrupted = [this](std::size_t offset, std::uint32_t word) {
        Bytes bytes = good_;
        putWord(bytes, offset, word);
        return bytes;
    };
    for (std::size_t i = 0; i < 4; ++i) {
        Bytes bytes = good_;
        bytes[i] ^= 0x20;
        expectRefused(bytes, Status::NotAPreset, "magic");
    }
    Bytes bank = good_;
    bank[4] = '8';
    expectRefused(bank, Status::Bank, "kind");

    constexpr std::size_t firstValue = kRecordsAt + kHeadRecord;
    expectRefused(corrupted(kCountAt, 0xFFFFFFFF), Status::Damaged, "negative count");
    expectRefused(corrupted(kCountAt, 194), Status::Damaged, "count beyond the records");
    expectRefused(corrupted(kCountAt, 0x7FFFFFFF), Status::Damaged, "huge count");
    expectRefused(corrupted(kSizeAt, 6313), Status::Truncated, "size beyond the file");
    expectRefused(corrupted(kSizeAt, 0xFFFFFFFF), Status::Truncated, "negative size");
    expectRefused(corrupted(kSizeAt, 6311), Status::Damaged, "size below the records");
    expectRefused(corrupted(kRecordsAt + 4, 23), Status::Damaged, "head too short for a name");
    expectRefused(corrupted(firstValue + 4, 15), Status::Damaged, "record too short for a value");
    expectRefused(corrupted(firstValue + 4, 0xFFFFFFF4), Status::Damaged, "length that wraps round");
    for (const std::size_t harmless : {std::size_t{5}, std::size_t{9}, kSlotAt, std::size_t{25}, kAuxAt,
                                       kZoomAt, std::size_t{37}, kRecordsAt + 8, firstValue + 8})
        expectLoaded(corrupted(harmless, 0x80FF7F01));
}

TEST_F(PresetFile, RefusesValuesOutOfRangeWhereverTheyStand)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const float value : {nan, -nan, -1e-6f, 1.000001f, std::numeric_limits<float>::infinity(), -3e38f})
        for (const std::size_t record : {std::size_t{0}, std::size_t{100}, std::size_t{191}}) {
            Bytes bytes = good_;
            putWord(bytes, kRecordsAt + kHeadRecord + record * kValueRecord + 24,
                    std::bit_cast<std::uint32_t>(value));
            expectRefused(bytes, Status::ValueOutOfRange, std::to_string(value));
        }
}

TEST_F(PresetFile, SkipsRecordsThatItDoesNotKnow)
{
    Bytes bytes = good_;
    constexpr std::size_t second = kRecordsAt + kHeadRecord + kValueRecord;
    const std::uint32_t skippedId = wordAt(bytes, second + 12);
    const std::uint32_t nan = 0x7FC00000;
    putWord(bytes, second, 2); // a later version's type
    putWord(bytes, second + 24, nan);
    putWord(bytes, second + kValueRecord + 12, 360);
    putWord(bytes, second + kValueRecord + 24, nan);
    EXPECT_EQ(load(bytes), Status::Loaded);
    EXPECT_EQ(preset_.values.at(skippedId), kBefore.values.at(skippedId));

    // Without the value of id 0 the caller's mark stays.
    putWord(bytes, second - kValueRecord, 2);
    preset_.values[0] = -1.0f;
    EXPECT_EQ(readPresetBlock(bytes, 0, &preset_), Status::Incomplete);
    EXPECT_EQ(preset_.values[0], -1.0f);
}

TEST_F(PresetFile, UnusablePathsLeaveThePresetAlone)
{
    writeBytes(path_, std::span(good_).first(5));
    EXPECT_EQ(loadPresetFile(path_, 0, &preset_), Status::Truncated);
    for (const std::string& path : {folder_.file("missing.qor"), folder_.path().string(), std::string()}) {
        EXPECT_EQ(loadPresetFile(path, 0, &preset_), Status::Unreadable);
        EXPECT_TRUE(sameBytes(preset_, kBefore));
    }
}

TEST_F(PresetFile, RandomDamageNeverHalfChangesThePreset)
{
    std::mt19937 random(20240607);
    int loaded = 0;
    for (int round = 0; round < 10000; ++round) {
        Bytes bytes = good_;
        if (round % 2) swapBlock(bytes);
        const int edits = 1 + static_cast<int>(random() % 8);
        for (int i = 0; i < edits; ++i) {
            const std::size_t range = i % 2 ? bytes.size() : kRecordsAt + kHeadRecord;
            bytes[random() % range] = static_cast<std::uint8_t>(random());
        }
        const Status status = load(bytes);
        if (status != Status::Loaded && status != Status::Incomplete) {
            ASSERT_TRUE(sameBytes(preset_, kBefore)) << "round " << round;
            continue;
        }
        ++loaded;
        ASSERT_EQ(preset_.name.back(), '\0');
        for (const float value : preset_.values)
            ASSERT_TRUE(value >= 0.0f && value <= 1.0f) << "round " << round;
    }
    std::printf("[ measured ] %d of 10000 damaged files still load\n", loaded);
    EXPECT_GT(loaded, 100);
    EXPECT_LT(loaded, 9900);
}

TEST(PresetFilePath, JoinsFolderAndName)
{
    EXPECT_EQ(presetFilePath("/root", "", "Name"), "/root/Name.qor");
    EXPECT_EQ(presetFilePath("/root", "Sub folder", "Na.me"), "/root/Sub folder/Na.me.qor");
}

} // namespace
} // namespace velmora::test
