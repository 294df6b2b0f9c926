#include "platform/whole_file.h"

#include <atomic>
#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {
namespace {

constexpr mode_t kFileMode = 0666; // narrowed by the user's mask
constexpr int kNameAttempts = 64;

class Descriptor {
public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor()
    {
        if (number_ >= 0) ::close(number_);
    }

    bool valid() const { return number_ >= 0; }
    int number() const { return number_; }
    /// A delayed write error shows here at the latest.
    bool close()
    {
        const bool closed = ::close(number_) == 0;
        number_ = -1;
        return closed;
    }

private:
    int number_;
};

bool writeAll(int file, std::span<const std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::write(file, bytes.data(), bytes.size());
        if (written < 0 && errno == EINTR) continue;
        if (written <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
    return true;
}

bool readAll(int file, std::span<std::uint8_t> bytes)
{
    while (!bytes.empty()) {
        const ssize_t count = ::read(file, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) return false;
        bytes = bytes.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

/// The file behind `path`: itself, or the end of a chain of links.
std::filesystem::path targetOf(const std::string& path)
{
    std::error_code error;
    std::filesystem::path target = std::filesystem::canonical(path, error);
    return error ? std::filesystem::path(path) : target;
}

bool isReplaceable(const std::filesystem::path& target)
{
    struct stat info {};
    if (::lstat(target.c_str(), &info) != 0) return errno == ENOENT;
    return S_ISREG(info.st_mode) && ::access(target.c_str(), W_OK) == 0;
}

/// Creates a file of a name that no one else uses, and sets `name` to it.
int createTemporary(const std::filesystem::path& folder, std::string* name)
{
    static std::atomic<unsigned> counter{0};
    for (int attempt = 0; attempt < kNameAttempts; ++attempt) {
        *name =
            (folder / (".velmora-" + std::to_string(::getpid()) + "-" + std::to_string(counter++) + ".tmp"))
                .string();
        const int file = ::open(name->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kFileMode);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;
}

} // namespace

std::optional<std::vector<std::uint8_t>> readWholeFile(const std::string& path, std::size_t limit,
                                                       FileAccess access)
{
    // A pipe under the name must not make the caller wait.
    const int mode =
        (access == FileAccess::ReadWrite ? O_RDWR : O_RDONLY) | O_CLOEXEC | O_NONBLOCK | O_NOCTTY;
    const Descriptor file(::open(path.c_str(), mode));
    struct stat info {};
    if (!file.valid() || ::fstat(file.number(), &info) != 0 || !S_ISREG(info.st_mode)) return std::nullopt;
    if (static_cast<std::uintmax_t>(info.st_size) > limit) return std::nullopt;

    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(info.st_size));
    if (!readAll(file.number(), bytes)) return std::nullopt;
    return bytes;
}

bool writeWholeFile(const std::string& path, std::span<const std::uint8_t> bytes)
{
    const std::filesystem::path target = targetOf(path);
    if (!target.has_filename() || !isReplaceable(target)) return false;

    std::string temporary;
    Descriptor file(createTemporary(target.parent_path(), &temporary));
    if (!file.valid()) return false;
    const bool written = writeAll(file.number(), bytes) && ::fsync(file.number()) == 0;
    if (file.close() && written && std::rename(temporary.c_str(), target.c_str()) == 0) return true;
    ::unlink(temporary.c_str());
    return false;
}

} // namespace velmora
