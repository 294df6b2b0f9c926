#pragma once

#include "params/parameter_ids.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace velmora {

inline constexpr std::size_t kPresetNameSize = 24; ///< 23 characters and a zero

/// A name of a preset: UTF-8, at most 23 bytes, zeros behind it.
using PresetName = std::array<char, kPresetNameSize>;

constexpr bool isUtf8Continuation(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

/// Cuts `text` to 23 bytes, in front of a character that doesn't fit whole.
constexpr PresetName makePresetName(std::string_view text)
{
    std::size_t length = std::min(text.find('\0'), text.size());
    if (length >= kPresetNameSize) {
        length = kPresetNameSize - 1;
        constexpr std::size_t kMostContinuations = 3;
        std::size_t start = length;
        while (start > length - kMostContinuations && isUtf8Continuation(text[start])) --start;
        if (!isUtf8Continuation(text[start])) length = start;
    }
    PresetName name{};
    std::copy_n(text.begin(), length, name.begin());
    return name;
}

/// One set of values. Only ids that are stored in presets count, the others are never read.
/// @range values normalised, 0..1, by id.
struct Preset {
    PresetName name{};
    std::array<float, kHostParameterCount> values{};

    std::string_view title() const
    {
        return {name.data(),
                static_cast<std::size_t>(std::find(name.begin(), name.end(), '\0') - name.begin())};
    }
};
static_assert(std::is_trivially_copyable_v<Preset>);

} // namespace velmora
