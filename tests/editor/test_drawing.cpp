#include "editor/engine/toolkit/draw/offscreen_context.h"
#include "tests/editor/canvas.h"

#include <array>
#include <gtest/gtest.h>
#include <limits>
#include <numbers>

namespace velmora::Qorvane {
namespace {

using namespace velmora::test;

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(Drawing, FillsToTheEdgesAndStrokesInside)
{
    Canvas canvas(20, 20);
    canvas.context.setFillColor(kRed);
    canvas.context.setFrameColor(kBlue);
    canvas.context.drawRect(rectAt(2, 3, 10, 8), DrawStyle::FilledAndStroked);
    EXPECT_EQ(canvas.inked(), rectAt(2, 3, 10, 8));
    EXPECT_EQ(canvas.at(2, 3), kBluePixel);
    EXPECT_EQ(canvas.at(11, 10), kBluePixel);
    EXPECT_EQ(canvas.at(3, 4), kRedPixel);
    EXPECT_EQ(canvas.at(10, 9), kRedPixel);

    Canvas hollow(20, 20);
    hollow.context.setFrameColor(kBlue);
    hollow.context.setLineWidth(2.0);
    hollow.context.drawRect(rectAt(2, 3, 10, 8), DrawStyle::Stroked);
    EXPECT_EQ(hollow.at(3, 4), kBluePixel);
    EXPECT_EQ(hollow.at(4, 5), kBlankPixel);
    EXPECT_EQ(hollow.inked(), rectAt(2, 3, 10, 8));

    Canvas thin(20, 20); // stroke and nothing else
    thin.context.setLineWidth(6.0);
    thin.context.drawRect(rectAt(2, 3, 10, 3), DrawStyle::Stroked);
    EXPECT_EQ(thin.inked(), rectAt(2, 3, 10, 3));
}

TEST(Drawing, LinesOfOddWidthHaveTheirOwnPixels)
{
    Canvas canvas(20, 20);
    canvas.context.setFrameColor(kBlue);
    canvas.context.drawLine(2, 3, 6, 3);
    canvas.context.moveTo({2, 8});
    canvas.context.lineTo({2, 12});
    canvas.context.lineTo({6, 12});
    for (int i = 2; i <= 6; ++i) {
        EXPECT_EQ(canvas.at(i, 3), kBluePixel) << i;
        EXPECT_EQ(canvas.at(i, 12), kBluePixel) << i;
        EXPECT_EQ(canvas.at(2, i + 6), kBluePixel) << i;
    }
    EXPECT_NEAR(canvas.coverage(), 5 + 5 + 4, 1e-9);
}

TEST(Drawing, RoundShapesCoverTheirArea)
{
    const Rect square = rectAt(10, 10, 80, 80);
    const double disc = std::numbers::pi * 40 * 40;
    struct Case {
        double from, to, share;
    };
    for (const auto& [from, to, share] :
         {Case{0, 90, 0.25}, Case{-90, 180, 0.75}, Case{270, 360 + 90, 0.5}}) {
        Canvas canvas(100, 100);
        canvas.context.drawArc(square, from, to, DrawStyle::Filled);
        EXPECT_NEAR(canvas.coverage() / disc, share, 0.003) << from;
    }
    Canvas quarter(100, 100); // clockwise from 3 o'clock: bottom right
    quarter.context.drawArc(square, 0, 90, DrawStyle::Filled);
    EXPECT_NE(quarter.at(60, 60), kBlankPixel);
    EXPECT_EQ(quarter.inked(), rectAt(50, 50, 40, 40));

    Canvas ellipse(100, 100);
    ellipse.context.drawEllipse(rectAt(10, 20, 80, 40), DrawStyle::Filled);
    EXPECT_NEAR(ellipse.coverage() / (disc / 2), 1.0, 0.003);
    Canvas ring(100, 100);
    ring.context.setLineWidth(4);
    ring.context.drawEllipse(square, DrawStyle::Stroked);
    EXPECT_NEAR(ring.coverage() / disc, 1 - 36.0 * 36.0 / (40.0 * 40.0), 0.003);
    EXPECT_EQ(ring.inked(), square);

    Canvas rounded(100, 100);
    rounded.context.drawRoundRect(square, 10, DrawStyle::Filled);
    EXPECT_NEAR(rounded.coverage(), 6400 - (4 - std::numbers::pi) * 100, 3.0);
    rounded.context.drawRoundRect(square, 1000, DrawStyle::FilledAndStroked); // no more than a disc
    EXPECT_EQ(rounded.inked(), square);
}

TEST(Drawing, TakesThe64FirstPointsOfAPolygon)
{
    std::array<Point, 66> points;
    points.fill({10, 10});
    points[62] = {20, 10};
    points[63] = {20, 20};
    points[64] = {0, 30};
    Canvas canvas(40, 40);
    canvas.context.drawPolygon(points.data(), 66, DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(10, 10, 10, 10));
    canvas.context.drawPolygon(nullptr, 3, DrawStyle::Filled);
    canvas.context.drawPolygon(points.data(), -1, DrawStyle::Filled);
}

TEST(Drawing, ClipsInOwnCoordinatesWithinTheLimits)
{
    Canvas canvas(100, 100);
    auto& context = canvas.context;
    context.setFillColor(kRed);
    context.pushLimit(rectAt(20, 20, 50, 50));
    context.setOrigin({10, 10});
    context.pushLimit(rectAt(0, 0, 30, 30)); // 10..40 of the whole
    context.setClipRect(rectAt(15, 15, 200, 200));
    Rect clip;
    context.getClipRect(clip);
    EXPECT_EQ(clip, rectAt(15, 15, 15, 15));
    context.drawRect(rectAt(0, 0, 100, 100), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(25, 25, 15, 15));

    context.resetClipRect();
    context.drawRect(rectAt(0, 0, 100, 100), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(20, 20, 20, 20));
    context.popLimit();
    context.drawRect(rectAt(0, 0, 100, 100), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(20, 20, 50, 50));
    context.popLimit();
    context.popLimit();                        // one too many
    context.setClipRect(rectAt(5, 5, -1, 10)); // nothing
    context.drawRect(rectAt(0, 0, 100, 100), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(20, 20, 50, 50));
}

TEST(Drawing, KeepsTheLastLimitWhenTooManyAreNested)
{
    Canvas canvas(50, 50);
    for (int i = 0; i < 40; ++i) canvas.context.pushLimit(rectAt(i, 0, 50, 50));
    for (int i = 0; i < 8; ++i) canvas.context.popLimit();
    canvas.context.drawRect(rectAt(0, 0, 50, 50), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(31, 0, 19, 50));
    for (int i = 0; i < 32; ++i) canvas.context.popLimit();
    canvas.context.drawRect(rectAt(0, 0, 50, 50), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), rectAt(0, 0, 50, 50));
}

TEST(Drawing, ZoomsEverything)
{
    Canvas canvas(40, 40, 2.0);
    canvas.context.setOrigin({3, 4});
    canvas.context.setFillColor(kRed);
    canvas.context.drawRect(rectAt(1, 1, 5, 5), DrawStyle::FilledAndStroked);
    EXPECT_EQ(canvas.inked(), rectAt(8, 10, 10, 10));
    EXPECT_EQ(canvas.at(10, 12), kRedPixel);
    canvas.context.clearRect(rectAt(1, 1, 5, 5));
    EXPECT_EQ(canvas.inked(), Rect{});
}

TEST(Drawing, LeavesOutWhatIsNoNumberAndGoesOn)
{
    Canvas canvas(20, 20);
    auto& context = canvas.context;
    for (const double bad : {kNaN, std::numeric_limits<double>::infinity(), -1e300}) {
        context.setLineWidth(kNaN);
        context.setOrigin({bad, 0});
        context.drawRect({bad, 0, 5, 5}, DrawStyle::FilledAndStroked);
        context.drawEllipse({0, bad, 5, 5}, DrawStyle::FilledAndStroked);
        context.drawArc(rectAt(0, 0, 5, 5), bad, 0, DrawStyle::FilledAndStroked);
        context.drawRoundRect(rectAt(0, 0, 5, 5), bad, DrawStyle::FilledAndStroked);
        context.drawLine(0, 0, bad, 0);
        context.moveTo({bad, bad});
        context.lineTo({bad, bad});
        context.drawPoint({bad, 0}, kRed);
        context.drawString("x", {bad, 5});
        context.drawBitmap(nullptr, {0, 0, bad, 5}, {0, 0}, 1.0);
        context.clearRect({bad, 0, 0, 0});
    }
    for (const double side : {1e-200, 4.9e-324})
        context.drawEllipse(rectAt(0, 0, side, side), DrawStyle::Filled);
    EXPECT_EQ(canvas.inked(), Rect{});
    context.setClipRect({kNaN, 0, 5, 5});
    context.resetClipRect();
    context.drawPoint({4, 4}, kRed);
    EXPECT_EQ(canvas.inked(), rectAt(4, 4, 1, 1));
    EXPECT_EQ(canvas.at(4, 4), kRedPixel);
}

TEST(Offscreen, CopiesItsPartToAnotherContext)
{
    const auto offscreen = ResourceRef<CQOROffscreenContext>::adopt(new CQOROffscreenContext(20, 10));
    offscreen->setFillColor(kRed);
    offscreen->drawRect(rectAt(5, 5, 4, 4), DrawStyle::Filled);
    EXPECT_EQ(offscreen->getBitmap()->getWidth(), 20);
    offscreen->setOffset({5, 4});
    Canvas canvas(30, 30);
    offscreen->copyTo(&canvas.context, rectAt(10, 10, 15, 6));
    EXPECT_EQ(canvas.inked(), rectAt(10, 11, 4, 4));
    EXPECT_EQ(canvas.at(10, 11), kRedPixel);
    offscreen->copyTo(nullptr, rectAt(0, 0, 5, 5));

    const auto pixel = ResourceRef<QORBitmapPixelAcces>::adopt(offscreen->getBitmap()->getPixelAccess());
    ASSERT_TRUE(pixel->setPosition(5, 5));
    Rgba colour;
    pixel->getColor(colour);
    EXPECT_EQ(colour, kRed);
}

TEST(Offscreen, WithoutASurfaceDrawsNothing)
{
    for (const auto& [width, height] :
         {std::pair{0.5, 10.0}, {10.0, 0.0}, {kNaN, 5.0}, {1e9, 5.0}, {5.0, -3.0}}) {
        const auto none = ResourceRef<CQOROffscreenContext>::adopt(new CQOROffscreenContext(width, height));
        none->drawRect(rectAt(0, 0, 5, 5), DrawStyle::Filled);
        none->drawString("text", {0, 5});
        Canvas canvas(10, 10);
        none->copyTo(&canvas.context, rectAt(0, 0, 10, 10));
        EXPECT_EQ(canvas.inked(), Rect{});
        EXPECT_EQ(none->getBitmap(), nullptr);
    }
}

} // namespace
} // namespace velmora::Qorvane
