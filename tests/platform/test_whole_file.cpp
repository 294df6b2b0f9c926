#include "platform/whole_file.h"
#include "tests/support/files.h"

#include <csignal>
#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>

namespace velmora::test {
namespace {

using Bytes = std::vector<std::uint8_t>;

/// As on a full disk: no file may grow beyond `bytes` until the end of the scope.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes) : oldHandler_(std::signal(SIGXFSZ, SIG_IGN))
    {
        ::getrlimit(RLIMIT_FSIZE, &old_);
        const rlimit limit{bytes, old_.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;
    ~FileSizeLimit()
    {
        ::setrlimit(RLIMIT_FSIZE, &old_);
        std::signal(SIGXFSZ, oldHandler_);
    }

private:
    rlimit old_{};
    void (*oldHandler_)(int);
};

TEST(WholeFile, FailedWriteLeavesTheOldFileAndNoOther)
{
    const TemporaryFolder folder;
    const std::string path = folder.file("Good one.qor");
    const Bytes old(100, 1), wanted(200, 2);
    ASSERT_TRUE(writeWholeFile(path, old));

    bool written = true;
    {
        const FileSizeLimit fullDisk(150);
        written = writeWholeFile(path, wanted);
    }
    EXPECT_FALSE(written);
    EXPECT_EQ(readBytes(path), old);
    EXPECT_EQ(entryCount(folder), 1u);

    EXPECT_TRUE(writeWholeFile(path, wanted));
    EXPECT_EQ(readBytes(path), wanted);
    EXPECT_EQ(entryCount(folder), 1u);
}

TEST(WholeFile, WritesThroughLinksAndRefusesWhatIsNoFile)
{
    const TemporaryFolder folder;
    const Bytes old{1}, wanted{2, 3};
    writeBytes(folder.file("target"), old);
    std::filesystem::create_symlink("target", folder.file("link"));
    std::filesystem::create_symlink("nowhere", folder.file("dangling"));
    std::filesystem::create_directory(folder.file("folder"));
    ASSERT_EQ(::mkfifo(folder.file("pipe").c_str(), 0600), 0);

    EXPECT_TRUE(writeWholeFile(folder.file("link"), wanted));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link")));
    EXPECT_EQ(readBytes(folder.file("target")), wanted);

    for (const char* name : {"dangling", "folder", "pipe", "missing/file", "", "target/file"}) {
        EXPECT_FALSE(writeWholeFile(folder.file(name), wanted)) << name;
        EXPECT_FALSE(readWholeFile(folder.file(name), 100, FileAccess::ReadWrite)) << name;
    }
    EXPECT_EQ(entryCount(folder), 5u);
    EXPECT_FALSE(writeWholeFile("", wanted));
}

TEST(WholeFile, ReadsUpToTheLimit)
{
    const TemporaryFolder folder;
    const Bytes content(10, 9);
    writeBytes(folder.file("f"), content);
    EXPECT_EQ(readWholeFile(folder.file("f"), 10), content);
    EXPECT_FALSE(readWholeFile(folder.file("f"), 9));
}

} // namespace
} // namespace velmora::test
