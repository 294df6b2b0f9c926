#include "tests/presets/preset_fixtures.h"
#include "tests/presets/undo_model.h"

#include <gtest/gtest.h>

#include <iostream>

namespace velmora::test {
namespace {

class UndoRingTest : public ::testing::Test {
protected:
    UndoRingTest() { current.assign(randomPreset(1, "Start")); }

    void change(ParameterId id, double value, std::uint32_t wait)
    {
        now += wait;
        ring.noteChange(id, static_cast<double>(current.value(id)), value, now, current);
        current.setValue(id, static_cast<float>(value));
    }
    int stepsBack()
    {
        int count = 0;
        for (; ring.stepToUndo(); ring.steppedBack()) {
            EXPECT_TRUE(ring.canUndo());
            ++count;
        }
        EXPECT_FALSE(ring.canUndo());
        return count;
    }

    UndoRing ring;
    LivePreset current;
    std::uint32_t now = 0xFFFFFF00; // the clock wraps within the test
};

TEST_F(UndoRingTest, ChangesFiftyMillisecondsApartJoinAndFiftyOneApartDoNot)
{
    const Preset start = current.snapshot();
    change(40, 0.1, 1000);
    for (int i = 0; i < 20; ++i) change(40, 0.2 + i * 0.01, 50);
    change(41, 0.9, 50);
    const Preset dragged = current.snapshot();
    ASSERT_NE(ring.stepToUndo(), nullptr);
    EXPECT_TRUE(sameBytes(ring.stepToUndo()->before, start));
    EXPECT_TRUE(sameBytes(ring.stepToUndo()->after, dragged));
    change(40, 0.7, 51);
    EXPECT_TRUE(sameBytes(ring.stepToUndo()->before, dragged));
    EXPECT_EQ(stepsBack(), 2);
}

TEST_F(UndoRingTest, AChangeWithinATenThousandthMakesNoStepAndHoldsNoneOpen)
{
    change(40, 0.5, 1000);
    stepsBack();
    change(40, 0.50004, 1000);
    EXPECT_FALSE(ring.canUndo());
    change(40, 0.6, 1000);
    change(40, 0.60002, 40); // no change: the next one is 60 ms behind the last that counts
    change(40, 0.7, 20);
    EXPECT_EQ(stepsBack(), 2);
}

TEST_F(UndoRingTest, TheNinthStepDropsTheOldest)
{
    for (int step = 1; step <= 9; ++step) change(40, step * 0.1, 51);
    EXPECT_EQ(stepsBack(), 7);
    ASSERT_NE(ring.stepForward(), nullptr);
    EXPECT_EQ(ring.stepToUndo()->before.values[40], 0.2f);
    for (int step = 0; step < 6; ++step) EXPECT_NE(ring.stepForward(), nullptr);
    EXPECT_EQ(ring.stepToUndo()->after.values[40], 0.9f);
    EXPECT_FALSE(ring.canRedo());
    EXPECT_EQ(ring.stepForward(), nullptr);
}

TEST_F(UndoRingTest, AChangeBehindTwoUndosDropsWhatCouldBeRedone)
{
    for (int step = 1; step <= 4; ++step) change(40, step * 0.1, 51);
    ring.steppedBack();
    ring.steppedBack();
    EXPECT_TRUE(ring.canRedo());
    change(41, 0.123, 51);
    EXPECT_FALSE(ring.canRedo());
    EXPECT_EQ(stepsBack(), 3);
}

TEST_F(UndoRingTest, BehavesAsAPlainListUnderRandomUse)
{
    std::mt19937 random(11);
    UndoModel model;
    int undone = 0, moves = 0;
    for (int round = 0; round < 20000; ++round) {
        const ListPosition here{0, 0, static_cast<std::int32_t>(random() % 3)};
        switch (random() % 6) {
        case 0:
        case 1:
        case 2: {
            const auto id = static_cast<ParameterId>(random() % 4);
            const double value = static_cast<double>(random() % 50) * 0.02;
            constexpr std::uint32_t kWaits[] = {0, 1, 50, 51, 1000};
            const std::uint32_t wait = kWaits[random() % 5];
            model.change(id, value, now + wait, current.snapshot());
            change(id, value, wait);
            break;
        }
        case 3: {
            const ListPosition there{0, 0, static_cast<std::int32_t>(random() % 3)};
            ring.beginPresetStep(here, current);
            model.beginMove(here, current.snapshot());
            ring.endPresetStep(there);
            model.endMove(there);
            ++moves;
            break;
        }
        case 4:
            ASSERT_EQ(ring.stepToUndo() != nullptr, model.canUndo());
            if (const UndoStep* step = ring.stepToUndo()) {
                const UndoModel::Step& expected = model.back();
                ASSERT_TRUE(sameBytes(step->before, expected.before));
                ASSERT_EQ(step->isPresetChange, expected.isMove);
                if (expected.isMove) {
                    ASSERT_EQ(step->beforePosition, expected.from);
                }
                current.assign(step->before);
                ring.steppedBack();
                ++undone;
            }
            break;
        default:
            if (const UndoStep* step = ring.stepForward()) {
                ASSERT_TRUE(model.canRedo());
                const UndoModel::Step& expected = model.forward();
                ASSERT_EQ(step->isPresetChange, expected.isMove);
                if (expected.isMove) {
                    ASSERT_EQ(step->afterPosition, expected.to);
                } else {
                    ASSERT_TRUE(sameBytes(step->after, expected.after));
                    current.assign(step->after);
                }
            }
        }
        ASSERT_EQ(ring.canUndo(), model.canUndo()) << round;
        ASSERT_EQ(ring.canRedo(), model.canRedo()) << round;
    }
    std::cout << undone << " steps undone, " << moves << " moves\n";
    EXPECT_GT(undone, 1000);
}

} // namespace
} // namespace velmora::test
