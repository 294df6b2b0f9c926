#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace velmora::test {

/// A folder of its own for a test, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::string file(const std::string& name) const { return (path_ / name).string(); }
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// What a program did.
struct ProgramResult {
    int status = -1; ///< exit status; -1 if it was killed or couldn't be started
    std::string out;
    std::string err;
};

/// Runs a program to its end with nothing on its input.
ProgramResult runProgram(const std::string& path, const std::vector<std::string>& arguments);

} // namespace velmora::test
