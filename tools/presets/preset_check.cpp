#include "tools/presets/preset_check.h"

#include "params/catalogue.h"
#include "presets/list_text.h"
#include "presets/preset_file.h"
#include "presets/preset_library.h"

#include <ostream>
#include <string>

namespace velmora::presets_tool {

namespace {

int changedValues(const Preset& preset)
{
    int changed = 0;
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id) && preset.values[static_cast<unsigned>(id)] != static_cast<float>(defaultValue(id)))
            ++changed;
    return changed;
}

} // namespace

bool checkPresetFiles(std::ostream& out, const std::vector<std::filesystem::path>& files)
{
    bool allGood = true;
    for (const std::filesystem::path& file : files) {
        Preset preset = makeFactoryPreset(0);
        const PresetFileStatus status = loadPresetFile(file.string(), 0, &preset);
        out << file.string() << ": ";
        if (status == PresetFileStatus::Loaded)
            out << '"' << shownText(preset.title(), kPresetNameSize) << "\", " << changedValues(preset)
                << " values other than the defaults\n";
        else
            out << "no preset: " << presetFileStatusText(status) << '\n';
        allGood = allGood && status == PresetFileStatus::Loaded;
    }
    return allGood;
}

} // namespace velmora::presets_tool
