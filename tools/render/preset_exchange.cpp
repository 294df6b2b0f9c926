#include "tools/render/preset_exchange.h"

#include "presets/preset_block.h"
#include "presets/preset_file.h"
#include "presets/preset_library.h"
#include "tools/common/user_error.h"

#include <algorithm>
#include <array>
#include <string>

namespace velmora::render {

namespace {

constexpr std::size_t kChunkHeaderSize = 224;
constexpr std::size_t kBlockOffset = kChunkHeaderSize + kBlockPrefixSize;

/// What a chunk's bank holds: the state itself in slot 0, then the two that travel with it.
struct ChunkBank {
    std::array<Preset, 3> slots{};
    BlockHeader header;
};

ChunkBank decodeBank(std::span<const std::uint8_t> chunk)
{
    ChunkBank bank;
    const Preset fresh{};
    if (chunk.size() < kBlockOffset || !isBlockPrefix(chunk.subspan(kChunkHeaderSize, kBlockPrefixSize)) ||
        decodeBlock(chunk.subspan(kBlockOffset), {BlockKind::Bank}, bank.header, {bank.slots, &fresh}) !=
            BlockStatus::Good)
        throw UserError(
            "the plug-in's state isn't one of QOR Velmora Mono; --plugin must name velmora_mono.so");
    return bank;
}

} // namespace

Preset presetOfChunk(std::span<const std::uint8_t> chunk)
{
    return decodeBank(chunk).slots[0];
}

Preset readPresetFile(const std::filesystem::path& path)
{
    Preset preset = makeFactoryPreset(0);
    const PresetFileStatus status = loadPresetFile(path.string(), 0, &preset);
    if (status != PresetFileStatus::Loaded)
        throw UserError("the preset " + path.string() + " can't be loaded: " +
                        std::string(presetFileStatusText(status)) + "; a preset saved as .qor is wanted");
    return preset;
}

std::vector<std::uint8_t> chunkWithPreset(std::span<const std::uint8_t> chunk, const Preset& preset)
{
    ChunkBank bank = decodeBank(chunk);
    bank.slots[0] = preset;
    std::vector<std::uint8_t> result(kBlockOffset + blockSize(bank.slots.size()));
    std::copy_n(chunk.begin(), kBlockOffset, result.begin());
    ByteWriter out{std::span(result).subspan(kBlockOffset)};
    encodeBlock(out, BlockKind::Bank, bank.slots, bank.header.settings);
    return result;
}

} // namespace velmora::render
