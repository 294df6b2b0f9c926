#include "platform/clock.h"
#include "platform/shell.h"
#include "tests/support/files.h"

#include <cerrno>
#include <chrono>
#include <gtest/gtest.h>
#include <regex>
#include <thread>

#include <sys/wait.h>

namespace velmora::test {
namespace {

/// Stands in for a program of the desktop: leaves its arguments, one a line, in a file.
void installProgram(const TemporaryFolder& folder, const std::string& name)
{
    const std::string log = folder.file(name + ".log");
    std::ofstream(folder.file(name)) << "#!/bin/sh\nprintf '%s\\n' \"$@\" > '" << log << ".new'\n/bin/mv '"
                                     << log << ".new' '" << log << "'\n";
    std::filesystem::permissions(folder.file(name), std::filesystem::perms::owner_all);
}

std::string waitForLog(const TemporaryFolder& folder, const std::string& name)
{
    for (int i = 0; i < 1000 && !std::filesystem::exists(folder.file(name + ".log")); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
    const auto bytes = readBytes(folder.file(name + ".log"));
    return {bytes.begin(), bytes.end()};
}

TEST(Shell, HandsThePathOnUnchangedAndLeavesNoZombie)
{
    const TemporaryFolder folder;
    installProgram(folder, "xdg-open");
    const ScopedEnvironment path("PATH", folder.path().string());
    const std::string target = folder.file("a b; $(touch x) 'q' \"d\"");
    std::filesystem::create_directory(target);

    EXPECT_GT(openPath(target), kOpenLastFailure);
    EXPECT_EQ(waitForLog(folder, "xdg-open"), target + "\n");
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST(Shell, TellsWhyAPathDoesNotOpen)
{
    const TemporaryFolder folder;
    const ScopedEnvironment path("PATH", folder.path().string());
    EXPECT_EQ(openPath(folder.file("missing")), kOpenNoSuchFile);
    EXPECT_EQ(openPath("--help"), kOpenNoSuchFile);
    EXPECT_EQ(openPath(""), kOpenNoSuchFile);
    EXPECT_EQ(openPath(folder.path().string()), kOpenNoProgram);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1);
}

TEST(Shell, ShowsAMessage)
{
    const TemporaryFolder folder;
    installProgram(folder, "notify-send");
    const ScopedEnvironment path("PATH", folder.path().string());
    testing::internal::CaptureStderr();
    showMessage("Could not open", "-caption");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "-caption: Could not open\n");
    EXPECT_EQ(waitForLog(folder, "notify-send"), "--\n-caption\nCould not open\n");
}

TEST(Clock, CountsMillisecondsAndFormatsTheTime)
{
    const std::uint32_t start = tickMilliseconds();
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    const std::uint32_t elapsed = tickMilliseconds() - start;
    EXPECT_GE(elapsed, 19u);
    EXPECT_LT(elapsed, 20000u);
    EXPECT_TRUE(std::regex_match(localTimeText("%H:%M:%S"), std::regex("[0-2][0-9]:[0-5][0-9]:[0-6][0-9]")));
}

} // namespace
} // namespace velmora::test
