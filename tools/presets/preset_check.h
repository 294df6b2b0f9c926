#pragma once

#include <filesystem>
#include <iosfwd>
#include <vector>

namespace velmora::presets_tool {

/// Says of each file in one line what preset it holds, or why it is none. @return true if all are presets.
bool checkPresetFiles(std::ostream& out, const std::vector<std::filesystem::path>& files);

} // namespace velmora::presets_tool
