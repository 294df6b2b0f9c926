#include "tests/host/realtime_watch.h"

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <pthread.h>
#include <sched.h>
#include <semaphore.h>
#include <sys/epoll.h>
#include <sys/mman.h>
#include <sys/select.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/uio.h>
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
PASS_ON(Map, void*, sbrk, (std::intptr_t increment), (increment))

PASS_ON(Lock, int, pthread_mutex_lock, (pthread_mutex_t * mutex), (mutex))
PASS_ON(Lock, int, pthread_mutex_trylock, (pthread_mutex_t * mutex), (mutex))
PASS_ON(Lock, int, pthread_mutex_timedlock, (pthread_mutex_t * mutex, const timespec* until), (mutex, until))
PASS_ON(Lock, int, pthread_mutex_clocklock, (pthread_mutex_t * mutex, clockid_t clock, const timespec* until),
        (mutex, clock, until))
PASS_ON(Lock, int, pthread_mutex_unlock, (pthread_mutex_t * mutex), (mutex))
PASS_ON(Lock, int, pthread_spin_lock, (pthread_spinlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_spin_trylock, (pthread_spinlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_spin_unlock, (pthread_spinlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_rwlock_rdlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_rwlock_wrlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_rwlock_tryrdlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_rwlock_trywrlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_rwlock_timedrdlock, (pthread_rwlock_t * lock, const timespec* until),
        (lock, until))
PASS_ON(Lock, int, pthread_rwlock_timedwrlock, (pthread_rwlock_t * lock, const timespec* until),
        (lock, until))
PASS_ON(Lock, int, pthread_rwlock_unlock, (pthread_rwlock_t * lock), (lock))
PASS_ON(Lock, int, pthread_cond_wait, (pthread_cond_t * condition, pthread_mutex_t* mutex),
        (condition, mutex))
PASS_ON(Lock, int, pthread_cond_timedwait,
        (pthread_cond_t * condition, pthread_mutex_t* mutex, const timespec* until),
        (condition, mutex, until))
PASS_ON(Lock, int, pthread_cond_clockwait,
        (pthread_cond_t * condition, pthread_mutex_t* mutex, clockid_t clock, const timespec* until),
        (condition, mutex, clock, until))
PASS_ON(Lock, int, pthread_cond_signal, (pthread_cond_t * condition), (condition))
PASS_ON(Lock, int, pthread_cond_broadcast, (pthread_cond_t * condition), (condition))
PASS_ON(Lock, int, pthread_once, (pthread_once_t * once, void (*routine)()), (once, routine))
PASS_ON(Lock, int, pthread_create,
        (pthread_t * thread, const pthread_attr_t* attributes, void* (*routine)(void*), void* argument),
        (thread, attributes, routine, argument))
PASS_ON(Lock, int, pthread_join, (pthread_t thread, void** result), (thread, result))
PASS_ON(Lock, int, sem_wait, (sem_t * semaphore), (semaphore))
PASS_ON(Lock, int, sem_trywait, (sem_t * semaphore), (semaphore))
PASS_ON(Lock, int, sem_timedwait, (sem_t * semaphore, const timespec* until), (semaphore, until))
PASS_ON(Lock, int, sem_post, (sem_t * semaphore), (semaphore))

PASS_ON(File, int, close, (int file), (file))
PASS_ON(File, ssize_t, read, (int file, void* to, std::size_t size), (file, to, size))
PASS_ON(File, ssize_t, write, (int file, const void* from, std::size_t size), (file, from, size))
PASS_ON(File, ssize_t, pread, (int file, void* to, std::size_t size, off_t offset), (file, to, size, offset))
PASS_ON(File, ssize_t, pwrite, (int file, const void* from, std::size_t size, off_t offset),
        (file, from, size, offset))
PASS_ON(File, off_t, lseek, (int file, off_t offset, int whence), (file, offset, whence))
PASS_ON(File, ssize_t, writev, (int file, const iovec* pieces, int count), (file, pieces, count))
PASS_ON(File, off64_t, lseek64, (int file, off64_t offset, int whence), (file, offset, whence))
PASS_ON(File, int, fstat64, (int file, struct stat64* status), (file, status))
PASS_ON(File, FILE*, fopen64, (const char* path, const char* mode), (path, mode))
PASS_ON(File, int, creat, (const char* path, mode_t mode), (path, mode))
PASS_ON(File, int, stat, (const char* path, struct stat* status), (path, status))
PASS_ON(File, int, lstat, (const char* path, struct stat* status), (path, status))
PASS_ON(File, int, fstat, (int file, struct stat* status), (file, status))
PASS_ON(File, int, access, (const char* path, int mode), (path, mode))
PASS_ON(File, int, fsync, (int file), (file))
PASS_ON(File, FILE*, fopen, (const char* path, const char* mode), (path, mode))
PASS_ON(File, int, fclose, (FILE * file), (file))
PASS_ON(File, int, fflush, (FILE * file), (file))
PASS_ON(File, std::size_t, fread, (void* to, std::size_t size, std::size_t count, FILE* file),
        (to, size, count, file))
PASS_ON(File, char*, fgets, (char* to, int size, FILE* file), (to, size, file))
PASS_ON(File, int, fgetc, (FILE * file), (file))
PASS_ON(File, int, puts, (const char* text), (text))
PASS_ON(File, int, fputs, (const char* text, FILE* file), (text, file))
PASS_ON(File, int, putchar, (int character), (character))
PASS_ON(File, int, fputc, (int character, FILE* file), (character, file))
PASS_ON(File, int, putc, (int character, FILE* file), (character, file))
PASS_ON(File, int, vprintf, (const char* format, va_list values), (format, values))
PASS_ON(File, int, vfprintf, (FILE * file, const char* format, va_list values), (file, format, values))
PASS_ON(File, int, __vprintf_chk, (int flag, const char* format, va_list values), (flag, format, values))
PASS_ON(File, int, __vfprintf_chk, (FILE * file, int flag, const char* format, va_list values),
        (file, flag, format, values))
PASS_ON(File, std::size_t, fwrite, (const void* from, std::size_t size, std::size_t count, FILE* file),
        (from, size, count, file))

PASS_ON(Socket, int, socket, (int domain, int type, int protocol), (domain, type, protocol))
PASS_ON(Socket, int, connect, (int file, const sockaddr* address, socklen_t size), (file, address, size))
PASS_ON(Socket, ssize_t, send, (int file, const void* from, std::size_t size, int flags),
        (file, from, size, flags))
PASS_ON(Socket, ssize_t, recv, (int file, void* to, std::size_t size, int flags), (file, to, size, flags))
PASS_ON(Socket, ssize_t, sendmsg, (int file, const msghdr* message, int flags), (file, message, flags))
PASS_ON(Socket, ssize_t, recvmsg, (int file, msghdr* message, int flags), (file, message, flags))

PASS_ON(Socket, ssize_t, sendto,
        (int file, const void* from, std::size_t size, int flags, const sockaddr* address, socklen_t length),
        (file, from, size, flags, address, length))
PASS_ON(Socket, ssize_t, recvfrom,
        (int file, void* to, std::size_t size, int flags, sockaddr* address, socklen_t* length),
        (file, to, size, flags, address, length))
PASS_ON(Socket, int, shutdown, (int file, int how), (file, how))
PASS_ON(Socket, int, bind, (int file, const sockaddr* address, socklen_t size), (file, address, size))
PASS_ON(Socket, int, accept, (int file, sockaddr* address, socklen_t* size), (file, address, size))

PASS_ON(Sleep, int, nanosleep, (const timespec* time, timespec* left), (time, left))
PASS_ON(Sleep, int, clock_nanosleep, (clockid_t clock, int flags, const timespec* time, timespec* left),
        (clock, flags, time, left))
PASS_ON(Sleep, int, usleep, (useconds_t time), (time))
PASS_ON(Sleep, unsigned, sleep, (unsigned time), (time))
PASS_ON(Sleep, int, sched_yield, (), ())
PASS_ON(Sleep, int, poll, (pollfd * files, nfds_t count, int timeout), (files, count, timeout))
PASS_ON(Sleep, int, select, (int count, fd_set* in, fd_set* out, fd_set* error, timeval* timeout),
        (count, in, out, error, timeout))

PASS_ON(Sleep, int, ppoll, (pollfd * files, nfds_t count, const timespec* timeout, const sigset_t* signals),
        (files, count, timeout, signals))
PASS_ON(Sleep, int, pselect,
        (int count, fd_set* in, fd_set* out, fd_set* error, const timespec* timeout, const sigset_t* signals),
        (count, in, out, error, timeout, signals))
PASS_ON(Sleep, int, epoll_wait, (int file, epoll_event* events, int count, int timeout),
        (file, events, count, timeout))

#undef PASS_ON

// What takes any number of values goes on to the form that takes a list of them, which counts.
#define PASS_LIST_ON(name, parameters, last, list_form, arguments)                                           \
    int name parameters                                                                                      \
    {                                                                                                        \
        va_list values;                                                                                      \
        va_start(values, last);                                                                              \
        const int result = list_form arguments;                                                              \
        va_end(values);                                                                                      \
        return result;                                                                                       \
    }

PASS_LIST_ON(printf, (const char* format, ...), format, vprintf, (format, values))
PASS_LIST_ON(fprintf, (FILE * file, const char* format, ...), format, vfprintf, (file, format, values))
PASS_LIST_ON(__printf_chk, (int flag, const char* format, ...), format, __vprintf_chk, (flag, format, values))
PASS_LIST_ON(__fprintf_chk, (FILE * file, int flag, const char* format, ...), format, __vfprintf_chk,
             (file, flag, format, values))

#undef PASS_LIST_ON

// The mode is rubbish if none was given, which nobody looks at then.
#define PASS_OPEN_ON(name, parameters, arguments)                                                            \
    int name parameters                                                                                      \
    {                                                                                                        \
        note(ForbiddenCall::File);                                                                           \
        using Function = int(*) parameters;                                                                  \
        static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, #name));                        \
        va_list more;                                                                                        \
        va_start(more, flags);                                                                               \
        const auto mode = va_arg(more, mode_t);                                                              \
        va_end(more);                                                                                        \
        return next arguments;                                                                               \
    }

PASS_OPEN_ON(open, (const char* path, int flags, ...), (path, flags, mode))
PASS_OPEN_ON(open64, (const char* path, int flags, ...), (path, flags, mode))
PASS_OPEN_ON(openat, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))
PASS_OPEN_ON(openat64, (int folder, const char* path, int flags, ...), (folder, path, flags, mode))

#undef PASS_OPEN_ON

// The new place is rubbish if none was given, likewise.
void* mremap(void* at, std::size_t size, std::size_t newSize, int flags, ...)
{
    note(ForbiddenCall::Map);
    using Function = void* (*)(void*, std::size_t, std::size_t, int, ...);
    static const auto next = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "mremap"));
    va_list more;
    va_start(more, flags);
    void* const place = va_arg(more, void*);
    va_end(more);
    return next(at, size, newSize, flags, place);
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
