#pragma once

#include "presets/byte_writer.h"
#include "presets/preset.h"

#include <cstddef>
#include <cstdint>
#include <span>

/// The bytes of stored presets. A block is a header of 41 bytes (magic, kind, then nine 32-bit words) and
/// records: a head with the name for each preset, then one record per stored value. The same block stands in
/// a preset file, on the clipboard (one preset) and in the host's chunk (a bank).
namespace velmora {

inline constexpr int kBankSlots = 235; ///< slots that a bank can address

enum class BlockKind : std::uint8_t { SinglePreset = 0x22, Bank = 0x38 };

/// Editor settings that travel in a block's header.
struct BlockSettings {
    std::int32_t auxValue = 0;
    std::int32_t zoomPercent = 100;
};

/// @return size in bytes of a block of `presets` presets.
std::size_t blockSize(std::size_t presets);

/// Writes a block; the slot of a preset is its index.
void encodeBlock(ByteWriter& out, BlockKind kind, std::span<const Preset> presets,
                 const BlockSettings& settings);

struct BlockHeader {
    std::int32_t recordCount = 0;
    std::int32_t currentSlot = 0; ///< as read: any number
    BlockSettings settings;
};

enum class BlockStatus {
    Good,
    Truncated,       ///< ends in front of something that it announces
    ForeignMagic,    ///< no block at all
    WrongKind,       ///< a bank instead of a preset, or the reverse
    Damaged,         ///< a count or length that can't be
    ValueOutOfRange, ///< a value outside 0..1 or no number; the header is good
};

/// What a reader takes for its own.
struct BlockRules {
    BlockKind kind = BlockKind::SinglePreset;
    bool siblingMagic = false; ///< also blocks of the stereo sibling
    bool invertSwap = false;   ///< read a block against the byte order that its magic tells
};

/// Where decoded presets go. A single preset has one slot, whatever the slot word of its records says. In a
/// bank each preset head sets its slot to `fresh` first, and records of slots beyond `slots` are skipped.
struct BlockTarget {
    std::span<Preset> slots;
    const Preset* fresh = nullptr;
};

/// Decodes a block in either byte order; bytes behind its records are ignored. Unless the result is Good,
/// `target` may be changed in part, and `header` is valid with ValueOutOfRange alone.
BlockStatus decodeBlock(std::span<const std::uint8_t> block, const BlockRules& rules, BlockHeader& header,
                        const BlockTarget& target);

/// In front of a chunk's bank stand the format word and the magic once more.
inline constexpr std::size_t kBlockPrefixSize = 8;
void encodeBlockPrefix(ByteWriter& out);
/// @return whether these bytes end in the magic, in either byte order.
bool isBlockPrefix(std::span<const std::uint8_t> prefix);

} // namespace velmora
