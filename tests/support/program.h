#pragma once

#include "tests/support/files.h"

#include <string>
#include <vector>

namespace velmora::test {

/// What a program did.
struct ProgramResult {
    int status = -1; ///< exit status; -1 if it was killed or couldn't be started
    std::string out;
    std::string err;
};

/// Runs a program to its end with nothing on its input.
ProgramResult runProgram(const std::string& path, const std::vector<std::string>& arguments);

} // namespace velmora::test
