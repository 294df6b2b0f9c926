#pragma once

#include "host/master/master_controller.h"
#include "params/catalogue.h"
#include "presets/preset_store.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <map>
#include <random>
#include <utility>
#include <vector>

namespace velmora::test {

using Bytes = std::vector<std::uint8_t>;

/// A host's side that remembers what it is sent and may hand it back to a store, as an adapter does.
class RecordingMaster : public QORMasterController {
public:
    void setParameter(std::int32_t id, double value) override
    {
        sent.emplace_back(id, value);
        if (store && id < kHostParameterCount) store->onParameterChanged(id, value);
    }
    void writeStoredSetting(std::int32_t id, double value) override { settings[id] = value; }
    void readStoredSetting(std::int32_t id, double* out) override
    {
        if (const auto found = settings.find(id); found != settings.end()) *out = found->second;
    }
    QORBasePresetStore* getPresetStore() override { return store; }
    QORBaseParametersController* getController() override { return nullptr; }

    std::vector<std::pair<std::int32_t, double>> sent;
    std::map<std::int32_t, double> settings;
    PresetStore* store = nullptr;
};

inline Preset randomPreset(std::uint32_t seed, std::string_view name)
{
    std::mt19937 random(seed);
    std::uniform_real_distribution<float> value(0.0f, 1.0f);
    Preset preset{.name = makePresetName(name), .values = {}};
    for (float& v : preset.values) v = value(random);
    return preset;
}

inline bool sameStoredValues(const Preset& a, const Preset& b)
{
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id) && a.values[static_cast<std::size_t>(id)] != b.values[static_cast<std::size_t>(id)])
            return false;
    return true;
}

inline bool sameBytes(const Preset& a, const Preset& b)
{
    return std::memcmp(&a, &b, sizeof(Preset)) == 0;
}

inline void putWord(Bytes& bytes, std::size_t offset, std::uint32_t word)
{
    for (std::size_t i = 0; i < 4; ++i) bytes.at(offset + i) = static_cast<std::uint8_t>(word >> (8 * i));
}

inline std::uint32_t wordAt(const Bytes& bytes, std::size_t offset)
{
    std::uint32_t word = 0;
    for (std::size_t i = 0; i < 4; ++i) word |= std::uint32_t{bytes.at(offset + i)} << (8 * i);
    return word;
}

inline void reverseWord(Bytes& bytes, std::size_t offset)
{
    std::reverse(bytes.begin() + static_cast<std::ptrdiff_t>(offset),
                 bytes.begin() + static_cast<std::ptrdiff_t>(offset + 4));
}

/// Offsets within a block.
inline constexpr std::size_t kCountAt = 13, kSlotAt = 17, kSizeAt = 21, kAuxAt = 29, kZoomAt = 33,
                             kRecordsAt = 41;
inline constexpr std::size_t kHeadRecord = 168, kValueRecord = 32, kPresetRecords = 6312;

/// Turns a good native block at `start` into what a machine of the other byte order would have written.
inline void swapBlock(Bytes& bytes, std::size_t start = 0)
{
    const std::uint32_t records = wordAt(bytes, start + kCountAt);
    reverseWord(bytes, start);
    for (std::size_t field = 5; field < kRecordsAt; field += 4) reverseWord(bytes, start + field);
    std::size_t at = start + kRecordsAt;
    for (std::uint32_t i = 0; i < records; ++i) {
        const bool isValue = wordAt(bytes, at) == 1;
        const std::size_t length = wordAt(bytes, at + 4);
        for (std::size_t field = 0; field < 12; field += 4) reverseWord(bytes, at + field);
        if (isValue) {
            reverseWord(bytes, at + 12);
            reverseWord(bytes, at + 24);
        }
        at += 12 + length;
    }
}

} // namespace velmora::test
