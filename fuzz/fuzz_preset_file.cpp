// The bytes of a ".qor" file. The first byte of an input chooses the swap mode.

#include "fuzz/require.h"
#include "params/catalogue.h"
#include "presets/preset_file.h"
#include "presets/preset_library.h"

#include <cstring>

namespace velmora::fuzz {
namespace {

bool sameBytes(const Preset& a, const Preset& b)
{
    return std::memcmp(&a, &b, sizeof(Preset)) == 0;
}

void requireValuesInRange(const Preset& preset)
{
    for (ParameterId id = 0; id < kHostParameterCount; ++id) {
        const float value = preset.values[static_cast<std::size_t>(id)];
        require(value >= 0.0f && value <= 1.0f, "a loaded value lies in 0..1");
    }
}

// What was read is written and read once more, through this program's own format.
void requireRoundTrip(const Preset& preset)
{
    Preset again = makeFactoryPreset(0);
    const PresetFileStatus status = readPresetBlock(writePresetBlock(preset), 0, &again);
    require(status == PresetFileStatus::Loaded, "what was loaded can be stored");
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id))
            require(again.values[static_cast<std::size_t>(id)] == preset.values[static_cast<std::size_t>(id)],
                    "stored values come back as they were");
}

void run(const std::uint8_t* data, std::size_t size)
{
    if (size == 0) return;
    static const Preset untouched = makeFactoryPreset(0);
    Preset preset = untouched;
    const std::vector<std::uint8_t> block(data + 1, data + size);
    const PresetFileStatus status = readPresetBlock(block, data[0] & 1, &preset);
    require(!presetFileStatusText(status).empty(), "every outcome has a text");
    if (status == PresetFileStatus::Loaded || status == PresetFileStatus::Incomplete) {
        requireValuesInRange(preset);
        requireRoundTrip(preset);
    } else {
        require(sameBytes(preset, untouched), "a refused file leaves the preset as it was");
    }
}

} // namespace
} // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velmora::fuzz::run(data, size);
    return 0;
}
