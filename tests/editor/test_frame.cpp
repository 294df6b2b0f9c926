// What a frame draws and shows: damage only, and at any zoom the same picture as from scratch.

#include "tests/editor/frame_rig.h"

#include "editor/engine/text_label.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <random>

namespace velmora::test {
namespace {

class FrameTest : public FrameRig {};

TEST_F(FrameTest, OnlyWhatIsDirtyIsDrawnAndShown)
{
    DragControl& left = add<DragControl>(rectAt(0.0, 0.0, 30.0, 20.0));
    DragControl& right = add<DragControl>(rectAt(100.0, 50.0, 30.0, 20.0));
    frame->paint();
    EXPECT_EQ(screen->presentedArea(), kWidth * kHeight) << "first all of it";

    screen->forgetPresented();
    left.draws = right.draws = 0;
    left.setValue(0.5);
    left.setValue(0.6);
    left.setDirty(true);
    frame->paint();
    EXPECT_EQ(screen->presented, std::vector{rectAt(10.0, 30.0, 30.0, 20.0)});
    EXPECT_EQ(left.draws, 1);
    EXPECT_EQ(right.draws, 0);

    screen->presents = 0;
    left.setValue(0.6);
    frame->paint();
    EXPECT_EQ(screen->presents, 0) << "nothing has changed";

    screen->forgetPresented();
    right.setRect(rectAt(140.0, 50.0, 30.0, 20.0));
    panel->removeControl(&left);
    frame->paint();
    EXPECT_EQ(screen->presentedArea(), 30.0 * 20.0 + 70.0 * 20.0)
        << "old and new place, and where one has gone";
}

TEST_F(FrameTest, PartsComeOutAsTheWholeWouldAtAnyZoom)
{
    std::mt19937 random(3);
    for (const double zoom : {1.0, 1.1, 1.25, 1.5, 1.75, 2.0, 0.7}) {
        open(zoom);
        std::vector<DragControl*> controls;
        for (int i = 0; i < 12; ++i)
            controls.push_back(&add<DragControl>(rectAt((i % 4) * 43.3, (i / 4) * 37.7, 50.0, 45.5)));
        if (zoom > 1.2) panel->setBackgroundColor({40, 44, 48, 255});
        auto& text = add<QORTextLabel>(rectAt(20.25, 30.5, 120.0, 18.0), 900, "Velmora");
        frame->paint();
        for (int step = 0; step < 40; ++step) {
            for (int i = 0; i < 3; ++i)
                controls[random() % controls.size()]->setValue(static_cast<int>(random() % 100) / 100.0);
            if (step % 10 == 0) text.setText(std::to_string(random()));
            frame->paint();
        }
        const auto inParts = screen->pixels;
        frame->outermost().invalidate();
        frame->paint();
        int worst = 0; // of a colour; edges of curves come out a little differently where they are cut
        for (std::size_t i = 0; i < inParts.size(); ++i)
            for (int shift = 0; shift < 32; shift += 8)
                worst = std::max(worst, std::abs(static_cast<int>(inParts[i] >> shift & 0xFF) -
                                                 static_cast<int>(screen->pixels[i] >> shift & 0xFF)));
        std::cout << "zoom " << zoom << ": at most " << worst << " of 255 apart\n";
        EXPECT_LE(worst, 4) << "zoom " << zoom;
    }
}

TEST_F(FrameTest, WhatIsShownLiesInTheWindow)
{
    open(1.1);
    screen->events.push_back([](auto& to) { to.onExposed({-50.0, -50.0, 5000.0, 30.5}); });
    add<DragControl>(rectAt(150.0, 100.0, 5000.0, 5000.0)).setDirty(true);
    poll();
    frame->paint();
    for (const Rect& rect : screen->presented) {
        EXPECT_EQ(intersection(rect, rectAt(0.0, 0.0, screen->width, screen->height)), rect);
        EXPECT_EQ(rect.left, std::floor(rect.left));
        EXPECT_EQ(rect.bottom, std::floor(rect.bottom));
    }
}

TEST_F(FrameTest, ContinuousRedrawComesWithEveryPaintUntilItEnds)
{
    frame->paint();
    panel->setContinuousRedraw(true);
    screen->presents = 0;
    for (int i = 0; i < 5; ++i) frame->paint();
    EXPECT_EQ(screen->presents, 5);
    panel->setContinuousRedraw(false);
    frame->paint();
    screen->presents = 0;
    for (int i = 0; i < 5; ++i) frame->paint();
    EXPECT_EQ(screen->presents, 0);
}

TEST_F(FrameTest, ADeadWindowIsLeftAlone)
{
    DragControl& control = add<DragControl>(rectAt(0.0, 0.0, 30.0, 20.0));
    screen->alive = false;
    control.setValue(0.5);
    screen->press(15.0, 35.0);
    poll();
    frame->paint();
    EXPECT_EQ(screen->presents, 0);
    EXPECT_EQ(control.log, "");
}

TEST_F(FrameTest, DrawingMayChangeWhatIsDrawn)
{
    DragControl& control = add<DragControl>(rectAt(0.0, 0.0, 30.0, 20.0));
    DragControl& other = add<DragControl>(rectAt(50.0, 0.0, 30.0, 20.0));
    control.onDraw = [&] {
        panel->removeControl(&other);
        frame->resize(kWidth + 40.0, kHeight + 40.0);
        panel->redraw();
        add<DragControl>(rectAt(90.0, 0.0, 30.0, 20.0));
        control.onDraw = nullptr;
    };
    frame->paint();
    frame->paint();
    EXPECT_EQ(screen->width, 280);
    EXPECT_EQ(screen->height, 240);
    EXPECT_EQ(other.draws, 0);
}

TEST_F(FrameTest, TagsAreFoundByPlace)
{
    add<DragControl>(rectAt(0.0, 0.0, 30.0, 20.0), 77);
    DragControl& above = add<DragControl>(rectAt(10.0, 0.0, 30.0, 20.0), 78);
    EXPECT_EQ(panel->getTagAt({12.0, 12.0}, 0), 77u);
    EXPECT_EQ(panel->getTagAt({22.0, 12.0}, 0), 78u);
    above.setMouseEnabled(false);
    EXPECT_EQ(panel->getTagAt({22.0, 12.0}, 0), 77u);
    EXPECT_EQ(panel->getTagAt({100.0, 100.0}, 0), kNoTag);
}

} // namespace
} // namespace velmora::test
