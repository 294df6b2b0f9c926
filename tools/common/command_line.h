#pragma once

#include <CLI/CLI.hpp>

namespace velmora {

/// Reads the command line. @return false if it only asked for help, which is printed then. Throws UserError
/// with one line.
bool parseCommandLine(CLI::App& app, int argc, const char* const* argv);

} // namespace velmora
