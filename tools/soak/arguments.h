#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmora::soak {

/// What the command line asks for. Paths that weren't given are empty.
struct Arguments {
    std::filesystem::path plugin;
    std::filesystem::path reference;
    std::vector<std::string> modules;
    double seconds = 10.0; ///< of audio in a run
    std::uint64_t seed = 1;
    int runs = 1;
    bool trace = false;
};

/// Reads the command line. @return nothing if it only asked for help, which is printed then. Throws
/// UserError.
std::optional<Arguments> parseArguments(int argc, const char* const* argv);

} // namespace velmora::soak
