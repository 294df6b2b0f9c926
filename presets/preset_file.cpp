#include "presets/preset_file.h"

#include "platform/whole_file.h"

namespace velmora {
namespace {

constexpr std::size_t kMaxFileSize = 1 << 24; // a preset has 6353 bytes; room for records of later versions
constexpr std::size_t kMinFileSize = 5;
constexpr float kNotLoaded = -1.0f;

PresetFileStatus fileStatus(BlockStatus status)
{
    switch (status) {
    case BlockStatus::Good:
        return PresetFileStatus::Loaded;
    case BlockStatus::Truncated:
        return PresetFileStatus::Truncated;
    case BlockStatus::ForeignMagic:
        return PresetFileStatus::NotAPreset;
    case BlockStatus::WrongKind:
        return PresetFileStatus::Bank;
    case BlockStatus::Damaged:
        return PresetFileStatus::Damaged;
    case BlockStatus::ValueOutOfRange:
        return PresetFileStatus::ValueOutOfRange;
    }
    return PresetFileStatus::Damaged;
}

} // namespace

std::string_view presetFileStatusText(PresetFileStatus status)
{
    switch (status) {
    case PresetFileStatus::Loaded:
        return "a preset";
    case PresetFileStatus::Unreadable:
        return "can't be opened as a writable file";
    case PresetFileStatus::NotAPreset:
        return "not a preset file (it doesn't begin with a known magic)";
    case PresetFileStatus::Bank:
        return "not a single preset (the kind byte is another)";
    case PresetFileStatus::Truncated:
        return "cut short: the end of the preset is missing";
    case PresetFileStatus::Damaged:
        return "damaged: a count or length doesn't fit the file";
    case PresetFileStatus::ValueOutOfRange:
        return "damaged: a value lies outside 0..1";
    case PresetFileStatus::Incomplete:
        return "incomplete: the value of Process is missing";
    }
    return "";
}

PresetFileStatus readPresetBlock(std::span<const std::uint8_t> block, int swapMode, Preset* preset)
{
    if (block.size() < kMinFileSize) return PresetFileStatus::NotAPreset;
    const BlockRules rules{
        .kind = BlockKind::SinglePreset, .siblingMagic = true, .invertSwap = swapMode != 0};
    BlockHeader header;
    Preset decoded = *preset;
    decoded.values[kProcessId] = kNotLoaded;
    const BlockStatus status = decodeBlock(block, rules, header, {.slots = {&decoded, 1}});
    if (status != BlockStatus::Good) return fileStatus(status);

    const bool complete = decoded.values[kProcessId] >= 0.0f;
    if (!complete) decoded.values[kProcessId] = preset->values[kProcessId];
    *preset = decoded;
    return complete ? PresetFileStatus::Loaded : PresetFileStatus::Incomplete;
}

PresetFileStatus loadPresetFile(const std::string& path, int swapMode, Preset* preset)
{
    const auto bytes = readWholeFile(path, kMaxFileSize, FileAccess::ReadWrite);
    return bytes ? readPresetBlock(*bytes, swapMode, preset) : PresetFileStatus::Unreadable;
}

std::vector<std::uint8_t> writePresetBlock(const Preset& preset, const BlockSettings& settings)
{
    std::vector<std::uint8_t> block(blockSize(1));
    ByteWriter writer(block);
    encodeBlock(writer, BlockKind::SinglePreset, {&preset, 1}, settings);
    return block;
}

bool savePresetFile(const std::string& path, const Preset& preset, const BlockSettings& settings)
{
    return writeWholeFile(path, writePresetBlock(preset, settings));
}

std::string presetFilePath(std::string_view root, std::string_view subfolder, std::string_view name)
{
    std::string path(root);
    path += '/';
    if (!subfolder.empty()) path.append(subfolder) += '/';
    return path.append(name).append(kPresetExtension);
}

} // namespace velmora
