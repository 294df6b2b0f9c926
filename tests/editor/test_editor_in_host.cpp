// The editor behind the effect's own calls, in a window in memory.

#include "tests/editor/fake_window.h"
#include "tests/host/recording_host.h"

#include "editor/engine/text_edit.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "editor/engine/view_container.h"
#include "host/vst24/host_keys.h"
#include "host/vst24/vst24_editor_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/catalogue.h"

#include <gtest/gtest.h>

#include <cmath>

namespace velmora::vst24::test {
namespace {

using velmora::test::FakeScreen;
using velmora::test::FakeWindow;
using velmora::test::Key;

class EditorInHostTest : public ::testing::Test {
protected:
    using Call = std::pair<std::int32_t, std::int32_t>;

    void SetUp() override
    {
        ASSERT_TRUE(Qorvane::openToolkit()) << "the toolkit's libraries are missing";
    }
    std::intptr_t call(std::int32_t opcode, std::int32_t index = 0, std::intptr_t value = 0,
                       void* ptr = nullptr, float opt = 0.0f)
    {
        AEffect* const record = effect->getAeffect();
        return record->dispatcher(record, opcode, index, value, ptr, opt);
    }
    bool open()
    {
        ERect* rect = nullptr;
        EXPECT_EQ(call(effEditGetRect, 0, 0, &rect), 1);
        screen = std::make_shared<FakeScreen>();
        return effect->getEditorWrapper().openIn(
            std::make_unique<FakeWindow>(screen, rect->right, rect->bottom));
    }
    static std::vector<Call> calls()
    {
        std::vector<Call> list;
        for (const auto& event : RecordingHost::events()) list.emplace_back(event.opcode, event.index);
        RecordingHost::events().clear();
        return list;
    }

    PrivateHome home;
    RecordingHost host;
    std::unique_ptr<QORVST24EffectWrapper> effect =
        std::make_unique<QORVST24EffectWrapper>(&RecordingHost::callback);
    std::shared_ptr<FakeScreen> screen;
};

TEST_F(EditorInHostTest, TellsItsSizeBeforeAndAfterAndClosesWithTheEffect)
{
    EXPECT_TRUE((effect->getAeffect()->flags & effFlagsHasEditor) != 0);
    call(effEditClose);
    call(effEditIdle);
    ERect* rect = nullptr;
    ASSERT_EQ(call(effEditGetRect, 0, 0, &rect), 1);
    EXPECT_EQ(rect->right, 1515);
    EXPECT_EQ(rect->bottom, 712);
    EXPECT_EQ(call(effEditOpen, 0, 0, nullptr), 0) << "no window to open in";
    ASSERT_TRUE(open());
    call(effEditIdle);
    EXPECT_EQ(screen->presentedArea(), 1515.0 * 712.0);
    call(effEditClose);
    EXPECT_FALSE(screen->exists);
    call(effEditClose);
    ASSERT_TRUE(open());
    effect.reset();
    EXPECT_FALSE(screen->exists);
}

TEST_F(EditorInHostTest, GesturesAndEditsReachTheHostInOrder)
{
    QORVST24MasterController& master = effect->getMasterController();
    std::int32_t other = 21;
    while (!isAutomatable(other)) ++other;
    calls();
    master.beginGesture(20);
    master.editParameter(20, 0.25);
    master.editParameter(20, 0.5);
    master.editParameter(other, 0.5); // beside the gesture
    master.endGesture(20);
    master.endGesture(20);
    EXPECT_EQ(calls(), (std::vector<Call>{{audioMasterBeginEdit, 20},
                                          {audioMasterAutomate, 20},
                                          {audioMasterAutomate, 20},
                                          {audioMasterBeginEdit, other},
                                          {audioMasterAutomate, other},
                                          {audioMasterEndEdit, other},
                                          {audioMasterEndEdit, 20}}));
    for (const std::int32_t local : {-1, 500, 850, 4000, INT32_MAX}) { // no host knows these
        master.beginGesture(local);
        master.endGesture(local);
    }
    EXPECT_TRUE(calls().empty());
    master.beginGesture(20);
    master.beginGesture(other);
    EXPECT_EQ(calls(),
              (std::vector<Call>{
                  {audioMasterBeginEdit, 20}, {audioMasterEndEdit, 20}, {audioMasterBeginEdit, other}}));
}

TEST_F(EditorInHostTest, KeysGoToTheHostUnlessAnEditIsOpen)
{
    ASSERT_TRUE(open());
    EXPECT_EQ(call(effEditKeyDown, 'a', 0), 0);
    EXPECT_EQ(call(effEditKeyDown, 0, 7), 0) << "the space bar starts the host";
    EXPECT_EQ(call(effEditKeyUp, 0, 7), 0);
    EXPECT_EQ(keyOfHost(7, 0).text, " ");
    EXPECT_EQ(keyOfHost(128 + 17, 0).letter, U'a') << "codes from 128 carry characters";
    EXPECT_EQ(keyOfHost(128 + 17, 0).text, "A");
    EXPECT_EQ(keyOfHost(128 + 17, 8).text, "") << "with control held";
    EXPECT_EQ(keyOfHost(128 + 17, 8).modifiers, static_cast<std::uint32_t>(kControlKey));
    EXPECT_EQ(keyOfHost(11, 1).key, Key::Left);
    EXPECT_EQ(keyOfHost(11, 1).modifiers, static_cast<std::uint32_t>(kShiftKey));
    for (const std::int32_t odd : {INT32_MIN, -1, 0, 100, 127, INT32_MAX}) {
        EXPECT_EQ(keyOfHost(odd, -1).key, Key::None);
        EXPECT_EQ(keyOfHost(odd, 0).text, "");
    }
}

TEST_F(EditorInHostTest, AKeyGoesUpWhereItWentDown)
{
    constexpr std::int32_t kHostReturn = 4, kHostLeft = 11;
    ASSERT_TRUE(open());
    Qorvane::QORViewWrapper& engine = effect->getEditorWrapper().getView();
    QORViewContainer* const panel = engine.createViewContainer(rectAt(0.0, 0.0, 100.0, 50.0));
    engine.addView(panel);
    auto* const edit = new QORTextEdit(rectAt(10.0, 10.0, 60.0, 20.0), 2000, "name");
    panel->addControl(edit);
    EXPECT_EQ(call(effEditKeyDown, 0, kHostLeft), 0);
    edit->takeFocus();
    EXPECT_EQ(call(effEditKeyUp, 0, kHostLeft), 0) << "it went down before the edit opened";
    EXPECT_EQ(call(effEditKeyDown, 0, kHostLeft, nullptr, std::nanf("")), 1);
    EXPECT_EQ(call(effEditKeyDown, 0, kHostReturn), 1);
    EXPECT_FALSE(engine.takesKeys());
    EXPECT_EQ(call(effEditKeyUp, 0, kHostReturn), 1) << "it closed the edit";
    EXPECT_EQ(call(effEditKeyUp, 0, kHostReturn), 0);
    for (const std::int32_t odd : {-1, 256, INT32_MAX}) EXPECT_EQ(call(effEditKeyUp, 0, odd), 0);
}

} // namespace
} // namespace velmora::vst24::test
