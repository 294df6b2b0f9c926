#pragma once

#include <filesystem>
#include <iosfwd>

namespace velmora::presets_tool {

/// Writes every factory preset into a folder, which is made if need be, as "NNN Name.qor" with its
/// three-digit id first. Throws UserError if the folder can't be made or a file can't be written.
void exportFactoryPresets(std::ostream& out, const std::filesystem::path& folder);

} // namespace velmora::presets_tool
