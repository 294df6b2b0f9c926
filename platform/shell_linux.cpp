#include "platform/shell.h"

#include <cerrno>
#include <cstdio>
#include <vector>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora {
namespace {

/// Runs in the grandchild: nothing here allocates, for the process may be a copy of a threaded host.
[[noreturn]] void becomeProgram(char* const* arguments, int report)
{
    ::setsid();
    ::close_range(3, ~0U, CLOSE_RANGE_CLOEXEC); // the host's files are no business of the program
    ::execvp(arguments[0], arguments);
    const int reason = errno;
    [[maybe_unused]] const ssize_t written = ::write(report, &reason, sizeof reason);
    ::_exit(127);
}

/// Starts a program that nobody waits for: a child between the two ends at once, so that the system adopts
/// and reaps the program. @return 0, or the `errno` that kept it from starting.
int startProgram(const std::vector<std::string>& words)
{
    std::vector<char*> arguments;
    for (const std::string& word : words) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);

    int report[2]; // closes by itself when the program starts, else carries the reason
    if (::pipe2(report, O_CLOEXEC) != 0) return errno;
    const pid_t child = ::fork();
    if (child == 0) {
        const pid_t program = ::fork();
        if (program == 0) becomeProgram(arguments.data(), report[1]);
        if (program < 0) {
            const int forkError = errno;
            [[maybe_unused]] const ssize_t written = ::write(report[1], &forkError, sizeof forkError);
        }
        ::_exit(0);
    }
    int reason = child < 0 ? errno : 0;
    ::close(report[1]);
    if (child > 0) {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) {
        }
        ssize_t count;
        do count = ::read(report[0], &reason, sizeof reason);
        while (count < 0 && errno == EINTR);
        if (count != sizeof reason) reason = 0;
    }
    ::close(report[0]);
    return reason;
}

} // namespace

int openPath(const std::string& path)
{
    if (path.empty() || path[0] == '-') return kOpenNoSuchFile; // would be read as an option
    if (path[0] == '/' && ::access(path.c_str(), F_OK) != 0) return kOpenNoSuchFile;
    switch (startProgram({"xdg-open", path})) {
    case 0:
        return kOpened;
    case ENOENT:
        return kOpenNoProgram;
    default:
        return kOpenFailed;
    }
}

void showMessage(const std::string& text, const std::string& caption)
{
    const std::string title = caption.empty() ? "QOR Velmora" : caption;
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
    startProgram({"notify-send", "--", title, text});
}

} // namespace velmora
