#include "editor/engine/fonts.h"
#include "editor/engine/resource_factory.h"
#include "editor/engine/toolkit/draw/text_measure.h"
#include "editor/engine/toolkit/draw/utf8.h"
#include "tests/editor/canvas.h"

#include <gtest/gtest.h>
#include <string>

namespace velmora::Qorvane {
namespace {

using namespace velmora::test;

TEST(ShowableText, ReplacesWhatIsNoText)
{
    const std::string mark = "\uFFFD";
    EXPECT_EQ(showableText("gr\u00fcn \U0001F600", 100), "gr\u00fcn \U0001F600");
    EXPECT_EQ(showableText("a\xFFz", 100), "a" + mark + "z");
    EXPECT_EQ(showableText("\xC0\xAF", 100), mark + mark);            // overlong
    EXPECT_EQ(showableText("\xED\xA0\x80", 100), mark + mark + mark); // half a pair
    EXPECT_EQ(showableText("\xF4\x90\x80\x80", 100), mark + mark + mark + mark);
    EXPECT_EQ(showableText("end \xE2\x82", 100), "end " + mark + mark); // cut off
    EXPECT_EQ(showableText({"1\n2\0003\x7f", 6}, 100), "1 2 3 ");
    EXPECT_EQ(showableText("ab\u20ac", 4), "ab");
}

TEST(DrawnText, StandsOnItsBaseline)
{
    Canvas canvas(100, 40);
    canvas.context.setFont(fonts::arial14.get());
    canvas.context.drawString("HHH", {10, 30});
    const Rect bounds = canvas.inked();
    EXPECT_EQ(bounds.bottom, 30.0);
    EXPECT_NEAR(bounds.left, 11, 1);
    EXPECT_NEAR(bounds.height(), 14 * 0.72, 1.0);
    EXPECT_NEAR(bounds.right, 10 + canvas.context.getStringWidth("HHH"), 2);

    Canvas twice(200, 80, 2.0);
    twice.context.setFont(fonts::arial14.get());
    twice.context.drawString("HHH", {10, 30});
    EXPECT_EQ(twice.inked().bottom, 60.0);
    EXPECT_NEAR(twice.inked().width(), 2 * bounds.width(), 3);
}

TEST(DrawnText, IsAlignedAndCutInItsRectangle)
{
    const Rect box = rectAt(20, 10, 60, 20);
    const auto inked = [&](std::string_view text, TextAlign align) {
        Canvas canvas(100, 40);
        canvas.context.setFont(fonts::arial12.get());
        canvas.context.drawStringInRect(text, box, align);
        Rect clip;
        canvas.context.getClipRect(clip);
        EXPECT_EQ(clip, rectAt(0, 0, 100, 40));
        return canvas.inked();
    };
    const Rect left = inked("HH", TextAlign::Left);
    const Rect centre = inked("HH", TextAlign::Centre);
    const Rect right = inked("HH", TextAlign::Right);
    EXPECT_NEAR(left.left, 21, 1);
    EXPECT_NEAR((centre.left + centre.right) / 2, 50, 1);
    EXPECT_NEAR(right.right, 79, 1);
    EXPECT_NEAR((centre.top + centre.bottom) / 2, 20, 0.6);
    for (const TextAlign align : {TextAlign::Left, TextAlign::Centre, TextAlign::Right}) {
        const Rect wide = inked("HHHHHHHHHHHHHHHH", align);
        EXPECT_NEAR(wide.left, 21, 1);
        EXPECT_EQ(wide.right, box.right);
    }
}

TEST(DrawnText, ShowsAnyScriptAndAnyBytes)
{
    const std::string texts[] = {"Latin",
                                 "\u041A\u0438\u0440\u0438\u043B\u043B\u0438\u0446\u0430",
                                 "\u0639\u0631\u0628\u064A",
                                 "\u4E2D\u6587\u5B57",
                                 "\U0001F600\u200D\U0001F3A4",
                                 "\xFF\xFE\x80\xC3",
                                 "line\nbreak\u2028paragraph\u2029\u202Eback",
                                 std::string(20000, 'w')};
    for (const std::string& text : texts) {
        Canvas canvas(200, 40);
        canvas.context.setFont(fonts::helvetica18.get());
        canvas.context.drawString(text, {5, 25});
        EXPECT_GT(canvas.coverage(), 20) << text;
        EXPECT_GT(canvas.context.getStringWidth(text), 10) << text;
    }
    EXPECT_EQ(textWidth("", fonts::arial12.get()), 0.0);
    EXPECT_NEAR(textWidth(std::string(4097, 'w'), nullptr), textWidth(std::string(4096, 'w'), nullptr), 0.01);
}

TEST(DrawnText, TakesTheFacesOfTheSameWidths)
{
    // Without the named faces, both come from the one family that has their widths.
    const auto arial = ResourceRef<QORFont>::adopt(createFont("Arial", 18));
    const auto stand = ResourceRef<QORFont>::adopt(createFont("Liberation Sans", 18));
    const auto sans = ResourceRef<QORFont>::adopt(createFont("sans-serif", 18));
    const std::string text = "Gain reduction 1176";
    EXPECT_EQ(textWidth(text, arial.get()), textWidth(text, stand.get()));
    EXPECT_EQ(textWidth(text, fonts::helvetica18.get()), textWidth(text, arial.get()));
    EXPECT_NE(textWidth(text, fonts::comic32.get()) / 32, textWidth(text, sans.get()) / 18);
    EXPECT_GT(textHeight(fonts::arial14.get()).ascent, textHeight(fonts::arial7.get()).ascent);
}

} // namespace
} // namespace velmora::Qorvane
