#include "editor/engine/on_off_button.h"
#include "editor/engine/toolkit/lazy/open_toolkit.h"
#include "editor/engine/toolkit/wrapper/view_wrapper.h"
#include "editor/engine/view_container.h"
#include "host/vst24/vst24_editor_wrapper.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "params/catalogue.h"
#include "tests/editor/host/patience.h"
#include "tests/editor/x_client.h"
#include "tests/editor/x_server.h"
#include "tools/host/private_home.h"

#include <gtest/gtest.h>

#include <map>

namespace velmora::vst24::test {
namespace {

using velmora::test::comesTrue;

constexpr std::int32_t kId = 0; // of a parameter that hosts record

/// A host that does something of its own while the effect calls it.
class HostCallsBack : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(Qorvane::openToolkit()) << Qorvane::missingFromToolkit();
        ASSERT_TRUE(server.isRunning()) << "no Xvfb";
        desk = std::make_unique<velmora::test::XClient>();
        window = desk->openWindow(0, 0, 1600, 800);
        current = this;
        effect = std::make_unique<QORVST24EffectWrapper>(&callback);
        record = effect->getAeffect();
        ASSERT_TRUE(isAutomatable(kId));
    }
    void TearDown() override
    {
        answers.clear();
        effect.reset();
        current = nullptr;
    }

    static std::intptr_t callback(AEffect*, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
    {
        if (opcode == audioMasterVersion) return kVstVersion;
        if (current == nullptr || !current->record) return 0;
        ++current->calls[opcode];
        if (const auto answer = current->answers.find(opcode); answer != current->answers.end())
            answer->second();
        return 1;
    }

    std::intptr_t dispatch(std::int32_t opcode, void* pointer = nullptr)
    {
        return record->dispatcher(record, opcode, 0, 0, pointer, 0.0F);
    }
    bool openEditor() { return dispatch(effEditOpen, reinterpret_cast<void*>(std::uintptr_t{window})) != 0; }
    Qorvane::QORViewWrapper& view() { return effect->getEditorWrapper().getView(); }
    /// A switch over the whole window.
    void addSwitch()
    {
        constexpr Rect kAll = rectAt(0, 0, 1515, 660);
        QORViewContainer* const ground = view().createViewContainer(kAll);
        view().addView(ground);
        ground->addControl(new QOROnOffButton(kAll, kId, nullptr));
    }
    bool idleUntil(const std::function<bool()>& done)
    {
        return comesTrue([&] {
            dispatch(effEditIdle);
            return done();
        });
    }

    velmora::test::XServer server;
    const host::PrivateHome home;
    std::unique_ptr<velmora::test::XClient> desk;
    xcb_window_t window = XCB_NONE;
    std::unique_ptr<QORVST24EffectWrapper> effect;
    AEffect* record = nullptr;
    std::map<std::int32_t, std::function<void()>> answers; ///< by the opcode of the effect's call
    std::map<std::int32_t, int> calls;

private:
    static inline HostCallsBack* current = nullptr;
};

TEST_F(HostCallsBack, ToCloseWhileTheMouseIsAtWork)
{
    for (const std::int32_t opcode : {audioMasterBeginEdit, audioMasterEndEdit}) {
        ASSERT_TRUE(openEditor());
        addSwitch();
        calls.clear();
        answers[opcode] = [&] {
            dispatch(effEditIdle);
            dispatch(effEditClose);
            dispatch(effEditIdle);
        };
        desk->movePointer(700, 300);
        desk->click(1);
        ASSERT_TRUE(idleUntil([&] { return !view().isOpen(); }));
        EXPECT_EQ(calls[audioMasterBeginEdit], 1);
        EXPECT_EQ(calls[audioMasterEndEdit], 1);
        EXPECT_TRUE(comesTrue([&] { return desk->childCount(window) == 0; }));
        answers.clear();
    }
}

TEST_F(HostCallsBack, ToCloseAtAValueOrASize)
{
    const auto close = [&] { dispatch(effEditClose); };
    ASSERT_TRUE(openEditor());
    answers[audioMasterAutomate] = close;
    view().editParameter(kId, 0.25);
    EXPECT_FALSE(view().isOpen());
    EXPECT_FLOAT_EQ(record->getParameter(record, kId), 0.25F);

    ASSERT_TRUE(openEditor());
    answers[audioMasterSizeWindow] = close;
    view().resizeEditor(800, 400);
    EXPECT_FALSE(view().isOpen());
    EXPECT_EQ(calls[audioMasterSizeWindow], 1);
    EXPECT_TRUE(comesTrue([&] { return desk->childCount(window) == 0; }));
    answers.clear();
    ASSERT_TRUE(openEditor());
    EXPECT_TRUE(comesTrue([&] { return desk->childCount(window) == 1; }));
}

TEST_F(HostCallsBack, ToOpenAnew)
{
    ASSERT_TRUE(openEditor());
    addSwitch();
    answers[audioMasterBeginEdit] = [&] {
        dispatch(effEditClose);
        EXPECT_TRUE(openEditor());
    };
    desk->movePointer(700, 300);
    desk->click(1);
    ASSERT_TRUE(idleUntil([&] { return calls[audioMasterEndEdit] == 1; }));
    EXPECT_TRUE(view().isOpen());
    EXPECT_TRUE(
        idleUntil([&] { return desk->childCount(window) == 1 && desk->pixelAt(window, 700, 300) != 0; }));
}

TEST_F(HostCallsBack, TheHostHearsOfANewSizeOnce)
{
    ASSERT_TRUE(openEditor());
    view().resizeEditor(800, 400);
    view().resizeEditor(800, 400);
    EXPECT_EQ(calls[audioMasterSizeWindow], 1);
    ERect* rect = nullptr;
    ASSERT_NE(dispatch(effEditGetRect, &rect), 0);
    EXPECT_EQ(rect->right, 800);
    EXPECT_EQ(rect->bottom, 452);
    dispatch(effEditClose);
    ASSERT_TRUE(openEditor());
    EXPECT_TRUE(idleUntil([&] { return desk->pixelAt(window, 700, 300) != 0; }));
}

} // namespace
} // namespace velmora::vst24::test
