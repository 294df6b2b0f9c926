#include "editor/engine/toolkit/lazy/open_toolkit.h"

#include <gtest/gtest.h>

extern "C" void* cairo_create(void* target);

namespace velmora::Qorvane {
namespace {

TEST(TrampolinesDeathTest, NameTheFunctionThatIsCalledTooEarly)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // a process of its own, where nothing is open yet
    EXPECT_DEATH(cairo_create(nullptr), "cairo_create was called before its library was open");
}

TEST(Trampolines, FindEveryFunctionOfTheLists)
{
    EXPECT_TRUE(openToolkit());
    EXPECT_STREQ(missingFromToolkit(), "");
}

} // namespace
} // namespace velmora::Qorvane
