#include "params/module_presets/preset_tables.h"

namespace velmora {

namespace {

constexpr ModulePreset kInit{"Init", {}, {}};

// A fader has no settings of its own worth a name.
constexpr ModulePreset kPresets[]{
    {"Default", {}, {}}, kInit, kInit, kInit, kInit, kInit, kInit, kInit, kInit, kInit,
};

} // namespace

Presets outputPresets() noexcept
{
    return kPresets;
}

} // namespace velmora
