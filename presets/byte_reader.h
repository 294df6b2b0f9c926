#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

namespace velmora {

/// Takes fields off the front of a run of bytes that nobody has checked. A field that runs past the end reads
/// as 0 and makes the reader fail for good. Words are little endian, or big endian if `swapped`.
class ByteReader {
public:
    explicit ByteReader(std::span<const std::uint8_t> bytes, bool swapped = false)
        : bytes_(bytes), swapped_(swapped)
    {
    }

    bool failed() const { return failed_; }
    std::size_t remaining() const { return bytes_.size(); }

    /// @return the next `count` bytes; none if there are fewer.
    std::span<const std::uint8_t> take(std::size_t count)
    {
        if (count > bytes_.size()) {
            failed_ = true;
            bytes_ = {};
            return {};
        }
        const std::span<const std::uint8_t> taken = bytes_.first(count);
        bytes_ = bytes_.subspan(count);
        return taken;
    }

    std::uint8_t byte()
    {
        const auto field = take(1);
        return field.empty() ? std::uint8_t{0} : field[0];
    }

    std::uint32_t word()
    {
        const auto field = take(4);
        std::uint32_t value = 0;
        for (std::size_t i = 0; i < field.size(); ++i)
            value |= std::uint32_t{field[i]} << (8 * (swapped_ ? 3 - i : i));
        return value;
    }

    std::int32_t signedWord() { return std::bit_cast<std::int32_t>(word()); }
    float number() { return std::bit_cast<float>(word()); }

    /// A reader of the next `count` bytes alone, in the same byte order.
    ByteReader part(std::size_t count) { return ByteReader(take(count), swapped_); }

private:
    std::span<const std::uint8_t> bytes_;
    bool swapped_;
    bool failed_ = false;
};

} // namespace velmora
