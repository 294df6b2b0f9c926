#include "tests/editor/host/host_screen.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>

#include <X11/Xlib.h>

namespace velmora::test {
namespace {

int abortOnError(Display*, XErrorEvent* event)
{
    std::fprintf(stderr, "the host was told of X error %d\n", event->error_code);
    std::abort();
}

int abortOnLoss(Display*)
{
    std::fputs("the host was told of a lost server\n", stderr);
    std::abort();
}

/// A host that talks to the display by Xlib and takes every error for the end.
class XlibHost {
public:
    XlibHost() : display(XOpenDisplay(nullptr))
    {
        XSetErrorHandler(abortOnError);
        XSetIOErrorHandler(abortOnLoss);
    }
    ~XlibHost()
    {
        EXPECT_EQ(XSetErrorHandler(nullptr), abortOnError) << "another handler was put in place";
        EXPECT_EQ(XSetIOErrorHandler(nullptr), abortOnLoss);
    }
    XlibHost(const XlibHost&) = delete;
    XlibHost& operator=(const XlibHost&) = delete;

    Window openWindow() const
    {
        const Window window = XCreateSimpleWindow(display, DefaultRootWindow(display), 0, 0,
                                                  HostScreen::kWidth, HostScreen::kHeight, 0, 0, 0);
        XMapWindow(display, window);
        XSync(display, False);
        return window;
    }

    Display* display;
};

TEST(ForeignHandlers, HearOfNoErrorOfOurs)
{
    HostScreen screen;
    ASSERT_TRUE(screen.isReady()) << "no Xvfb";
    XlibHost host;
    ASSERT_NE(host.display, nullptr);
    RunningPlugin plugin;
    const auto idle = [&] {
        for (int i = 0; i < 20; ++i) idleEditor(plugin);
        XSync(host.display, False);
    };

    EXPECT_FALSE(openEditor(plugin, 0x1FFFFFFF));
    idle();

    const Window first = host.openWindow();
    ASSERT_TRUE(openEditor(plugin, first));
    ASSERT_TRUE(comesTrue([&] {
        idleEditor(plugin);
        return screen.showsPicture(static_cast<xcb_window_t>(first));
    }));
    XDestroyWindow(host.display, first);
    idle();
    closeEditor(plugin);
    idle();

    const Window second = host.openWindow();
    ASSERT_TRUE(openEditor(plugin, second));
    XDestroyWindow(host.display, second);
    XSync(host.display, False);
    closeEditor(plugin);

    ASSERT_TRUE(openEditor(plugin, host.openWindow()));
    idle();
    screen.server().kill();
    for (int i = 0; i < 20; ++i) idleEditor(plugin);
    closeEditor(plugin);
    EXPECT_TRUE(soundPasses(plugin));
}

} // namespace
} // namespace velmora::test
