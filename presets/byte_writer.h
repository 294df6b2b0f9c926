#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>

namespace velmora {

/// Puts fields one behind the other into a buffer, words little endian. A field that doesn't fit is left out
/// and makes the writer fail for good.
class ByteWriter {
public:
    explicit ByteWriter(std::span<std::uint8_t> out) : out_(out) {}

    bool failed() const { return failed_; }
    /// @return bytes written so far.
    std::size_t size() const { return size_; }

    void byte(std::uint8_t value)
    {
        for (std::uint8_t& place : claim(1)) place = value;
    }

    void word(std::uint32_t value)
    {
        for (std::uint8_t& place : claim(4)) {
            place = static_cast<std::uint8_t>(value);
            value >>= 8;
        }
    }

    void signedWord(std::int32_t value) { word(std::bit_cast<std::uint32_t>(value)); }
    void number(float value) { word(std::bit_cast<std::uint32_t>(value)); }
    void zeros(std::size_t count) { std::ranges::fill(claim(count), std::uint8_t{0}); }

    void text(std::span<const char> characters)
    {
        const char* next = characters.data();
        for (std::uint8_t& place : claim(characters.size())) place = static_cast<std::uint8_t>(*next++);
    }

private:
    std::span<std::uint8_t> claim(std::size_t count)
    {
        if (failed_ || count > out_.size() - size_) {
            failed_ = true;
            return {};
        }
        size_ += count;
        return out_.subspan(size_ - count, count);
    }

    std::span<std::uint8_t> out_;
    std::size_t size_ = 0;
    bool failed_ = false;
};

} // namespace velmora
