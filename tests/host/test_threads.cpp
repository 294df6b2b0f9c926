// The threads of a session at once: audio with automation, a main thread that saves and loads state, an
// editor that reads meters. Its worth is under the thread sanitizer; here it checks what must hold at the
// end.

#include "host/vst24/vst24_effect_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/catalogue.h"
#include "presets/preset_store.h"
#include "tests/host/chunk_view.h"
#include "tests/host/recording_editor.h"
#include "tests/host/recording_host.h"

#include <gtest/gtest.h>

#include <algorithm>
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

constexpr std::size_t kMostFrames = 512;

/// One signal at all inputs.
template <typename Sample>
struct Buffers {
    std::array<Sample, kMostFrames> in{}, left{}, right{};
    Sample* ins[4] = {in.data(), in.data(), in.data(), in.data()};
    Sample* outs[2] = {left.data(), right.data()};

    void fill(double level, std::mt19937& random)
    {
        for (Sample& x : in)
            x = static_cast<Sample>(level * (static_cast<double>(random() % 2001) * 0.001 - 1.0));
    }
    bool finite() const
    {
        const auto good = [](Sample y) { return std::isfinite(y); };
        return std::ranges::all_of(left, good) && std::ranges::all_of(right, good);
    }
};

class Session {
public:
    Session() { RecordingHost::recording() = false; }
    ~Session() { RecordingHost::recording() = true; }

    void audio()
    {
        std::mt19937 random(1);
        Buffers<float> single;
        Buffers<double> wide;
        while (running) {
            for (int i = 0; i < 4; ++i) automate(random);
            const auto frames = 1 + static_cast<std::int32_t>(random() % kMostFrames);
            const double level = std::array{1.0, 0.0, 1e-310, 1e-40}[static_cast<unsigned>(blocks / 16 % 4)];
            if (blocks % 2 == 0) {
                single.fill(level, random);
                effect.processReplacing(single.ins, single.outs, frames);
            } else {
                wide.fill(level, random);
                effect.processDoubleReplacing(wide.ins, wide.outs, frames);
            }
            finite = finite && single.finite() && wide.finite();
            ++blocks;
        }
    }

    void automate(std::mt19937& random)
    {
        const std::int32_t id =
            random() % 2 == 0 ? kPositionIds[random() % 9] : static_cast<std::int32_t>(random() % 360);
        effect.setParameter(id, static_cast<float>(random() % 1001) * 0.001f);
        const std::int32_t insert = random() % 2 == 0 ? 256 : 304;
        if (random() % 4 == 0) effect.setParameter(insert, static_cast<float>(random() % 116) / 255.0f);
    }

