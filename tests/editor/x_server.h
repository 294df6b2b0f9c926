#pragma once

#include <sys/types.h>

namespace velmora::test {

/// A display server of the test's own, without a screen one could see. `DISPLAY` names it as long as it
/// lives.
class XServer {
public:
    /// @param without an extension that it shall not have
    explicit XServer(const char* without = nullptr);
    XServer(const XServer&) = delete;
    XServer& operator=(const XServer&) = delete;
    ~XServer();

    bool isRunning() const { return process_ > 0; }
    /// Stops to answer, until `resume`.
    void pause();
    void resume();
    /// Ends the server as a crash would.
    void kill();

private:
    void end(int signal);

    pid_t process_ = -1;
};

} // namespace velmora::test
