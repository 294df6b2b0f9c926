#include "params/module_presets.h"

#include "params/catalogue.h"
#include "params/module_presets/preset_tables.h"
#include "params/type_codes.h"

namespace velmora {

namespace {

constexpr ModulePreset kInit{"Init", {}, {}};

const ModulePreset& presetAt(std::int32_t code, int index) noexcept
{
    const auto presets = modulePresets(code);
    return index >= 0 && static_cast<std::size_t>(index) < presets.size() ? presets[index] : kInit;
}

} // namespace

std::span<const ModulePreset> modulePresets(std::int32_t code) noexcept
{
    switch (code) {
    case kDeesserCode:
        return deesserPresets();
    case kDehummerCode:
        return dehummerPresets();
    case kMarlowCode:
        return marlowPresets();
    default:
        break;
    }
    switch (moduleKind(code)) {
    case ModuleKind::Preamp:
        return preampPresets();
    case ModuleKind::Filters:
        return filtersPresets();
    case ModuleKind::Dynamics:
        return dynamicsPresets();
    case ModuleKind::Compressor:
        return compressorPresets();
    case ModuleKind::Equalizer:
        return equalizerPresets();
    case ModuleKind::Limiter:
        return limiterPresets();
    case ModuleKind::Output:
        return outputPresets();
    case ModuleKind::Unknown:
    case ModuleKind::None:
    case ModuleKind::Special:
        break;
    }
    return {};
}

std::string_view modulePresetName(std::int32_t code, int index) noexcept
{
    return presetAt(code, index).name;
}

void applyModulePreset(std::int32_t code, int index, std::span<double, kModuleWindowSize> window) noexcept
{
    for (std::size_t offset = 0; offset < window.size(); ++offset)
        window[offset] = moduleDefault(code, static_cast<ParameterId>(offset));
    const ModulePreset& preset = presetAt(code, index);
    for (std::size_t i = 0; i < preset.values.size(); ++i) window[preset.offsets[i]] = preset.values[i];
}

} // namespace velmora
