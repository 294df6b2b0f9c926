#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace velmora {

/// What became of a block of stored state.
enum class BlockLoad {
    Loaded,       ///< the state is the block's
    ValueFailure, ///< a value out of range: parameters unchanged, editor settings taken
    Refused,      ///< malformed: nothing taken
};

/// The preset store as the controller sees it: a whole state as bytes, and the current values.
class QORBasePresetStore {
public:
    virtual ~QORBasePresetStore() = default;

    /// Writes format word, magic and the bank block of a chunk. @return bytes written, 0 if `out` is too
    /// small.
    virtual std::size_t writeChunkBlock(std::span<std::uint8_t> out) = 0;
    /// Reads what `writeChunkBlock` wrote.
    virtual BlockLoad readChunkBlock(std::span<const std::uint8_t> block) = 0;
    /// @return the current normalised value of a host parameter. @range id 0..359
    virtual float currentValue(std::int32_t id) const = 0;
};

} // namespace velmora
