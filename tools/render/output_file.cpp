#include "tools/render/output_file.h"

#include "tools/common/user_error.h"

#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>

namespace velmora::render {

namespace {

/// Permissions of a newly made file; the temporary one is the user's alone.
mode_t usualMode()
{
    const mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

} // namespace

OutputFile::OutputFile(const std::filesystem::path& path) : path_(path)
{
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored))
        throw UserError(path.string() + " is a folder; a file name is wanted");
    const std::filesystem::path folder = path.has_parent_path() ? path.parent_path() : ".";
    if (!std::filesystem::is_directory(folder, ignored))
        throw UserError("the folder of " + path.string() + " doesn't exist");
    std::string name = (folder / ".").string();
    name += path.filename().string() + ".XXXXXX";
    descriptor_ = mkstemp(name.data());
    if (descriptor_ < 0) throw UserError(path.string() + " can't be written: " + std::strerror(errno));
    temporary_ = name;
}

OutputFile::~OutputFile()
{
    if (descriptor_ >= 0) close(descriptor_);
    std::error_code ignored;
    if (!temporary_.empty()) std::filesystem::remove(temporary_, ignored);
}

void OutputFile::write(std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(descriptor_, bytes.data(), bytes.size());
        if (written < 0) throw UserError(path_.string() + " can't be written: " + std::strerror(errno));
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

void OutputFile::commit()
{
    fchmod(descriptor_, usualMode());
    if (rename(temporary_.c_str(), path_.c_str()) != 0)
        throw UserError(path_.string() + " can't be written: " + std::strerror(errno));
    temporary_.clear();
}

} // namespace velmora::render
