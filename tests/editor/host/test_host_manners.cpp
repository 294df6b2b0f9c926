#include "tests/editor/host/host_screen.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>
#include <thread>

namespace velmora::test {
namespace {

/// The built plug-in in a host with a screen.
class HostManners : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(screen->isReady()) << "no Xvfb";
        window = screen->openWindow();
    }

    void expectRect()
    {
        vst24::ERect* rect = nullptr;
        ASSERT_NE(plugin->dispatch(vst24::effEditGetRect, 0, 0, &rect), 0);
        ASSERT_NE(rect, nullptr);
        EXPECT_EQ(rect->top, 0);
        EXPECT_EQ(rect->left, 0);
        EXPECT_EQ(rect->bottom, HostScreen::kHeight);
        EXPECT_EQ(rect->right, HostScreen::kWidth);
    }
    /// Idles until the window shows the editor.
    bool appears(const host::LoadedPlugin& which, xcb_window_t where)
    {
        return comesTrue([&] {
            idleEditor(which);
            return screen->showsPicture(where);
        });
    }
    /// The editor's window has gone from the host's.
    bool hasLeft(xcb_window_t where)
    {
        return comesTrue([&] { return screen->childOf(where) == XCB_NONE; });
    }

    std::unique_ptr<HostScreen> screen = std::make_unique<HostScreen>();
    std::unique_ptr<RunningPlugin> plugin = std::make_unique<RunningPlugin>();
    xcb_window_t window = XCB_NONE;
};

TEST_F(HostManners, TellsItsSizeBeforeAndAfterItOpens)
{
    EXPECT_NE(plugin->effect().flags & vst24::effFlagsHasEditor, 0);
    expectRect();
    ASSERT_TRUE(openEditor(*plugin, window));
    EXPECT_EQ(screen->sizeOf(screen->childOf(window)),
              (std::vector{HostScreen::kWidth, HostScreen::kHeight}));
    EXPECT_TRUE(appears(*plugin, window));
    expectRect();
    closeEditor(*plugin);
    expectRect();
    EXPECT_TRUE(hasLeft(window));
}

TEST_F(HostManners, OpensWithoutBeingAskedForItsSize)
{
    ASSERT_TRUE(openEditor(*plugin, window));
    EXPECT_EQ(screen->sizeOf(screen->childOf(window)),
              (std::vector{HostScreen::kWidth, HostScreen::kHeight}));
    expectRect();
}

TEST_F(HostManners, ShowsAgainWhatWasCovered)
{
    ASSERT_TRUE(openEditor(*plugin, window));
    ASSERT_TRUE(appears(*plugin, window));
    const auto before = screen->look(window);
    const xcb_window_t cover = screen->openWindow();
    idleEditor(*plugin);
    screen->client().closeWindow(cover);
    EXPECT_TRUE(comesTrue([&] {
        idleEditor(*plugin);
        return screen->look(window) == before;
    }));
}

TEST_F(HostManners, LivesOnAnyThread)
{
    const auto elsewhere = [](const auto& call) { std::thread(call).join(); };
    for (int round = 0; round < 3; ++round) {
        bool opened = false;
        elsewhere([&] { opened = openEditor(*plugin, window); });
        ASSERT_TRUE(opened);
        bool shown = false;
        elsewhere([&] { shown = appears(*plugin, window); });
        EXPECT_TRUE(shown);
        elsewhere([&] { closeEditor(*plugin); });
        EXPECT_TRUE(hasLeft(window));
    }
    std::thread([&] { openEditor(*plugin, window); }).join();
    plugin.reset(); // the main thread again
    EXPECT_TRUE(hasLeft(window));
}

// Every thread at its own pace: values from one, audio on another, the window on the third.
TEST_F(HostManners, StaysOpenWhileOtherThreadsWork)
{
    ASSERT_TRUE(openEditor(*plugin, window));
    std::atomic<bool> over = false;
    std::thread audio([&] {
        while (!over) soundPasses(*plugin);
    });
    std::thread automation([&] {
        for (int step = 0; !over; ++step)
            plugin->setParameter(step % 360, static_cast<float>(step % 100) / 100);
    });
    EXPECT_TRUE(appears(*plugin, window));
    for (int round = 0; round < 5; ++round) {
        closeEditor(*plugin);
        EXPECT_TRUE(openEditor(*plugin, window));
        for (int i = 0; i < 20; ++i) idleEditor(*plugin);
    }
    over = true;
    audio.join();
    automation.join();
}

TEST_F(HostManners, MovesWhenItIsOpenedTwice)
{
    const xcb_window_t second = screen->openWindow();
    ASSERT_TRUE(openEditor(*plugin, window));
    ASSERT_TRUE(openEditor(*plugin, second));
    EXPECT_TRUE(hasLeft(window));
    EXPECT_TRUE(appears(*plugin, second));
    ASSERT_TRUE(openEditor(*plugin, second));
    EXPECT_TRUE(comesTrue([&] { return screen->client().childCount(second) == 1; }));
    EXPECT_TRUE(appears(*plugin, second));
    closeEditor(*plugin);
    EXPECT_TRUE(hasLeft(second));
}

