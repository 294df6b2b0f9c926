#pragma once

#include <array>
#include <string>

/// Watches a thread for calls that the audio thread must not make. This program's own definitions of the C
/// library's functions stand in front of the library's for every shared object that is loaded, so a call from
/// inside the plug-in is seen as well. Nothing is refused: a call is counted and passed on.
namespace velmora::test {

enum class ForbiddenCall {
    Allocate, ///< malloc, calloc, aligned_alloc and their like; what throws allocates first
    Free,
    Reallocate,
    Map,    ///< mmap, munmap, mprotect, madvise, mremap, sbrk
    Lock,   ///< mutexes, spin and read-write locks, condition variables, semaphores, threads
    File,   ///< open, read, write, stat, streams, printed text
    Socket, ///< socket, connect, bind, accept, send, receive
    Sleep,  ///< nanosleep and its like, poll, select, epoll, yield
    Raw,    ///< syscall()
    Count
};

/// How often a watched thread made each kind of call.
using ForbiddenCounts = std::array<int, static_cast<std::size_t>(ForbiddenCall::Count)>;

/// From construction to destruction calls of this thread are counted.
class RealtimeWatch {
public:
    RealtimeWatch();
    ~RealtimeWatch();
    RealtimeWatch(const RealtimeWatch&) = delete;
    RealtimeWatch& operator=(const RealtimeWatch&) = delete;

    /// What this thread did under any watch since its start.
    static ForbiddenCounts counts();
};

/// "malloc 3, lock 1", or "none".
std::string describe(const ForbiddenCounts& counts);

} // namespace velmora::test
