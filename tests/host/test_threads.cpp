// The threads of a session at once: audio with automation, a main thread that saves and loads state, an
// editor that reads meters. Its worth is under the thread sanitizer; here it checks what must hold at the
// end.

#include "host/vst24/vst24_effect_wrapper.h"
#include "tests/host/chunk_view.h"
#include "tests/host/recording_host.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <cstring>
#include <iostream>
#include <random>
#include <thread>
#include <vector>

namespace velmora::vst24::test {
namespace {

constexpr auto kDuration = std::chrono::milliseconds(1500);

class Session {
public:
    Session() { RecordingHost::recording() = false; }
    ~Session() { RecordingHost::recording() = true; }

    void audio()
    {
        std::mt19937 random(1);
        std::array<float, 512> in, a{}, b{};
        for (float& x : in) x = static_cast<float>(random() % 2001) * 0.001f - 1.0f;
        float* ins[4] = {in.data(), in.data(), in.data(), in.data()};
        float* outs[2] = {a.data(), b.data()};
        while (running) {
            for (int i = 0; i < 4; ++i) automate(random);
            effect.processReplacing(ins, outs, 1 + static_cast<std::int32_t>(random() % 512));
            for (const float y : a) finite = finite && std::isfinite(y);
            ++blocks;
        }
    }

    void automate(std::mt19937& random)
    {
        const std::int32_t id =
            random() % 2 == 0 ? kPositionIds[random() % 9] : static_cast<std::int32_t>(random() % 360);
        effect.setParameter(id, static_cast<float>(random() % 1001) * 0.001f);
    }

    void meters()
    {
        while (running) {
            for (std::int32_t id = 361; id <= 423; ++id) {
                const float reading = effect.getParameter(id);
                inRange = inRange && reading >= 0.0f && reading <= 1.0f;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    void mainThread()
    {
        std::mt19937 random(2);
        std::vector<std::uint8_t> saved;
        const auto end = std::chrono::steady_clock::now() + kDuration;
        while (std::chrono::steady_clock::now() < end) {
            void* data = nullptr;
            const std::int32_t size = effect.getChunk(&data, false);
            saved.assign(static_cast<std::uint8_t*>(data), static_cast<std::uint8_t*>(data) + size);
            char text[kMaxParamTextLen];
            for (std::int32_t id = 0; id < 360; ++id) effect.getParameterDisplay(id, text);
            for (int i = 0; i < 20; ++i) automate(random);
            effect.setChunk(saved.data(), static_cast<std::intptr_t>(saved.size()), false);
            effect.idleEditor();
            ++rounds;
        }
    }

    void run()
    {
        std::thread audioThread([this] { audio(); });
        std::thread meterThread([this] { meters(); });
        mainThread();
        running = false;
        audioThread.join();
        meterThread.join();
    }

    QORVST24EffectWrapper effect{&RecordingHost::callback};
    std::atomic<bool> running{true};
    std::atomic<bool> finite{true};
    std::atomic<bool> inRange{true};
    std::atomic<int> blocks{0};
    int rounds = 0;
};

TEST(Threads, ASessionRunsWithoutATear)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    session.run();
    EXPECT_TRUE(session.finite);
    EXPECT_TRUE(session.inRange);
    EXPECT_GT(session.rounds, 0);
    EXPECT_GT(session.blocks, 0);
    std::cout << session.blocks << " blocks, " << session.rounds << " rounds of state\n";
}

constexpr std::int32_t kMonitorIds[] = {21, 53, 85, 117, 149, 197, 229, 261, 309};

TEST(Threads, AReactionLeftToTheHolderIsWorkedOff)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    session.effect.setParameter(21, 1.0f);
    {
        const auto held = session.effect.claimReactions();
        std::thread audio([&] { session.effect.setParameter(117, 1.0f); });
        audio.join(); // it didn't wait for the claim
        EXPECT_EQ(storedValue(session.effect, 21), 1.0f) << "not yet: the claim is held";
    }
    EXPECT_EQ(storedValue(session.effect, 21), 0.0f);
    EXPECT_EQ(storedValue(session.effect, 117), 1.0f);
}

// Two threads race for the claim; whoever loses, the Monitor switched on last by the other thread is the only
// one.
TEST(Threads, NoReactionIsLostInARace)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    for (unsigned round = 0; round < 120; ++round) {
        const std::int32_t wanted = kMonitorIds[round % 9];
        std::atomic<bool> done{false};
        std::thread audio([&] {
            session.effect.setParameter(wanted, 0.0f);
            session.effect.setParameter(wanted, 1.0f);
            done = true;
        });
        for (unsigned i = 0; !done; ++i)
            session.effect.setParameter(64, static_cast<float>(i % 1000) * 0.001f);
        audio.join();
        for (const std::int32_t id : kMonitorIds)
            ASSERT_EQ(storedValue(session.effect, id), id == wanted ? 1.0f : 0.0f)
                << "round " << round << " id " << id;
    }
}

} // namespace
} // namespace velmora::vst24::test
