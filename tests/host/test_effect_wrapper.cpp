// The wrapper's parameter road: reactions, what the host hears, chunks, the editor's idle pass.

#include "host/vst24/vst24_effect_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/catalogue.h"
#include "params/velmora_mono_controller.h"
#include "tests/host/chunk_view.h"
#include "tests/host/recording_editor.h"
#include "tests/host/recording_host.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <iostream>
#include <limits>
#include <random>
#include <vector>

namespace velmora::vst24::test {
namespace {

class EffectWrapperTest : public ::testing::Test {
protected:
    using Chunk = std::vector<std::uint8_t>;

    Chunk chunk() { return chunkOf(effect); }
    float stored(std::int32_t id) { return storedValue(effect, id); }
    int position(std::int32_t id) { return static_cast<int>(stored(id) * 8.0f + 0.5f); }

    PrivateHome home;
    RecordingHost host;
    QORVST24EffectWrapper effect{&RecordingHost::callback};
};

TEST_F(EffectWrapperTest, APositionChangePushesTheModulesBetween)
{
    effect.setParameter(225, 1.0f); // Output to the end: the inserts move up
    EXPECT_EQ(position(225), 8);
    EXPECT_EQ(position(257), 6);
    EXPECT_EQ(position(305), 7);
    EXPECT_EQ(position(193), 5);

    effect.setParameter(225, 0.0f); // and to the head: all others move down
    EXPECT_EQ(position(225), 0);
    EXPECT_EQ(position(17), 1);
    EXPECT_EQ(position(305), 8);
    EXPECT_EQ(RecordingHost::count(audioMasterAutomate), 0) << "reactions don't go back to the host";
    EXPECT_EQ(effect.getParameter(17), 0.0f) << "nor into the host's view";
}

TEST_F(EffectWrapperTest, RandomAutomationOfPositionsKeepsAPermutation)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> anywhere(0.0f, 1.0f);
    for (int step = 0; step < 400; ++step) {
        effect.setParameter(kPositionIds[random() % 9],
                            step % 3 == 0 ? static_cast<float>(random() % 9) * 0.125f : anywhere(random));
        std::array<int, 9> seen{};
        for (const std::int32_t id : kPositionIds) ++seen[static_cast<unsigned>(position(id))];
        for (const int n : seen) ASSERT_EQ(n, 1) << "step " << step;
    }
}

TEST_F(EffectWrapperTest, OneMonitorAtATimeAndNoneBehindARackChange)
{
    effect.setParameter(21, 1.0f);
    effect.setParameter(117, 1.0f);
    EXPECT_EQ(stored(21), 0.0f);
    EXPECT_EQ(stored(117), 1.0f);
    for (const std::int32_t id : {18, 115, 144, 256}) { // a Mute, a Solo, a fixed Type, an insert's Type
        effect.setParameter(117, 0.0f);
        effect.setParameter(117, 1.0f);
        ASSERT_EQ(stored(117), 1.0f);
        effect.setParameter(id, 0.2f);
        EXPECT_EQ(stored(117), 0.0f) << "id " << id;
    }
}

TEST_F(EffectWrapperTest, SwitchingAModuleOffTakesItsSoloAway)
{
    effect.setParameter(115, 1.0f);
    effect.setParameter(112, 0.0f);
    EXPECT_EQ(stored(115), 0.0f);
    effect.setParameter(256, 49.0f / 255.0f);
    effect.setParameter(259, 1.0f);
    effect.setParameter(256, 0.0f);
    EXPECT_EQ(stored(259), 0.0f);
}

TEST_F(EffectWrapperTest, ANewKindOfInsertStartsFromItsDefaults)
{
    const auto choose = [&](int code) { effect.setParameter(256, static_cast<float>(code) / 255.0f); };
    choose(49);
    EXPECT_FLOAT_EQ(stored(277), 0.145f) << "makeup gain";
    EXPECT_EQ(stored(300), 0.0f) << "no parameter of a compressor";
    effect.setParameter(277, 0.9f);
    choose(51);
    EXPECT_EQ(stored(277), 0.9f) << "another variant of the kind keeps its values";
    choose(113);
    EXPECT_FLOAT_EQ(stored(272), 0.6367157f);
    choose(114);
    EXPECT_EQ(stored(272), 0.5f) << "the specials always start anew";
}

TEST_F(EffectWrapperTest, RefusesWhatIsNoValueAndClampsTheRest)
{
    effect.setParameter(32, 0.25f);
    effect.setParameter(32, std::numeric_limits<float>::quiet_NaN());
    effect.setParameter(32, std::numeric_limits<float>::infinity());
    EXPECT_EQ(effect.getParameter(32), 0.25f);
    effect.setParameter(32, 7.0f);
    EXPECT_EQ(effect.getParameter(32), 1.0f);
    effect.setParameter(32, -7.0f);
    EXPECT_EQ(effect.getParameter(32), 0.0f);
    for (const std::int32_t id : {-1, 819, 898, 100000, std::numeric_limits<std::int32_t>::min()}) {
        effect.setParameter(id, 0.5f);
        EXPECT_EQ(effect.getParameter(id), 0.0f);
    }
    effect.setParameter(700, 0.5f);
    EXPECT_EQ(effect.getParameter(700), 0.5f) << "an editor-local id is kept";
}

TEST_F(EffectWrapperTest, AChunkComesBackByteForByteAndTheHostHearsIt)
{
    std::mt19937 random(11);
    for (std::int32_t id = 0; id < kHostParameterCount; ++id)
        if (isStored(id)) effect.setParameter(id, static_cast<float>(random() % 1001) * 0.001f);
    effect.setProgramName("A name of many more than 23 bytes");
    const Chunk saved = chunk();
    ASSERT_EQ(saved.size(), VelmoraMonoController::kChunkSize);

    for (std::int32_t id = 16; id < 350; ++id) effect.setParameter(id, 0.4f);
    RecordingHost::events().clear();
    Chunk copy = saved;
    EXPECT_EQ(effect.setChunk(copy.data(), static_cast<std::intptr_t>(copy.size()), false), 0);
    EXPECT_EQ(chunk(), saved);
    EXPECT_EQ(RecordingHost::count(audioMasterAutomate), 192);
    EXPECT_EQ(RecordingHost::count(audioMasterBeginEdit), 192);
    EXPECT_EQ(RecordingHost::count(audioMasterEndEdit), 192);

    char name[kMaxProgramNameLen];
    effect.getProgramName(name);
    EXPECT_STREQ(name, "A name of many more tha");
}

TEST_F(EffectWrapperTest, AMalformedChunkLeavesEverythingAsItWas)
{
    effect.setParameter(32, 0.75f);
    const Chunk before = chunk();
    RecordingHost::events().clear();
    EXPECT_EQ(effect.setChunk(nullptr, 100, false), -1);
    for (const std::size_t size : {0u, 1u, 223u, 224u, 231u, 272u, 273u, 5000u, 19208u, 18985u}) {
        Chunk cut(before.begin(), before.begin() + static_cast<std::ptrdiff_t>(size));
        cut.push_back(0);
        EXPECT_EQ(effect.setChunk(cut.data(), static_cast<std::intptr_t>(size), false), 0) << size;
        ASSERT_EQ(chunk(), before) << "size " << size;
    }
    Chunk foreign = before;
    foreign[228] = 'X';
    effect.setChunk(foreign.data(), static_cast<std::intptr_t>(foreign.size()), false);
    effect.setChunk(foreign.data(), -5, false);
    effect.setChunk(foreign.data(), std::numeric_limits<std::intptr_t>::max(), false);
    EXPECT_EQ(chunk(), before);
    EXPECT_EQ(RecordingHost::count(audioMasterAutomate), 0);
}

TEST_F(EffectWrapperTest, TheViewOfAChunkIsTakenWithinItsRange)
{
    Chunk bytes = chunk();
    const auto load = [&](std::int32_t mode, std::int32_t mini) {
        std::memcpy(&bytes[0], &mode, 4);
        std::memcpy(&bytes[8], &mini, 4);
        effect.setChunk(bytes.data(), static_cast<std::intptr_t>(bytes.size()), false);
        std::int32_t back[3];
        std::memcpy(back, chunk().data(), sizeof back);
        return std::pair(back[0], back[2]);
    };
    EXPECT_EQ(load(2, 555), std::pair(2, 555));
    EXPECT_EQ(load(-1, -1), std::pair(2, -1)) << "the process's mode stays";
    EXPECT_EQ(load(3, -1), std::pair(2, -1));
    EXPECT_EQ(load(1, -1), std::pair(1, -1));
}

TEST_F(EffectWrapperTest, TheViewModeOfTheProcessOutlivesItsLastInstance)
{
    effect.setParameter(kViewModeId, 1.0f / 3.0f);
    {
        QORVST24EffectWrapper second(&RecordingHost::callback);
        void* data = nullptr;
        second.getChunk(&data, false);
        EXPECT_EQ(*static_cast<std::int32_t*>(data), 1) << "a later instance starts in the process's mode";
        second.setParameter(kViewModeId, 2.0f / 3.0f);
    }
    const auto file = home.settings() / "Qorvane" / "QORVelmora" / "QORVelmora: 792";
    EXPECT_FALSE(std::filesystem::exists(file)) << "an instance is left";
}

TEST_F(EffectWrapperTest, AnEditHeardByTheHostLetsTheControllerReact)
{
    effect.getMasterController().editParameter(117, 1.0);
    effect.getMasterController().editParameter(21, 1.0);
    EXPECT_EQ(stored(117), 0.0f);
    EXPECT_EQ(stored(21), 1.0f);
    EXPECT_EQ(effect.getParameter(21), 1.0f) << "the host knows what the user did";
    EXPECT_GE(RecordingHost::count(audioMasterAutomate), 2);
    EXPECT_EQ(RecordingHost::count(audioMasterBeginEdit), RecordingHost::count(audioMasterEndEdit));
}

TEST_F(EffectWrapperTest, TheEditorSeesChangesMetersAndCommandsAtIdle)
{
    RecordingEditor editor;
    effect.idleEditor();
    effect.setParameter(17, 0.25f);
    effect.attachEditor(&editor);
    effect.idleEditor();
    EXPECT_EQ(editor.heard[17].back(), 0.25);
    EXPECT_EQ(editor.heard[49].back(), 0.0) << "pushed one place forward, in reaction";
    for (const std::int32_t id : {361, 421, 423}) EXPECT_EQ(editor.heard[id].size(), 1u) << id;
    EXPECT_EQ(editor.heard.count(422), 0u);

    editor.heard.clear();
    effect.setParameter(849, 0.8f);
    EXPECT_EQ(editor.heard[849].size(), 1u) << "told at once on its own thread";
    effect.idleEditor();
    EXPECT_EQ(editor.heard[859].back(), 1.0);
    EXPECT_EQ(editor.heard.count(17), 0u) << "seen already";
    effect.attachEditor(nullptr);
}

TEST_F(EffectWrapperTest, AReopenedEditorSeesWhatReactionsMoved)
{
    RecordingEditor editor;
    effect.attachEditor(&editor);
    effect.setParameter(17, 0.25f);
    effect.idleEditor();
    effect.attachEditor(nullptr);
    ASSERT_NE(effect.getParameter(49), 0.0f) << "the host's view, which the editor gets at its opening";
    editor.heard.clear();
    effect.attachEditor(&editor);
    effect.idleEditor();
    ASSERT_EQ(editor.heard[49].size(), 1u);
    EXPECT_EQ(editor.heard[49].back(), 0.0);
    EXPECT_EQ(editor.heard.count(17), 0u) << "both views agree";
    effect.attachEditor(nullptr);
}

TEST_F(EffectWrapperTest, NothingThatTheEditorThrowsReachesTheHost)
{
    struct ThrowingEditor : RecordingEditor {
        void setParameter(std::int32_t, double) override { throw std::bad_alloc(); }
    } editor;
    effect.attachEditor(&editor);
    AEffect* record = effect.getAeffect();
    EXPECT_NO_THROW(record->setParameter(record, 32, 0.25f));
    EXPECT_NO_THROW(record->dispatcher(record, effSetProgramName, 0, 0, const_cast<char*>("Name"), 0.0f));
    effect.attachEditor(nullptr);
    EXPECT_EQ(stored(32), 0.25f);
}

TEST_F(EffectWrapperTest, MetersAnswerFromTheEngine)
{
    effect.setSampleRate(48000.0f);
    effect.setParameter(224, 1.0f / 15.0f);
    std::array<double, 480> in, out{};
    for (std::size_t i = 0; i < in.size(); ++i) in[i] = 0.5 * std::sin(0.1 * static_cast<double>(i));
    double* ins[4] = {in.data(), in.data(), in.data(), in.data()};
    double* outs[2] = {out.data(), out.data()};
    for (int block = 0; block < 20; ++block) effect.processDoubleReplacing(ins, outs, 480);
    EXPECT_GT(effect.getParameter(361), 0.3f);
    EXPECT_LE(effect.getParameter(361), 0.5f);
    effect.setParameter(422, 0.3f);
    EXPECT_EQ(effect.getParameter(422), 0.3f) << "no meter of the engine";
    std::cout << "input meter after a -6 dB sine: " << effect.getParameter(361) << '\n';
}

} // namespace
} // namespace velmora::vst24::test
