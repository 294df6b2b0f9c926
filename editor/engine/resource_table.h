#pragma once

#include <cstdint>
#include <span>

namespace velmora {

/// The pictures inside the program, by id.
class ResourceTable {
public:
    struct Row {
        std::uint32_t id;
        std::uint32_t offset;
        std::uint32_t length;
    };

    /// @param sortedRows ascending ids, ranges of `allBytes`
    constexpr ResourceTable(std::span<const Row> sortedRows, const std::uint8_t* allBytes)
        : rows(sortedRows), bytes(allBytes)
    {
    }

    /// @return the bytes of a PNG file and their length; null and 0 for an id that isn't in the table
    const std::uint8_t* find(std::uint32_t id, std::uint32_t& length) const;
    std::span<const Row> all() const { return rows; }

private:
    std::span<const Row> rows;
    const std::uint8_t* bytes;
};

/// The program's pictures. May be asked before other statics exist.
const ResourceTable& resourceTable();

} // namespace velmora
