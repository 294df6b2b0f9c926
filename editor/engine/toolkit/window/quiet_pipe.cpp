#include "editor/engine/toolkit/window/quiet_pipe.h"

#include <cerrno>
#include <ctime>

namespace velmora::Qorvane {
namespace {

sigset_t brokenPipe()
{
    sigset_t set;
    sigemptyset(&set);
    sigaddset(&set, SIGPIPE);
    return set;
}

bool isPending()
{
    sigset_t pending;
    sigemptyset(&pending);
    sigpending(&pending);
    return sigismember(&pending, SIGPIPE) == 1;
}

} // namespace

QuietPipe::QuietPipe() : wasPending_(isPending())
{
    const sigset_t set = brokenPipe();
    pthread_sigmask(SIG_BLOCK, &set, &before_);
}

QuietPipe::~QuietPipe()
{
    const int error = errno;
    const sigset_t set = brokenPipe();
    const timespec atOnce{};
    if (!wasPending_) {
        while (sigtimedwait(&set, nullptr, &atOnce) < 0 && errno == EINTR) {
        }
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
    errno = error;
}

} // namespace velmora::Qorvane
