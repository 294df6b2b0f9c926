// The built plug-in under a host's two threads, with the audio thread's calls into the system watched.

#include "params/parameter_ids.h"
#include "params/type_codes.h"
#include "tests/host/realtime_watch.h"
#include "tests/support/plugin_host.h"

#include <gtest/gtest.h>

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <cstdio>
#include <limits>
#include <memory>
#include <mutex>
#include <random>
#include <thread>

namespace velmora::test {
namespace {

constexpr int kMostFrames = 512;
constexpr std::int32_t kPositions[] = {17, 49, 81, 113, 145, 193, 225, 257, 305};
constexpr std::int32_t kInsertTypes[] = {256, 304};
constexpr std::int32_t kFixedTypes[] = {16, 48, 80, 112, 144, 192, 224};

/// What an audio thread does to an instance, one block at a time.
class AudioThread {
public:
    AudioThread(host::LoadedPlugin& plugin, unsigned seed) : plugin_(plugin), random_(seed) {}

    void runBlock(int block)
    {
        fillInputs(block);
        const RealtimeWatch watch;
        automate(block);
        const std::int32_t frames = below(kMostFrames + 1);
        if (block % 2 == 0) {
            float* in[] = {narrow_.data(), narrow_.data(), narrowKey_.data(), nullptr};
            float* out[] = {narrowOut_.data(), narrowOut_.data()};
            plugin_.process(in, out, frames);
        } else {
            double* in[] = {wide_.data(), nullptr, wideKey_.data(), wideKey_.data()};
            double* out[] = {wideOut_.data(), wide_.data()};
            plugin_.process(in, out, frames);
        }
    }

    bool finite() const
    {
        bool good = true;
        for (const float y : narrowOut_) good = good && std::isfinite(y);
        for (const double y : wideOut_) good = good && std::isfinite(y);
        return good;
    }

private:
    // Loud, silent, denormal, broken.
    void fillInputs(int block)
    {
        constexpr double kLevels[] = {0.5, 0.0, 1e-310, 1.0, 1e-3};
        const double level = kLevels[block / 50 % 5];
        for (std::size_t i = 0; i < kMostFrames; ++i) {
            const double x = level * (static_cast<double>(below(2001)) * 0.001 - 1.0);
            wide_[i] = x;
            wideKey_[i] = -x;
            narrow_[i] = narrowKey_[i] = static_cast<float>(level == 1e-310 ? x * 1e270 : x);
        }
        if (block % 97 == 0) wide_[3] = narrow_[5] = std::numeric_limits<float>::quiet_NaN();
    }

    void automate(int block)
    {
        for (const std::int32_t insert : kInsertTypes)
            if (block % 8 == insert % 5) plugin_.setParameter(insert, codeValue());
        if (block % 16 == 3) plugin_.setParameter(kPositions[below(9)], static_cast<float>(below(9)) / 8.0f);
        if (block % 32 == 9)
            plugin_.setParameter(kFixedTypes[below(7)], static_cast<float>(below(6)) / 15.0f);
        for (int i = 0; i < 6; ++i)
            plugin_.setParameter(1 + below(kIdCount - 1), static_cast<float>(below(1001)) * 0.001f);
        plugin_.setParameter(0, block % 40 == 7 ? 0.0f : 1.0f);
    }

    float codeValue()
    {
        const auto types = moduleTypes();
        const auto i = static_cast<std::size_t>(below(static_cast<std::uint32_t>(types.size()) + 1));
        return static_cast<float>(i < types.size() ? types[i].code : 0) / 255.0f;
    }

    std::int32_t below(std::uint32_t end) { return static_cast<std::int32_t>(random_() % end); }

