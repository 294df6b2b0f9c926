#pragma once

#include "presets/preset.h"

#include <iosfwd>

namespace velmora::presets_tool {

/// Prints the rack of a preset from position A to I, each running module with its settings as texts.
void printPresetSheet(std::ostream& out, const Preset& preset);

} // namespace velmora::presets_tool
