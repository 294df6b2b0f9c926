#pragma once

#include "host/vst24/vst24_effect_wrapper.h"

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>
#include <vector>

namespace velmora::vst24::test {

inline std::vector<std::uint8_t> chunkOf(QORVST24EffectWrapper& effect)
{
    void* data = nullptr;
    const std::int32_t size = effect.getChunk(&data, false);
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    return {bytes, bytes + size};
}

/// The current state's value of a stored id, read from slot 0 of the chunk's bank; NaN if it isn't there.
inline float storedValue(QORVST24EffectWrapper& effect, std::int32_t wanted)
{
    constexpr std::size_t kFirstRecord = 232 + 41;
    constexpr std::size_t kHead = 12;
    constexpr std::size_t kValueAt = kHead + 12;
    constexpr int kRecords = 193;

    const std::vector<std::uint8_t> bytes = chunkOf(effect);
    std::size_t at = kFirstRecord;
    for (int record = 0; record < kRecords; ++record) {
        std::int32_t type = 0, length = 0, id = 0;
        std::memcpy(&type, &bytes[at], sizeof type);
        std::memcpy(&length, &bytes[at + 4], sizeof length);
        std::memcpy(&id, &bytes[at + kHead], sizeof id);
        if (type == 1 && id == wanted) {
            float value = 0.0f;
            std::memcpy(&value, &bytes[at + kValueAt], sizeof value);
            return value;
        }
        at += kHead + static_cast<std::size_t>(length);
    }
    return std::numeric_limits<float>::quiet_NaN();
}

} // namespace velmora::vst24::test
