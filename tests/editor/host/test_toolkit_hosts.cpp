#include "tests/editor/host/host_screen.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

namespace velmora::test {
namespace {

/// A host program with a toolkit and main loop of its own.
void runHost(const char* program)
{
    HostScreen screen;
    ASSERT_TRUE(screen.isReady()) << "no Xvfb";
    privateHome();
    const ProgramResult result = runProgram(program, {pluginPath().string()});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* trouble : {"X Error", "BadWindow", "BadMatch", "CRITICAL", "QXcbConnection: XCB error"})
        EXPECT_EQ(result.err.find(trouble), std::string::npos) << result.err;
}

#ifdef VELMORA_GTK_HOST
TEST(ToolkitHosts, Gtk)
{
    runHost(VELMORA_GTK_HOST);
}
#endif

#ifdef VELMORA_QT_HOST
TEST(ToolkitHosts, Qt)
{
    runHost(VELMORA_QT_HOST);
}
#endif

} // namespace
} // namespace velmora::test
