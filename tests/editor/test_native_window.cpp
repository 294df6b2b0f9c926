#include "tests/editor/window_test.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <filesystem>
#include <fstream>

namespace velmora::test {
namespace {

constexpr std::uint32_t kRed = 0xFFC00000, kGreen = 0xFF00C000;
constexpr std::uint32_t kShownRed = 0xC00000, kShownGreen = 0x00C000;

std::ptrdiff_t openFiles()
{
    const std::filesystem::directory_iterator files("/proc/self/fd");
    return std::distance(begin(files), end(files));
}

/// Mappings of shared pixels in this process.
std::ptrdiff_t pixelMappings()
{
    std::ifstream maps("/proc/self/maps");
    std::ptrdiff_t count = 0;
    for (std::string line; std::getline(maps, line);) count += line.find("velmora-pixels") != line.npos;
    return count;
}

TEST_F(WindowTest, ShowsWhatIsDrawnInTheHostsWindow)
{
    EXPECT_NE(window->id(), 0U);
    EXPECT_EQ(host->childCount(parent), 1);
    const auto embedding = host->takeProperty(window->id(), host->atom("_XEMBED_INFO"));
    EXPECT_EQ(embedding, std::string("\0\0\0\0\1\0\0\0", 8)) << "version 0, mapped";
    EXPECT_TRUE(pollUntil([&] { return !notes.exposed.empty(); }));
    EXPECT_EQ(notes.exposed[0], rectAt(0, 0, 200, 100));
    paint(rectAt(0, 0, 200, 100), kRed);
    EXPECT_EQ(shown(0, 0), kShownRed);
    EXPECT_EQ(shown(199, 99), kShownRed);
    EXPECT_EQ(shown(200, 99), 0U) << "beyond our window";

    // Only what is damaged is sent, even if more was drawn.
    const Qorvane::PixelBuffer pixels = window->pixels();
    for (int i = 0; i < pixels.stride * pixels.height; i += 4)
        std::copy_n(reinterpret_cast<const std::uint8_t*>(&kGreen), 4, pixels.bytes + i);
    const Rect damage[] = {
        rectAt(10, 20, 30, 5), {}, rectAt(190.5, 90.5, 100, 100), rectAt(-50, -50, 51, 51)};
    window->present(damage);
    EXPECT_EQ(shown(10, 20), kShownGreen);
    EXPECT_EQ(shown(39, 24), kShownGreen);
    EXPECT_EQ(shown(40, 24), kShownRed);
    EXPECT_EQ(shown(10, 25), kShownRed);
    EXPECT_EQ(shown(190, 90), kShownGreen) << "a pixel that is touched";
    EXPECT_EQ(shown(189, 90), kShownRed);
    EXPECT_EQ(shown(0, 0), kShownGreen);
    EXPECT_EQ(shown(1, 1), kShownRed);
}

TEST_F(WindowTest, ResizesAndStaysUsableInAnySize)
{
    for (const auto& [width, height] : {std::pair{333, 222}, {1, 1}, {350, 40}}) {
        window->resize(width, height);
        const Qorvane::PixelBuffer pixels = window->pixels();
        ASSERT_EQ(pixels.width, width);
        ASSERT_EQ(pixels.height, height);
        EXPECT_TRUE(
            std::all_of(pixels.bytes, pixels.bytes + pixels.stride * height, [](auto b) { return b == 0; }));
        paint(rectAt(0, 0, width, height), kGreen);
        EXPECT_EQ(shown(width - 1, height - 1), kShownGreen);
    }
    window->resize(-5, 0);
    EXPECT_EQ(window->pixels().width, 1);
    EXPECT_EQ(window->pixels().height, 1);
}

TEST_F(WindowTest, FollowsAHostWithAlphaAndRefusesWhatIsNoWindow)
{
    parent = host->openWindow(500, 50, 100, 100, true);
    window = open(50, 50);
    ASSERT_TRUE(window);
    paint(rectAt(0, 0, 50, 50), kRed);
    EXPECT_EQ(shown(49, 49), kShownRed);

    EXPECT_FALSE(Qorvane::openX11Window(0, 10, 10));
    EXPECT_FALSE(Qorvane::openX11Window(0x12345678, 10, 10));
    setenv("DISPLAY", ":9999", 1);
    EXPECT_FALSE(open());
    unsetenv("DISPLAY");
    EXPECT_FALSE(open());
}

TEST_F(WindowTest, DiesWithTheHostsWindowButNothingElseDoes)
{
    window->takeKeyboard();
    host->closeWindow(parent);
    EXPECT_TRUE(pollUntil([&] { return !window->isAlive(); }));
    Point point;
    std::uint32_t buttons = 0;
    paint(rectAt(0, 0, 10, 10), kRed);
    window->resize(300, 300);
    window->takeKeyboard();
    window->returnKeyboard();
    window->offerText("text");
    window->requestText();
    EXPECT_FALSE(window->queryPointer(point, buttons));
    window.reset();
    EXPECT_TRUE(host->isConnected());
}

/// The signal of a broken pipe, which a host may count or not care for, must not be ours.
TEST_F(WindowTest, OutlivesTheServer)
{
    static volatile sig_atomic_t brokenPipes = 0;
    std::signal(SIGPIPE, [](int) { brokenPipes = brokenPipes + 1; });
    auto second = open();
    auto third = open();
    window->takeKeyboard();
    server.kill();
    // One learns it from a write, one from a read, one only when it closes.
    paint(rectAt(0, 0, 10, 10), kRed);
    window->resize(300, 300);
    paint(rectAt(0, 0, 300, 300), kRed);
    second->pollEvents(notes);
    EXPECT_FALSE(window->isAlive());
    EXPECT_FALSE(second->isAlive());
    third.reset();
    for (auto* each : {&window, &second}) {
        Point point;
        std::uint32_t buttons = 0;
        (*each)->pollEvents(notes);
        (*each)->takeKeyboard();
        (*each)->returnKeyboard();
        (*each)->offerText("text");
        (*each)->requestText();
        EXPECT_FALSE((*each)->queryPointer(point, buttons));
        EXPECT_NE((*each)->pixels().bytes, nullptr);
        each->reset();
    }
    EXPECT_EQ(brokenPipes, 0);
    std::signal(SIGPIPE, SIG_DFL);
}

TEST_F(WindowTest, LeavesNothingBehind)
{
    window.reset();
    const auto filesBefore = openFiles();
    for (int i = 0; i < 50; ++i) {
        window = open();
        ASSERT_TRUE(window);
        paint(rectAt(0, 0, 200, 100), kRed);
        window->resize(210, 100);
        paint(rectAt(0, 0, 210, 100), kGreen);
        if (i % 10 == 0) window->takeKeyboard();
        window->pollEvents(notes);
        EXPECT_EQ(pixelMappings(), 1);
        window.reset();
    }
    EXPECT_EQ(openFiles(), filesBefore);
    EXPECT_EQ(pixelMappings(), 0);
    host->sync();
    EXPECT_EQ(host->childCount(parent), 0);
}

/// Nothing waits for long while the server doesn't answer, for instance because the host has stopped it.
TEST_F(WindowTest, WaitsBoundedly)
{
    using Clock = std::chrono::steady_clock;
    server.pause();
    const auto start = Clock::now();
    paint(rectAt(0, 0, 100, 100), kRed);
    window->pixels();
    const auto drawn = Clock::now();
    window->pollEvents(notes);
    Point point;
    std::uint32_t buttons = 0;
    EXPECT_FALSE(window->queryPointer(point, buttons));
    window->offerText("text");
    window->requestText();
    const auto asked = Clock::now();
    server.resume();
    const auto inMilliseconds = [](auto from, auto to) {
        return std::chrono::duration_cast<std::chrono::milliseconds>(to - from).count();
    };
    std::printf("drawing waited %ld ms, two questions %ld ms\n", inMilliseconds(start, drawn),
                inMilliseconds(drawn, asked));
    EXPECT_LT(inMilliseconds(start, drawn), 300);
    EXPECT_LT(inMilliseconds(drawn, asked), 1500);
    EXPECT_TRUE(window->isAlive());
    EXPECT_TRUE(pollUntil([this] { return shown(99, 99) == kShownRed; }));
}

/// As on another machine: everything goes through the connection, in pieces.
class WithoutSharedMemory : public WindowTest {
protected:
    WithoutSharedMemory() : WindowTest("MIT-SHM") {}
};

TEST_F(WithoutSharedMemory, ShowsTheSame)
{
    parent = host->openWindow(0, 0, 1600, 800);
    window = open(1515, 712);
    ASSERT_TRUE(window);
    const Qorvane::PixelBuffer pixels = window->pixels();
    const auto colourAt = [](int x, int y) { return static_cast<std::uint32_t>(x << 12 | y); };
    for (int y = 0; y < pixels.height; ++y)
        for (int x = 0; x < pixels.width; ++x)
            reinterpret_cast<std::uint32_t*>(pixels.bytes + y * pixels.stride)[x] = colourAt(x, y);
    const Rect right = rectAt(700, 0, 815, 712);
    window->present({&right, 1});
    window->resize(1515, 712); // another picture: nothing of it is sent
    Point point;
    std::uint32_t buttons = 0;
    window->queryPointer(point, buttons);
    for (const auto& [x, y] : {std::pair{700, 0}, {1514, 0}, {1000, 74}, {1001, 75}, {900, 400}, {1514, 711}})
        EXPECT_EQ(shown(x, y), colourAt(x, y)) << x << ", " << y;
    EXPECT_EQ(shown(699, 300), 0U);
}

/// The pixels that are handed out for drawing aren't read any more.
TEST_F(WindowTest, DrawsOnlyOverWhatTheServerHasRead)
{
    const Rect all = rectAt(0, 0, 400, 300);
    window->resize(400, 300);
    for (std::uint32_t i = 0; i < 200; ++i) {
        paint(all, 0xFF000000 | i);
        ASSERT_EQ(shown(399, 299), i);
    }
}

TEST(ImageWindow, KeepsPixelsAndNothingElse)
{
    const auto image = Qorvane::openImageWindow(30, 20);
    EXPECT_TRUE(image->isAlive());
    EXPECT_EQ(image->id(), 0U);
    image->resize(0, 40);
    const Qorvane::PixelBuffer pixels = image->pixels();
    EXPECT_EQ(pixels.width, 1);
    EXPECT_EQ(pixels.height, 40);
    EXPECT_EQ(pixels.bytes[pixels.stride * 39 + 3], 0);
}

} // namespace
} // namespace velmora::test
