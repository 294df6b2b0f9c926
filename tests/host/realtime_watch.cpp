#include "tests/host/realtime_watch.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <semaphore.h>
#include <sys/mman.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <ctime>

namespace velmora::test {
namespace {

thread_local int watches = 0;
thread_local ForbiddenCounts calls{};

constexpr std::array<const char*, static_cast<std::size_t>(ForbiddenCall::Count)> kNames{
    "allocate", "free", "reallocate", "map", "lock", "file", "socket", "sleep", "syscall"};

void note(ForbiddenCall call)
{
    if (watches > 0) ++calls[static_cast<std::size_t>(call)];
}

} // namespace

RealtimeWatch::RealtimeWatch()
{
    ++watches;
}

RealtimeWatch::~RealtimeWatch()
{
    --watches;
}

ForbiddenCounts RealtimeWatch::counts()
{
    return calls;
}

std::string describe(const ForbiddenCounts& counts)
{
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i)
        if (counts[i] > 0)
            text.append(text.empty() ? "" : ", ")
                .append(kNames[i])
                .append(" ")
                .append(std::to_string(counts[i]));
    return text.empty() ? "none" : text;
}

} // namespace velmora::test

using velmora::test::ForbiddenCall;
using velmora::test::note;

// The memory manager has other names for those who stand in front of it; a look-up would need memory itself.
extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
void __libc_free(void*);

void* malloc(std::size_t size)
{
    note(ForbiddenCall::Allocate);
    return __libc_malloc(size);
}
void* calloc(std::size_t count, std::size_t size)
{
    note(ForbiddenCall::Allocate);
    return __libc_calloc(count, size);
}
void* realloc(void* memory, std::size_t size)
{
    note(ForbiddenCall::Reallocate);
    return __libc_realloc(memory, size);
}
void* memalign(std::size_t alignment, std::size_t size)
{
    note(ForbiddenCall::Allocate);
    return __libc_memalign(alignment, size);
}
void* aligned_alloc(std::size_t alignment, std::size_t size)
{
    note(ForbiddenCall::Allocate);
    return __libc_memalign(alignment, size);
}
int posix_memalign(void** out, std::size_t alignment, std::size_t size)
{
    note(ForbiddenCall::Allocate);
    *out = __libc_memalign(alignment, size);
    return *out != nullptr ? 0 : ENOMEM;
}
void free(void* memory)
{
    note(ForbiddenCall::Free);
    __libc_free(memory);
}

// All others are passed on to whoever would have been called.
#define PASS_ON(kind, result, name, parameters, arguments)                                                   \
    result name parameters                                                                                   \
    {                                                                                                        \
        note(ForbiddenCall::kind);                                                                           \
        using Function = result(*) parameters;                                                               \
        static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, #name));                        \
        return next arguments;                                                                               \
    }

PASS_ON(Map, void*, mmap, (void* at, std::size_t size, int protection, int flags, int file, off_t offset),
        (at, size, protection, flags, file, offset))
PASS_ON(Map, int, munmap, (void* at, std::size_t size), (at, size))
PASS_ON(Map, int, mprotect, (void* at, std::size_t size, int protection), (at, size, protection))
PASS_ON(Map, int, madvise, (void* at, std::size_t size, int advice), (at, size, advice))

PASS_ON(Lock, int, pthread_mutex_lock, (pthread_mutex_t * mutex), (mutex))
PASS_ON(Lock, int, pthread_mutex_trylock, (pthread_mutex_t * mutex), (mutex))
PASS_ON(Lock, int, pthread_mutex_timedlock, (pthread_mutex_t * mutex, const timespec* until), (mutex, until))
PASS_ON(Lock, int, pthread_mutex_unlock, (pthread_mutex_t * mutex), (mutex))
PASS_ON(Lock, int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t* mutex),
        (condition, mutex))
PASS_ON(Lock, int, pthread_cond_signal, (pthread_cond_t * condition), (condition))
PASS_ON(Lock, int, pthread_cond_broadcast, (pthread_cond_t * condition), (condition))
PASS_ON(Lock, int, pthread_once, (pthread_once_t * once, void (*routine)()), (once, routine))
PASS_ON(Lock, int, pthread_join, (pthread_t thread, void** result), (thread, result))
PASS_ON(Lock, int, sem_wait, (sem_t * semaphore), (semaphore))
PASS_ON(Lock, int, sem_post, (sem_t * semaphore), (semaphore))

PASS_ON(File, int, close, (int file), (file))
PASS_ON(File, ssize_t, read, (int file, void* to, std::size_t size), (file, to, size))
PASS_ON(File, ssize_t, write, (int file, const void* from, std::size_t size), (file, from, size))
PASS_ON(File, int, fsync, (int file), (file))
PASS_ON(File, FILE*, fopen, (const char* path, const char* mode), (path, mode))
PASS_ON(File, int, fclose, (FILE * file), (file))
PASS_ON(File, std::size_t, fwrite, (const void* from, std::size_t size, std::size_t count, FILE* file),
        (from, size, count, file))

PASS_ON(Socket, int, socket, (int domain, int type, int protocol), (domain, type, protocol))
PASS_ON(Socket, int, connect, (int file, const sockaddr* address, socklen_t size), (file, address, size))
PASS_ON(Socket, ssize_t, send, (int file, const void* from, std::size_t size, int flags),
        (file, from, size, flags))
PASS_ON(Socket, ssize_t, recv, (int file, void* to, std::size_t size, int flags), (file, to, size, flags))
PASS_ON(Socket, ssize_t, sendmsg, (int file, const msghdr* message, int flags), (file, message, flags))
PASS_ON(Socket, ssize_t, recvmsg, (int file, msghdr* message, int flags), (file, message, flags))

PASS_ON(Sleep, int, nanosleep, (const timespec* time, timespec* left), (time, left))
PASS_ON(Sleep, int, clock_nanosleep, (clockid_t clock, int flags, const timespec* time, timespec* left),
        (clock, flags, time, left))
PASS_ON(Sleep, int, usleep, (useconds_t time), (time))
PASS_ON(Sleep, unsigned, sleep, (unsigned time), (time))
PASS_ON(Sleep, int, sched_yield, (), ())
PASS_ON(Sleep, int, poll, (pollfd * files, nfds_t count, int timeout), (files, count, timeout))
PASS_ON(Sleep, int, select, (int count, fd_set* in, fd_set* out, fd_set* error, timeval* timeout),
        (count, in, out, error, timeout))

#undef PASS_ON

int open(const char* path, int flags, ...)
{
    note(ForbiddenCall::File);
    va_list more;
    va_start(more, flags);
    const auto mode = va_arg(more, mode_t); // reads rubbish without O_CREAT, which nobody looks at then
    va_end(more);
    return openat(AT_FDCWD, path, flags, mode);
}

long syscall(long number, ...)
{
    note(ForbiddenCall::Raw);
    using Function = long (*)(long, ...);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "syscall"));
    va_list more;
    va_start(more, number);
    long arguments[6];
    for (long& argument : arguments) argument = va_arg(more, long);
    va_end(more);
    return next(number, arguments[0], arguments[1], arguments[2], arguments[3], arguments[4], arguments[5]);
}
}
