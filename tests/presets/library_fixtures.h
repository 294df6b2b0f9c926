#pragma once

#include "presets/preset_library.h"
#include "tests/support/files.h"
#include "tests/presets/preset_fixtures.h"

#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

namespace velmora::test {

inline void ignoreOutput(std::string_view) {}

/// A user's folder to fill, and a library over it.
struct UserLibrary {
    TemporaryFolder home;
    PresetLibrary library{home.path().string(), ignoreOutput};
    std::filesystem::path root{library.userRoot()};

    void add(const std::filesystem::path& name, const Preset& preset)
    {
        std::filesystem::create_directories((root / name).parent_path());
        savePresetFile((root / name).string(), preset);
    }
    void addBytes(const std::string& name, const Bytes& bytes) { writeBytes(root / name, bytes); }

    /// Names of the cells of a folder, without their numbers.
    std::vector<std::string> names(std::int32_t group, std::int32_t folder) const
    {
        std::vector<std::string> list;
        for (std::int32_t i = 0; i < library.entryCount(group, folder); ++i)
            list.push_back(library.findEntry(group, folder, i)->name);
        return list;
    }
    std::vector<std::string> folders(std::int32_t group) const
    {
        std::vector<std::string> list;
        for (std::int32_t i = 0; i < library.folderCount(group); ++i)
            list.push_back(library.folderName(group, i));
        return list;
    }
};

struct MalformedBlock {
    std::string what;
    Bytes bytes;
};

/// What no reader may take for a preset.
inline std::vector<MalformedBlock> malformedBlocks()
{
    const Bytes good = writePresetBlock(randomPreset(77, "Malformed"));
    std::vector<MalformedBlock> list;
    const auto damage = [&](std::string what, std::size_t offset, std::uint32_t word) {
        list.push_back({std::move(what), good});
        putWord(list.back().bytes, offset, word);
    };
    for (const std::size_t size : {0UL, 4UL, 5UL, 40UL, 41UL, 52UL, 6000UL, good.size() - 1})
        list.push_back({"cut to " + std::to_string(size),
                        Bytes(good.begin(), good.begin() + static_cast<std::ptrdiff_t>(size))});
    damage("foreign magic", 0, 0x46464952);
    damage("negative count", kCountAt, 0xFFFFFFFF);
    damage("huge count", kCountAt, 0x7FFFFFFF);
    damage("records past the end", kSizeAt, 0x7FFFFFFF);
    damage("record length past the end", kRecordsAt + 4, 0x7FFFFFFF);
    const std::size_t firstValue = kRecordsAt + kHeadRecord + 24;
    for (const float value : {std::nanf(""), -0.001f, 1.001f, std::numeric_limits<float>::infinity()})
        damage("value " + std::to_string(value), firstValue, std::bit_cast<std::uint32_t>(value));
    return list;
}

} // namespace velmora::test
