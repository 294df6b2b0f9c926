// The state chunk: a header of the editor's view, then the preset store's block.

#include "host/master/base_preset_store.h"
#include "params/catalogue.h"
#include "params/velmora_mono_controller.h"

#include <algorithm>
#include <cstring>

namespace velmora {

namespace {

// Header fields by offset; what follows them is reserved.
constexpr std::size_t kViewModeAt = 0;
constexpr std::size_t kVersionAt = 4;
constexpr std::size_t kSelectedMiniAt = 8;
constexpr std::size_t kReservedOnesAt = 12;
constexpr std::size_t kReservedDoublesAt = 32;
constexpr std::size_t kReservedZerosAt = 96;

constexpr double kViewModeScale = 0.33333;

// Chunks of formats that can't be read any more, by their size: a block without a header, and two older ones.
constexpr std::array<std::int32_t, 3> kIgnoredSizes{18985, 621649, 621873};
// An older format of the same layout, from before the limiter's modes.
constexpr std::int32_t kOldLimiterSize = 1119153;
constexpr ParameterId kLimiterType = 192;
constexpr ParameterId kLimiterCeiling = 210;
constexpr std::array<ParameterId, 3> kNewLimiterIds{217, 220, 221};

void putWord(std::span<std::uint8_t> bytes, std::size_t at, std::int32_t word)
{
    std::memcpy(&bytes[at], &word, sizeof word);
}

std::int32_t getWord(std::span<const std::uint8_t> bytes, std::size_t at)
{
    std::int32_t word = 0;
    std::memcpy(&word, &bytes[at], sizeof word);
    return word;
}

/// Reactions come back even if there is no memory to load with.
class LoadingScope {
public:
    explicit LoadingScope(bool& flag) : loading(flag) { loading = true; }
    ~LoadingScope() { loading = false; }
    LoadingScope(const LoadingScope&) = delete;
    LoadingScope& operator=(const LoadingScope&) = delete;

private:
    bool& loading;
};

} // namespace

std::int32_t VelmoraMonoController::getChunk(void** data)
{
    QORBasePresetStore* store = master->getPresetStore();
    if (store == nullptr) return 0;
    const std::span<std::uint8_t> chunk(chunkBuffer);
    std::fill(chunk.begin(), chunk.end(), std::uint8_t{0});
    writeHeader(chunk.first(kChunkHeaderSize));
    const std::size_t written = store->writeChunkBlock(chunk.subspan(kChunkHeaderSize));
    if (written != kChunkSize - kChunkHeaderSize) return 0;
    *data = chunkBuffer.data();
    return static_cast<std::int32_t>(kChunkSize);
}

void VelmoraMonoController::writeHeader(std::span<std::uint8_t> header) const
{
    putWord(header, kViewModeAt, currentViewMode());
    putWord(header, kVersionAt, kChunkVersion);
    putWord(header, kSelectedMiniAt, currentSelectedMini());
    std::fill(&header[kReservedOnesAt], &header[kReservedDoublesAt], std::uint8_t{0xFF});
    constexpr double kUnused = -1.0;
    for (std::size_t at = kReservedDoublesAt; at < kReservedZerosAt; at += sizeof kUnused)
        std::memcpy(&header[at], &kUnused, sizeof kUnused);
}

void VelmoraMonoController::setChunk(const void* data, std::int32_t size)
{
    QORBasePresetStore* store = master->getPresetStore();
    if (data == nullptr || store == nullptr) return;
    if (size < static_cast<std::int32_t>(kChunkHeaderSize)) return;
    if (std::find(kIgnoredSizes.begin(), kIgnoredSizes.end(), size) != kIgnoredSizes.end()) return;

    const std::span bytes(static_cast<const std::uint8_t*>(data), static_cast<std::size_t>(size));
    const LoadingScope scope(loading);
    if (store->readChunkBlock(bytes.subspan(kChunkHeaderSize)) == BlockLoad::Loaded) {
        sendCurrentValues();
        takeHeader(bytes.first(kChunkHeaderSize));
        if (size == kOldLimiterSize) repairOldLimiter();
    }
}

void VelmoraMonoController::sendCurrentValues()
{
    const QORBasePresetStore* store = master->getPresetStore();
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if ((parameterFlags(id) & (kAutomatableFlag | kStoredFlag)) != 0)
            master->setParameter(id, static_cast<double>(store->currentValue(id)));
}

void VelmoraMonoController::takeHeader(std::span<const std::uint8_t> header)
{
    setSelectedMini(getWord(header, kSelectedMiniAt));
    std::int32_t mode = getWord(header, kViewModeAt);
    if (mode < 0 || mode > ProcessViewMode::kLastMode) mode = ProcessViewMode::get();
    viewMode.store(mode, std::memory_order_relaxed);
    master->setParameter(kViewModeId, mode * kViewModeScale);
}

void VelmoraMonoController::repairOldLimiter()
{
    for (const ParameterId id : kNewLimiterIds) master->setParameter(id, defaultValue(id));
    const double type = static_cast<double>(master->getPresetStore()->currentValue(kLimiterType));
    if (static_cast<std::int32_t>(type * 15.0 + 0.5) == 0)
        master->setParameter(kLimiterCeiling, defaultValue(kLimiterCeiling));
}

} // namespace velmora
