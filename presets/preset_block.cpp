#include "presets/preset_block.h"

#include "params/catalogue.h"
#include "presets/byte_reader.h"

#include <optional>
#include <vector>

namespace velmora {
namespace {

constexpr std::size_t kMagicSize = 4;
constexpr std::string_view kMagic = "MVqQ";
constexpr std::string_view kSwappedMagic = "QqVM";
constexpr std::string_view kSiblingMagic = "SVqQ";
constexpr std::string_view kSwappedSiblingMagic = "QqVS";

constexpr std::size_t kHeaderSize = 41;
constexpr std::uint32_t kFormatWord = 0x02000000;
constexpr std::uint32_t kHeaderConstant = 13;

constexpr std::size_t kRecordHeadSize = 12;
constexpr std::uint32_t kPresetHeadType = 0;
constexpr std::uint32_t kValueType = 1;
constexpr std::uint32_t kPresetHeadLength = 156;
constexpr std::uint32_t kValueLength = 20;
constexpr std::size_t kValueOffsetInRecord = 12; // behind id and two unused words
constexpr std::size_t kValueEnd = kValueOffsetInRecord + 4;

/// The ids with the stored flag, rising.
const std::vector<ParameterId>& storedIds()
{
    static const std::vector<ParameterId> ids = [] {
        std::vector<ParameterId> list;
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            if (isStored(id)) list.push_back(id);
        return list;
    }();
    return ids;
}

std::size_t presetRecordsSize()
{
    return kRecordHeadSize + kPresetHeadLength + storedIds().size() * (kRecordHeadSize + kValueLength);
}

void encodeRecordHead(ByteWriter& out, std::uint32_t type, std::uint32_t length, std::uint32_t slot)
{
    out.word(type);
    out.word(length);
    out.word(slot);
}

void encodePreset(ByteWriter& out, const Preset& preset, std::uint32_t slot)
{
    encodeRecordHead(out, kPresetHeadType, kPresetHeadLength, slot);
    out.text(preset.name);
    out.zeros(kPresetHeadLength - kPresetNameSize);
    for (const ParameterId id : storedIds()) {
        encodeRecordHead(out, kValueType, kValueLength, slot);
        out.signedWord(id);
        out.zeros(kValueOffsetInRecord - 4);
        out.number(preset.values[static_cast<std::size_t>(id)]);
        out.zeros(kValueLength - kValueEnd);
    }
}

/// @return whether a block of this magic is swapped; nothing for a foreign magic.
std::optional<bool> swapOfMagic(std::span<const std::uint8_t> bytes, bool sibling)
{
    const std::string_view magic(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    if (magic == kMagic || (sibling && magic == kSiblingMagic)) return false;
    if (magic == kSwappedMagic || (sibling && magic == kSwappedSiblingMagic)) return true;
    return std::nullopt;
}

/// One record: where it belongs and what it holds.
struct Record {
    std::uint32_t type;
    std::int32_t slot;
    ByteReader payload;
};

std::optional<Record> nextRecord(ByteReader& records)
{
    const std::uint32_t type = records.word();
    const std::uint32_t length = records.word();
    const std::int32_t slot = records.signedWord();
    const ByteReader payload = records.part(length);
    if (records.failed()) return std::nullopt;
    return Record{type, slot, payload};
}

BlockStatus decodePresetHead(ByteReader& payload, Preset& preset, const Preset* fresh)
{
    const auto name = payload.take(kPresetNameSize);
    if (payload.failed()) return BlockStatus::Damaged;
    if (fresh) preset = *fresh;
    std::copy(name.begin(), name.end(), preset.name.begin());
    preset.name.back() = '\0';
    return BlockStatus::Good;
}

BlockStatus decodeValue(ByteReader& payload, Preset& preset)
{
    const std::uint32_t id = payload.word();
    payload.take(kValueOffsetInRecord - 4);
    const float value = payload.number();
    if (payload.failed()) return BlockStatus::Damaged;
    if (id >= kHostParameterCount) return BlockStatus::Good;
    if (!(value >= 0.0f && value <= 1.0f)) return BlockStatus::ValueOutOfRange;
    preset.values[id] = value;
    return BlockStatus::Good;
}

BlockStatus decodeRecord(Record record, BlockKind kind, const BlockTarget& target)
{
    if (kind == BlockKind::SinglePreset) record.slot = 0;
    if (record.slot < 0 || static_cast<std::size_t>(record.slot) >= target.slots.size())
        return BlockStatus::Good;
    Preset& preset = target.slots[static_cast<std::size_t>(record.slot)];
    switch (record.type) {
    case kPresetHeadType:
        return decodePresetHead(record.payload, preset, target.fresh);
    case kValueType:
        return decodeValue(record.payload, preset);
    default:
        return BlockStatus::Good;
    }
}

BlockStatus decodeRecords(ByteReader records, BlockKind kind, std::int32_t count, const BlockTarget& target)
{
    for (std::int32_t i = 0; i < count; ++i) {
        const std::optional<Record> record = nextRecord(records);
        if (!record) return BlockStatus::Damaged;
        const BlockStatus status = decodeRecord(*record, kind, target);
        if (status != BlockStatus::Good) return status;
    }
    return BlockStatus::Good;
}

} // namespace

std::size_t blockSize(std::size_t presets)
{
    return kHeaderSize + presets * presetRecordsSize();
}

void encodeBlock(ByteWriter& out, BlockKind kind, std::span<const Preset> presets,
                 const BlockSettings& settings)
{
    out.text(kMagic);
    out.byte(static_cast<std::uint8_t>(kind));
    out.word(kFormatWord);
    out.signedWord(kHostParameterCount);
    out.word(static_cast<std::uint32_t>(presets.size() * (1 + storedIds().size())));
    out.word(0); // current slot
    out.word(static_cast<std::uint32_t>(presets.size() * presetRecordsSize()));
    out.word(kHeaderConstant);
    out.signedWord(settings.auxValue);
    out.signedWord(settings.zoomPercent);
    out.word(0); // reserved
    for (std::size_t slot = 0; slot < presets.size(); ++slot)
        encodePreset(out, presets[slot], static_cast<std::uint32_t>(slot));
}

BlockStatus decodeBlock(std::span<const std::uint8_t> block, const BlockRules& rules, BlockHeader& header,
                        const BlockTarget& target)
{
    if (block.size() <= kMagicSize) return BlockStatus::Truncated;
    const std::optional<bool> swap = swapOfMagic(block.first(kMagicSize), rules.siblingMagic);
    if (!swap) return BlockStatus::ForeignMagic;

    ByteReader reader(block.subspan(kMagicSize), *swap != rules.invertSwap);
    if (reader.byte() != static_cast<std::uint8_t>(rules.kind)) return BlockStatus::WrongKind;
    reader.take(2 * 4); // format and parameter count bind nobody: each record tells what it is
    header.recordCount = reader.signedWord();
    header.currentSlot = reader.signedWord();
    const std::uint32_t recordsSize = reader.word();
    reader.word();
    header.settings.auxValue = reader.signedWord();
    header.settings.zoomPercent = reader.signedWord();
    reader.word();
    if (reader.failed()) return BlockStatus::Truncated;

    if (header.recordCount < 0) return BlockStatus::Damaged;
    const ByteReader records = reader.part(recordsSize);
    if (reader.failed()) return BlockStatus::Truncated;
    return decodeRecords(records, rules.kind, header.recordCount, target);
}

void encodeBlockPrefix(ByteWriter& out)
{
    out.word(kFormatWord);
    out.text(kMagic);
}

bool isBlockPrefix(std::span<const std::uint8_t> prefix)
{
    return prefix.size() == kBlockPrefixSize && swapOfMagic(prefix.subspan(4), false).has_value();
}

} // namespace velmora
