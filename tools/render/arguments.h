#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace velmora::render {

/// What the command line asks for. Paths that weren't given are empty.
struct Arguments {
    std::filesystem::path input;
    std::filesystem::path output;
    std::filesystem::path sideChain;
    std::filesystem::path preset;
    std::filesystem::path automation;
    std::filesystem::path savePreset;
    std::filesystem::path plugin;
    std::string factory;               ///< name or id of a factory preset
    std::vector<std::string> settings; ///< "Name=text", in the order given
    int block = 512;                   ///< frames
    bool doublePrecision = false;
    double tail = 0.0; ///< seconds
    bool listParameters = false;
    bool csv = false;
};

/// Reads the command line. @return nothing if it only asked for help, which is printed then. Throws
/// UserError.
std::optional<Arguments> parseArguments(int argc, const char* const* argv);

} // namespace velmora::render