    void meters()
    {
        while (running) {
            for (std::int32_t id = 361; id <= 423; ++id) {
                const float reading = effect.getParameter(id);
                inRange = inRange && reading >= 0.0f && reading <= 1.0f;
            }
            char name[kMaxProgramNameLen];
            effect.getProgramName(name);
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
    }

    void mainThread()
    {
        std::mt19937 random(2);
        std::vector<std::uint8_t> saved;
        effect.attachEditor(&editor);
        const auto end = std::chrono::steady_clock::now() + kDuration;
        while (std::chrono::steady_clock::now() < end) {
            void* data = nullptr;
            const std::int32_t size = effect.getChunk(&data, false);
            saved.assign(static_cast<std::uint8_t*>(data), static_cast<std::uint8_t*>(data) + size);
            char text[kMaxParamTextLen];
            for (std::int32_t id = 0; id < 360; ++id) effect.getParameterDisplay(id, text);
            for (int i = 0; i < 20; ++i) automate(random);
            effect.setProgramName(rounds % 2 == 0 ? "One" : "Another");
            effect.setChunk(saved.data(), static_cast<std::intptr_t>(saved.size()), false);
            for (int i = 0; i < 4; ++i) moveThroughPresets(random);
            effect.idleEditor();
            ++rounds;
        }
        effect.attachEditor(nullptr);
    }

    void moveThroughPresets(std::mt19937& random)
    {
        PresetStore& store = *effect.getMasterController().store();
        switch (random() % 8) {
        case 0:
            return store.selectEntry(static_cast<std::int32_t>(random() % 235));
        case 1:
            return store.nudgeNext();
        case 2:
        case 3:
            return store.undo();
        case 4:
            return store.redo();
        case 5:
            return store.selectSide(random() % 2 == 0 ? PresetStore::Side::A : PresetStore::Side::B);
        case 6:
            return store.copyCompareSide();
        default:
            store.copyToClipboard();
            store.pasteFromClipboard();
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
    RecordingEditor editor; ///< while the main thread runs it hears of changes and meters at each idle
    std::atomic<bool> running{true};
    std::atomic<bool> finite{true};
    std::atomic<bool> inRange{true};
    std::atomic<int> blocks{0};
    int rounds = 0;
};

/// What the engine was last handed is what a chunk would store, and every role has a position of its own.
/// Every id that was ever changed counts.
void expectEngineAndStateAgree(Session& session)
{
    QORVST24EffectWrapper& effect = session.effect;
    effect.attachEditor(&session.editor);
    effect.idleEditor();
    effect.attachEditor(nullptr);
    for (const auto& [id, told] : session.editor.heard) {
        if (isStored(id)) {
            EXPECT_EQ(static_cast<float>(told.back()), storedValue(effect, id)) << "id " << id;
        }
    }
    std::array<int, 9> taken{};
    for (const std::int32_t id : kPositionIds)
        ++taken[static_cast<std::size_t>(storedValue(effect, id) * 8.0f + 0.5f)];
    for (const int roles : taken) EXPECT_EQ(roles, 1);
}

// A reaction moves what another thread has just set and not yet reacted to.
TEST(Threads, AChangeOvertakenByAReactionHoldsInTheEnd)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    {
        const auto held = session.effect.claimReactions();
        std::thread([&] { session.effect.setParameter(49, 0.5f); }).join();
        session.effect.getMasterController().react(17,
                                                   0.125); // takes the place of 49, which is told to go to 0
    }
    EXPECT_EQ(storedValue(session.effect, 49), 0.5f);
    expectEngineAndStateAgree(session);
}

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
    expectEngineAndStateAgree(session);
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

// The first of two deferred moves pushes the module that the second one is about.
TEST(Threads, EveryDeferredChangeHasItsEffect)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    const auto automate = [](QORVST24EffectWrapper& effect) {
        effect.setParameter(17, 0.5f);
        effect.setParameter(49, 0.25f);
        effect.setParameter(256, 49.0f / 255.0f);
        effect.setParameter(277, 0.9f);
    };
    {
        const auto held = session.effect.claimReactions();
        std::thread audio([&] { automate(session.effect); });
        audio.join();
    }
    QORVST24EffectWrapper undisturbed(&RecordingHost::callback);
    automate(undisturbed);
    EXPECT_EQ(chunkOf(session.effect), chunkOf(undisturbed));
    expectEngineAndStateAgree(session);
}

TEST(Threads, AThreadThatProcessesNeverWaitsEvenIfItMadeTheEffect)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    session.effect.processReplacing(nullptr, nullptr, 0);
    std::atomic<bool> held{false}, returned{false}, waited{false};
    std::thread other([&] {
        const auto claimed = session.effect.claimReactions();
        held = true;
        for (int i = 0; i < 2000 && !returned; ++i) std::this_thread::sleep_for(std::chrono::milliseconds(1));
        waited = !returned;
    });
    while (!held) std::this_thread::yield();
    session.effect.setParameter(32, 0.25f);
    returned = true;
    other.join();
    EXPECT_FALSE(waited);
    EXPECT_EQ(storedValue(session.effect, 32), 0.25f);
}

/// A host whose audio thread automates a parameter in the middle of a preset load.
struct InterruptingHost {
    static std::intptr_t callback(AEffect*, std::int32_t opcode, std::int32_t index, std::intptr_t, void*,
                                  float)
    {
        if (opcode == audioMasterEndEdit && index == 100 && target != nullptr)
            std::thread([] { target->setParameter(32, 0.9f); }).join();
        return opcode == audioMasterVersion ? kVstVersion : 0;
    }
    static inline QORVST24EffectWrapper* target = nullptr;
};

TEST(Threads, AutomationDuringAPresetLoadIsKept)
{
    PrivateHome home;
    QORVST24EffectWrapper effect(&InterruptingHost::callback);
    InterruptingHost::target = &effect;
    PresetStore& store = *effect.getMasterController().store();
    store.applyPreset(store.current().snapshot());
    InterruptingHost::target = nullptr;
    EXPECT_EQ(effect.getParameter(32), 0.9f);
    EXPECT_EQ(storedValue(effect, 32), 0.9f);
}

TEST(Threads, ANameSetOnAnotherThreadReachesTheEditorAtIdle)
{
    PrivateHome home;
    RecordingHost host;
    Session session;
    RecordingEditor editor;
    session.effect.attachEditor(&editor);
    std::thread([&] { session.effect.setProgramName("Renamed"); }).join();
    EXPECT_TRUE(editor.heard.empty()) << "never touched from there";
    session.effect.idleEditor();
    EXPECT_EQ(editor.heard.count(859), 1u);
    session.effect.attachEditor(nullptr);
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
