#pragma once

#include <string_view>

namespace velmora {

/// A line for a developer: goes to the standard error stream while a debugger traces the process, else
/// nowhere.
void debugOutput(std::string_view line);

} // namespace velmora
