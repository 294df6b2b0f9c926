#pragma once

#include <iosfwd>
#include <string>

namespace velmora::presets_tool {

/// Prints the factory presets: id, name, category, designer. An empty filter lets all through; letter case
/// aside. Throws UserError for a category or designer that doesn't exist.
void listFactoryPresets(std::ostream& out, const std::string& category, const std::string& designer);

/// Prints the files of the user's presets. Throws UserError if their folder can't be read.
void listUserPresets(std::ostream& out);

} // namespace velmora::presets_tool