TEST_F(HostManners, TakesCallsOutOfOrder)
{
    closeEditor(*plugin);
    idleEditor(*plugin);
    EXPECT_EQ(plugin->dispatch(vst24::effEditKeyDown, 'a'), 0);
    EXPECT_EQ(plugin->dispatch(vst24::effEditKeyUp, 'a'), 0);
    ASSERT_TRUE(openEditor(*plugin, window));
    EXPECT_EQ(plugin->dispatch(vst24::effEditKeyDown, 'a'), 0) << "no text is edited: the key is the host's";
    closeEditor(*plugin);
    closeEditor(*plugin);
    idleEditor(*plugin);
    ASSERT_TRUE(openEditor(*plugin, window));
    EXPECT_TRUE(appears(*plugin, window));
}

TEST_F(HostManners, OutlivesItsParentWindow)
{
    for (const bool idles : {true, false}) {
        const xcb_window_t parent = screen->openWindow();
        ASSERT_TRUE(openEditor(*plugin, parent));
        ASSERT_TRUE(appears(*plugin, parent));
        screen->client().closeWindow(parent);
        for (int i = 0; idles && i < 10; ++i) idleEditor(*plugin);
        closeEditor(*plugin);
    }
    ASSERT_TRUE(openEditor(*plugin, window));
    EXPECT_TRUE(appears(*plugin, window));
}

TEST_F(HostManners, GoesWithItsInstance)
{
    ASSERT_TRUE(openEditor(*plugin, window));
    ASSERT_TRUE(appears(*plugin, window));
    plugin.reset();
    EXPECT_TRUE(hasLeft(window));
}

TEST_F(HostManners, IsOneOfTwo)
{
    RunningPlugin other;
    const xcb_window_t second = screen->openWindow();
    ASSERT_TRUE(openEditor(*plugin, window));
    ASSERT_TRUE(openEditor(other, second));
    EXPECT_TRUE(appears(other, second));
    plugin.reset();
    EXPECT_TRUE(hasLeft(window));
    const auto before = screen->look(second);
    screen->client().closeWindow(screen->openWindow()); // covers the other for a moment
    EXPECT_TRUE(comesTrue([&] {
        idleEditor(other);
        return screen->look(second) == before;
    }));
    closeEditor(other);
    EXPECT_TRUE(openEditor(other, second));
    EXPECT_TRUE(appears(other, second));
}

TEST_F(HostManners, RefusesWhatIsNoWindow)
{
    const xcb_window_t gone = screen->openWindow();
    screen->client().closeWindow(gone);
    for (const std::uintptr_t none : {std::uintptr_t{0}, std::uintptr_t{gone}, std::uintptr_t{0x1FFFFFFF},
                                      std::uintptr_t{0xFFFFFFFF}, std::uintptr_t{window} << 32})
        EXPECT_FALSE(openEditor(*plugin, none)) << std::hex << none;
    idleEditor(*plugin);
    closeEditor(*plugin);
    EXPECT_TRUE(soundPasses(*plugin));
    EXPECT_TRUE(openEditor(*plugin, window));
    EXPECT_TRUE(appears(*plugin, window));
}

TEST_F(HostManners, DoesWithoutADisplay)
{
    const std::string display = std::getenv("DISPLAY");
    unsetenv("DISPLAY");
    EXPECT_FALSE(openEditor(*plugin, window));
    for (const char* nowhere : {"", ":7654", "no display", "localhost:1000000"}) {
        setenv("DISPLAY", nowhere, 1);
        EXPECT_FALSE(openEditor(*plugin, window)) << nowhere;
    }
    expectRect();
    idleEditor(*plugin);
    EXPECT_TRUE(soundPasses(*plugin));
    setenv("DISPLAY", display.c_str(), 1);
    EXPECT_TRUE(openEditor(*plugin, window)) << "a display that came later";
    EXPECT_TRUE(appears(*plugin, window));
}

TEST_F(HostManners, OutlivesTheServer)
{
    RunningPlugin other;
    ASSERT_TRUE(openEditor(*plugin, window));
    const xcb_window_t second = screen->openWindow();
    ASSERT_TRUE(openEditor(other, second));
    ASSERT_TRUE(appears(other, second));
    idleEditor(*plugin);
    screen->server().kill();
    for (int i = 0; i < 50; ++i) {
        idleEditor(*plugin);
        plugin->setParameter(i, 0.5f);
    }
    EXPECT_EQ(plugin->dispatch(vst24::effEditKeyDown, 'a'), 0);
    expectRect();
    closeEditor(*plugin);
    EXPECT_FALSE(openEditor(*plugin, window));
    closeEditor(other); // has never noticed
    EXPECT_TRUE(soundPasses(*plugin));
    plugin.reset();

    HostScreen anew;
    ASSERT_TRUE(anew.isReady());
    const xcb_window_t later = anew.openWindow();
    EXPECT_TRUE(openEditor(other, later));
    EXPECT_TRUE(comesTrue([&] {
        idleEditor(other);
        return anew.showsPicture(later);
    }));
}

} // namespace
} // namespace velmora::test
