#include "tests/editor/png_bytes.h"

#include <algorithm>
#include <string_view>

namespace velmora::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

void appendNumber(Bytes& bytes, std::uint32_t number)
{
    for (int shift = 24; shift >= 0; shift -= 8) bytes.push_back(static_cast<std::uint8_t>(number >> shift));
}

std::uint32_t crcOf(const Bytes& bytes)
{
    std::uint32_t crc = 0xFFFFFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit) crc = crc & 1 ? crc >> 1 ^ 0xEDB88320 : crc >> 1;
    }
    return ~crc;
}

void appendChunk(Bytes& file, std::string_view name, const Bytes& content)
{
    Bytes named(name.begin(), name.end());
    named.insert(named.end(), content.begin(), content.end());
    appendNumber(file, static_cast<std::uint32_t>(content.size()));
    file.insert(file.end(), named.begin(), named.end());
    appendNumber(file, crcOf(named));
}

/// Blocks of stored bytes in a zlib stream.
Bytes stored(const Bytes& bytes)
{
    constexpr std::size_t kBlock = 65535;
    Bytes stream{0x78, 0x01};
    std::uint32_t a = 1;
    std::uint32_t b = 0;
    for (std::size_t from = 0; from < bytes.size(); from += kBlock) {
        const std::size_t size = std::min(kBlock, bytes.size() - from);
        stream.push_back(from + size == bytes.size());
        for (const std::size_t half : {size, ~size})
            for (const int shift : {0, 8}) stream.push_back(static_cast<std::uint8_t>(half >> shift));
        for (std::size_t i = from; i < from + size; ++i) {
            stream.push_back(bytes[i]);
            a = (a + bytes[i]) % 65521;
            b = (b + a) % 65521;
        }
    }
    appendNumber(stream, b << 16 | a);
    return stream;
}

} // namespace

std::vector<std::uint8_t> pngBytes(int width, int height, const std::function<Rgba(int x, int y)>& colourAt)
{
    Bytes rows;
    for (int y = 0; y < height; ++y) {
        rows.push_back(0);
        for (int x = 0; x < width; ++x) {
            const Rgba colour = colourAt(x, y);
            rows.insert(rows.end(), {colour.red, colour.green, colour.blue, colour.alpha});
        }
    }
    Bytes head;
    appendNumber(head, static_cast<std::uint32_t>(width));
    appendNumber(head, static_cast<std::uint32_t>(height));
    head.insert(head.end(), {8, 6, 0, 0, 0}); // 8 bits, red green blue alpha

    Bytes file{0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
    appendChunk(file, "IHDR", head);
    appendChunk(file, "IDAT", stored(rows));
    appendChunk(file, "IEND", {});
    return file;
}

} // namespace velmora::test
