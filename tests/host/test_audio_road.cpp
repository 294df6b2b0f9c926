// What a host does on its audio thread: automation of every id, insert swaps, blocks of any length. None of
// it may reach the memory manager.

#include "host/vst24/vst24_effect_wrapper.h"
#include "tests/host/recording_host.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>
#include <new>
#include <random>
#include <utility>

namespace {

thread_local bool watching = false;
thread_local int memoryCalls = 0;

void note()
{
    if (watching) ++memoryCalls;
}

void* allocate(std::size_t size, std::size_t alignment)
{
    note();
    const std::size_t whole = (size + alignment - 1) / alignment * alignment;
    if (void* memory = std::aligned_alloc(alignment, whole == 0 ? alignment : whole)) return memory;
    throw std::bad_alloc();
}

void release(void* memory)
{
    note();
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size)
{
    return allocate(size, __STDCPP_DEFAULT_NEW_ALIGNMENT__);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept
{
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept
{
    release(memory);
}
void operator delete(void* memory, std::align_val_t) noexcept
{
    release(memory);
}
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept
{
    release(memory);
}

namespace velmora::vst24::test {
namespace {

TEST(AudioRoad, NeverReachesTheMemoryManager)
{
    PrivateHome home;
    RecordingHost host;
    QORVST24EffectWrapper effect(&RecordingHost::callback);
    AEffect* record = effect.getAeffect();
    record->dispatcher(record, effSetSampleRate, 0, 0, nullptr, 96000.0f);

    std::array<float, 300> in{}, left{}, right{};
    std::array<double, 300> wideIn{}, wideLeft{}, wideRight{};
    float* ins[4] = {in.data(), in.data(), in.data(), in.data()};
    float* outs[2] = {left.data(), right.data()};
    double* wideIns[4] = {wideIn.data(), wideIn.data(), wideIn.data(), wideIn.data()};
    double* wideOuts[2] = {wideLeft.data(), wideRight.data()};
    std::mt19937 random(5);
    const auto below = [&random](std::uint32_t end) { return static_cast<std::int32_t>(random() % end); };
    for (std::size_t i = 0; i < in.size(); ++i)
        wideIn[i] = in[i] = static_cast<float>(below(2001)) * 0.001f - 1.0f;

    watching = true;
    char* volatile seen = new char; // proves that the watch works
    delete seen;
    const int proof = std::exchange(memoryCalls, 0);
    for (int block = 0; block < 3000; ++block) {
        for (int i = 0; i < 4; ++i)
            record->setParameter(record, below(898), static_cast<float>(below(1001)) * 0.001f);
        const std::int32_t insert = block % 2 == 0 ? 256 : 304;
        record->setParameter(record, insert, static_cast<float>(below(116)) / 255.0f);
        if (block % 4 != 0) record->setParameter(record, 0, 1.0f);
        record->processReplacing(record, ins, outs, below(300));
        record->processDoubleReplacing(record, wideIns, wideOuts, below(300));
        record->getParameter(record, 361 + below(63));
    }
    watching = false;
    EXPECT_EQ(proof, 2);
    EXPECT_EQ(memoryCalls, 0);
}

} // namespace
} // namespace velmora::vst24::test
