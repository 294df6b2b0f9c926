#pragma once

#include <filesystem>

namespace velmora::render {

/// Finds the plug-in: beside this program, in the build folder around it, then where hosts look. Throws
/// UserError that lists the places.
std::filesystem::path findPlugin();

} // namespace velmora::render
