#include "presets/preset_store.h"

#include "host/master/master_controller.h"
#include "params/catalogue.h"
#include "presets/preset_library.h"

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

constexpr std::size_t kChunkSlots = 3; ///< slots that a written chunk holds

constexpr std::int32_t kPlainZoom = 100; // percent
constexpr std::int32_t kLowestZoom = 70;
constexpr std::int32_t kHighestZoom = 400;
constexpr double kZoomPerStoredUnit = 1000.0; // a stored setting lies in 0..1

std::atomic<bool> hintsOn{true};
std::atomic<int> liveStores{0};

std::int32_t readStoredZoom(QORMasterController& master)
{
    double stored = kPlainZoom / kZoomPerStoredUnit;
    master.readStoredSetting(kZoomCommand, &stored);
    const double percent = std::round(stored * kZoomPerStoredUnit); // stored in single precision
    if (!(percent <= kHighestZoom)) return kPlainZoom;
    return std::max(static_cast<std::int32_t>(percent), kLowestZoom);
}

double zoomFactor(std::int32_t percent)
{
    constexpr double kNoZoom = 0.01; // nothing sensible was stored
    constexpr double kSmallest = 0.5;
    const double factor = percent * 0.01;
    return factor <= kNoZoom ? 1.0 : std::max(factor, kSmallest);
}

} // namespace

PresetStore::PresetStore(QORMasterController& master, PresetLibrary& library, TickSource ticks)
    : master_(master),
      library_(library),
      ticks_(ticks),
      clipboardPreset_(makeFactoryPreset(0)),
      defaultPreset_(makeFactoryPreset(0))
{
    settings_.zoomPercent = readStoredZoom(master);
    if (liveStores.fetch_add(1) == 0) {
        double shown = 1.0;
        master.readStoredSetting(kHintsCommand, &shown);
        setHintsShown(shown >= 0.5);
    }
    bank_.reserve(kBankSlots);
    for (std::uint32_t slot = 0; slot < kBankSlots; ++slot) bank_.push_back(makeFactoryPreset(slot));
    sideA_.load(defaultPreset_);
    sideB_.load(defaultPreset_);
}

PresetStore::~PresetStore()
{
    master_.writeStoredSetting(kHintsCommand, hintsShown() ? 1.0 : 0.0);
    master_.writeStoredSetting(kZoomCommand, settings_.zoomPercent / kZoomPerStoredUnit);
    liveStores.fetch_sub(1);
}

std::size_t PresetStore::writeChunkBlock(std::span<std::uint8_t> out)
{
    if (out.size() < kBlockPrefixSize + blockSize(kChunkSlots)) return 0;
    bank_[0] = current().snapshot();
    ByteWriter writer(out);
    encodeBlockPrefix(writer);
    encodeBlock(writer, BlockKind::Bank, bank().first(kChunkSlots), settings_);
    return writer.size();
}

BlockLoad PresetStore::readChunkBlock(std::span<const std::uint8_t> block)
{
    if (block.size() < kBlockPrefixSize || !isBlockPrefix(block.first(kBlockPrefixSize)))
        return BlockLoad::Refused;

    const BulkScope bulk(master_);
    std::vector<Preset> loaded = bank_;
    BlockHeader header;
    const BlockStatus status = decodeBlock(block.subspan(kBlockPrefixSize), {.kind = BlockKind::Bank}, header,
                                           {.slots = loaded, .fresh = &defaultPreset_});
    if (status != BlockStatus::Good && status != BlockStatus::ValueOutOfRange) return BlockLoad::Refused;

    takeSettings(header.settings);
    if (status == BlockStatus::Good) {
        bank_.swap(loaded);
        const bool exists = header.currentSlot >= 0 && header.currentSlot < kBankSlots;
        const Preset& selected = bank_[exists ? static_cast<std::size_t>(header.currentSlot) : 0];
        sideA_.load(selected);
        sideB_.load(selected);
        position_.entry = -1;
    }
    sendSettings();
    return status == BlockStatus::Good ? BlockLoad::Loaded : BlockLoad::ValueFailure;
}

void PresetStore::takeSettings(const BlockSettings& settings)
{
    settings_.auxValue = settings.auxValue;
    if (settings.zoomPercent > 0) settings_.zoomPercent = settings.zoomPercent;
}

void PresetStore::sendSettings()
{
    master_.setParameter(kAuxValueCommand, settings_.auxValue);
    master_.setParameter(kZoomCommand, zoomFactor(settings_.zoomPercent));
}

void PresetStore::applyPreset(const Preset& preset)
{
    const BulkScope bulk(master_); // a change from elsewhere is noted behind it, and not passed over
    applying_.store(true, std::memory_order_relaxed);
    master_.setParameter(kBeginBulkCommand, 1.0);
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id)) master_.setParameter(id, preset.values[static_cast<std::size_t>(id)]);
    master_.setParameter(kEndBulkCommand, 1.0);
    applying_.store(false, std::memory_order_relaxed);
}

void PresetStore::onParameterChanged(std::int32_t id, double value)
{
    if (id < 0 || id >= kIdCount || std::isnan(value)) return;
    if (applying_.load(std::memory_order_relaxed)) return;

    CompareSide& active = side();
    bool differs = false;
    const double clamped = std::clamp(value, 0.0, 1.0);
    if (!undoing_.load(std::memory_order_relaxed)) {
        const double old = id < kHostParameterCount ? static_cast<double>(active.preset.value(id)) : -1.0;
        ring_.noteChange(id, old, clamped, ticks_(), active.preset);
    }
    if (id < kHostParameterCount) {
        const float entered = static_cast<float>(clamped);
        active.preset.setValue(id, entered);
        differs = entered != active.reference.value(id);
    }
    active.dirty.store(differs || !active.preset.hasValuesOf(active.reference), std::memory_order_relaxed);
}

PresetFileStatus PresetStore::loadPresetFile(const std::string& path, int swapMode, Preset* out) const
{
    return velmora::loadPresetFile(path, swapMode, out);
}

bool PresetStore::savePresetFile(const std::string& path) const
{
    return velmora::savePresetFile(path, current().snapshot(), settings_);
}

std::vector<std::uint8_t> PresetStore::writePresetBlock(const Preset& preset) const
{
    return velmora::writePresetBlock(preset, settings_);
}

std::string PresetStore::currentName() const
{
    const PresetName& name = current().name;
    return {name.begin(), std::find(name.begin(), name.end(), '\0')};
}

void PresetStore::setCurrentName(std::string_view name)
{
    const BulkScope bulk(master_); // a new step of undo copies the name
    side().preset.name = makePresetName(name);
}

std::string PresetStore::listEntryName(std::int32_t index) const
{
    const std::optional<ListedPreset> listed = library_.findEntry(kGroupApplication, 0, index);
    return listed ? listed->name : std::string();
}

bool PresetStore::hintsShown()
{
    return hintsOn.load(std::memory_order_relaxed);
}

void PresetStore::setHintsShown(bool shown)
{
    hintsOn.store(shown, std::memory_order_relaxed);
}

} // namespace velmora