    host::LoadedPlugin& plugin_;
    std::mt19937 random_;
    std::array<float, kMostFrames> narrow_{}, narrowKey_{}, narrowOut_{};
    std::array<double, kMostFrames> wide_{}, wideKey_{}, wideOut_{};
};

// Each kind of call is seen, also where the plug-in's own calls lead.
TEST(Realtime, TheWatchSeesWhatItWatchesFor)
{
    const PluginOutput warm = runPlugin(*std::make_unique<RunningPlugin>(), Signal(64, 0.0));
    ForbiddenCounts before = RealtimeWatch::counts();
    std::mutex mutex;
    std::condition_variable condition;
    struct stat status;
    char text[8];
    FILE* const nowhere = std::fopen("/dev/null", "r+");
    ASSERT_NE(nowhere, nullptr);
    setvbuf(nowhere, nullptr, _IONBF, 0);
    {
        const RealtimeWatch watch;
        free(realloc(malloc(8), 64));

        void* const page = mmap(nullptr, 4096, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        munmap(mremap(page, 4096, 8192, MREMAP_MAYMOVE), 8192);

        std::unique_lock lock(mutex);
        condition.wait_for(lock, std::chrono::microseconds(1));
        lock.unlock();

        close(open("/dev/null", O_RDONLY));
        close(openat(AT_FDCWD, "/dev/null", O_RDONLY));
        stat("/dev/null", &status);
        std::fprintf(nowhere, "%d", 1);
        std::fputs("some", nowhere);
        std::fflush(nowhere);
        std::fgets(text, sizeof text, nowhere);

        socket(-1, 0, 0);
        shutdown(-1, SHUT_RDWR);

        usleep(1);
        std::this_thread::yield();
        poll(nullptr, 0, 0);

        syscall(SYS_getpid);
    }
    std::fclose(nowhere);
    ForbiddenCounts seen = RealtimeWatch::counts();
    for (std::size_t i = 0; i < seen.size(); ++i) seen[i] -= before[i];
    EXPECT_EQ(describe(seen),
              "allocate 1, free 1, reallocate 1, map 3, lock 3, file 9, socket 2, sleep 3, syscall 1");

    before = RealtimeWatch::counts();
    {
        const RealtimeWatch watch;
        const RunningPlugin plugin; // makes plenty of memory inside the library
    }
    seen = RealtimeWatch::counts();
    for (std::size_t i = 0; i < seen.size(); ++i) seen[i] -= before[i];
    std::printf("an instance's life: %s\n", describe(seen).c_str());
    EXPECT_GT(seen[static_cast<std::size_t>(ForbiddenCall::Allocate)], 100);
}

// A definition that the program keeps to itself would count the program's own calls only.
TEST(Realtime, TheWatchStandsInFrontOfTheLibraryForEveryObject)
{
    const auto home = [](const void* symbol) {
        Dl_info info{};
        dladdr(symbol, &info);
        return info.dli_fbase;
    };
    static const int ours = 0;
    for (const char* name : {"malloc", "free", "realloc", "mmap", "pthread_mutex_lock", "pthread_cond_wait",
                             "open", "write", "fprintf", "socket", "nanosleep", "poll", "syscall"})
        EXPECT_EQ(home(dlsym(RTLD_DEFAULT, name)), home(&ours)) << name;
}

TEST(Realtime, TheAudioThreadNeverCallsTheSystem)
{
    constexpr int kBlocks = 6000;
    RunningPlugin plugin({.sampleRate = 96000.0, .blockSize = kMostFrames});
    const std::vector<std::uint8_t> chunk = plugin.chunk();
    std::atomic<bool> running{true};
    std::atomic<int> loads{0};
    ForbiddenCounts counts{};
    bool finite = true;

    std::thread audio([&] {
        AudioThread road(plugin, 7);
        const ForbiddenCounts start = RealtimeWatch::counts();
        for (int block = 0; block < kBlocks; ++block) {
            road.runBlock(block);
            finite = finite && road.finite();
        }
        counts = RealtimeWatch::counts();
        for (std::size_t i = 0; i < counts.size(); ++i) counts[i] -= start[i];
        running = false;
    });
    // Meanwhile the main thread loads and stores state and turns knobs of its own.
    std::mt19937 random(3);
    while (running) {
        plugin.setChunk(chunk);
        ++loads;
        for (int i = 0; i < 20; ++i)
            plugin.setParameter(static_cast<std::int32_t>(random() % kHostParameterCount),
                                static_cast<float>(random() % 1001) * 0.001f);
        plugin.chunk();
        for (std::int32_t id = kFirstMeterId; id <= kLastModuleMeterId; ++id) plugin.parameter(id);
    }
    audio.join();
    std::printf("%d blocks beside %d chunk loads; forbidden calls: %s\n", kBlocks, loads.load(),
                describe(counts).c_str());
    EXPECT_EQ(describe(counts), "none");
    EXPECT_TRUE(finite);
    EXPECT_GT(loads, 3);
}

} // namespace
} // namespace velmora::test
