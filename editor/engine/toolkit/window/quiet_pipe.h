#pragma once

#include <csignal>

namespace velmora::Qorvane {

/// While it lives, a display server that has gone can't end the process: the signal of a write to a broken
/// pipe stays away from this thread. To be held around whatever sends, not around calls into a host.
class QuietPipe {
public:
    QuietPipe();
    QuietPipe(const QuietPipe&) = delete;
    QuietPipe& operator=(const QuietPipe&) = delete;
    ~QuietPipe();

private:
    sigset_t before_;
    bool wasPending_ = false;
};

} // namespace velmora::Qorvane
