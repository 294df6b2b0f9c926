#include "tests/editor/x_server.h"

#include <csignal>
#include <cstdlib>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velmora::test {
namespace {

constexpr int kStartPatience = 20000; ///< milliseconds

[[noreturn]] void become(int displayPipe, const char* without)
{
    prctl(PR_SET_PDEATHSIG, SIGKILL);
    const int nowhere = open("/dev/null", O_RDWR);
    dup2(nowhere, STDOUT_FILENO);
    dup2(nowhere, STDERR_FILENO);
    const std::string number = std::to_string(displayPipe);
    execlp("Xvfb", "Xvfb", "-displayfd", number.c_str(), "-nolisten", "tcp", "-noreset", "-screen", "0",
           "2048x1024x24", without == nullptr ? nullptr : "-extension", without, static_cast<char*>(nullptr));
    _exit(127);
}

/// The number that the server writes once it takes connections, with a line end; "" if it doesn't.
std::string readDisplay(int pipe)
{
    std::string number;
    pollfd ready{pipe, POLLIN, 0};
    char digit = 0;
    while (poll(&ready, 1, kStartPatience) > 0 && read(pipe, &digit, 1) == 1) {
        if (digit == '\n') return number;
        number += digit;
    }
    return {};
}

} // namespace

XServer::XServer(const char* without)
{
    int ends[2];
    if (pipe(ends) != 0) return;
    process_ = fork();
    if (process_ == 0) {
        close(ends[0]);
        become(ends[1], without);
    }
    close(ends[1]);
    const std::string display = process_ > 0 ? readDisplay(ends[0]) : std::string();
    close(ends[0]);
    if (display.empty())
        kill();
    else
        setenv("DISPLAY", (":" + display).c_str(), 1);
}

XServer::~XServer()
{
    end(SIGTERM);
}

void XServer::pause()
{
    ::kill(process_, SIGSTOP);
}

void XServer::resume()
{
    ::kill(process_, SIGCONT);
}

void XServer::kill()
{
    end(SIGKILL);
}

void XServer::end(int signal)
{
    if (process_ <= 0) return;
    ::kill(process_, signal);
    waitpid(process_, nullptr, 0);
    process_ = -1;
    unsetenv("DISPLAY");
}

} // namespace velmora::test
