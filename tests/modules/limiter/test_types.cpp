#include "tests/modules/limiter/limiter_rig.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace velmora::test {
namespace {

using namespace limiter;

TEST(LimiterTypes, OffPassesThroughAndShowsNoReduction)
{
    for (const Variant& variant : kVariants) {
        LimiterRig rig(variant.type);
        rig.run(noise(8.0, 44100));
        EXPECT_GT(rig.reduction(), 0.3) << variant.name;
        rig.setType(kThrough);
        EXPECT_EQ(rig.reduction(), 0.0);
        rig.module.resetMeters();
        const Signal in = noise(0.5, 6400);
        EXPECT_EQ(rig.run(in), in);
        EXPECT_EQ(rig.reduction(), 0.0);
        EXPECT_EQ(rig.meter(0), rig.meter(1));
        EXPECT_GT(rig.meter(0), 0.1);
    }
}

TEST(LimiterTypes, UndefinedModeOrShapePassesThrough)
{
    const Signal loud = noise(8.0, 44100);
    LimiterRig wall(kBrickWall);
    LimiterRig saturator(kSaturator);
    for (int step = 0; step <= 10; ++step) {
        wall.setMode(step);
        EXPECT_EQ(wall.run(loud) == loud, step > 2) << "mode " << step;
        EXPECT_EQ(wall.reduction() == 0.0, step > 2);
        saturator.setShape(step);
        EXPECT_EQ(saturator.run(loud) == loud, step > 5) << "shape " << step;
        EXPECT_EQ(saturator.reduction() == 0.0, step > 5);
    }
    // The choices belong to their own variant alone.
    saturator.setShape(0);
    saturator.setMode(9);
    EXPECT_NE(saturator.run(loud), loud);
}

TEST(LimiterTypes, UndefinedTypeLeavesTheBuffersAlone)
{
    const Signal in = noise(8.0, 640);
    for (std::int32_t type = 0; type < 16; ++type) {
        if (type == kThrough || limits(type)) continue;
        LimiterRig rig(kOpto);
        rig.run(in);
        rig.setType(type);
        EXPECT_EQ(rig.run(in), in);
        EXPECT_EQ(rig.lastRight, constant(0.25, in.size())) << "type " << type;
        EXPECT_EQ(rig.reduction(), 0.0);
    }
}

TEST(LimiterTypes, ChangeRestartsTheDetectorsAndRepetitionDoesNot)
{
    const Signal loud = constant(8.0, 4410);
    for (const Variant& variant : kVariants) {
        LimiterRig plain(variant.type);
        LimiterRig repeated(variant.type);
        plain.run(loud);
        repeated.run(loud);
        repeated.setType(variant.type);
        EXPECT_EQ(plain.run(loud), repeated.run(loud)) << variant.name;
    }
    // There and back: what was held at +18 dB lets go at once. The VCA restarts at the ceiling's level.
    for (std::int32_t type : {kVca, kBrickWall}) {
        LimiterRig rig(type);
        rig.run(loud);
        const double before = rig.run(constant(1e-6, 1)).front() / 1e-6;
        rig.setType(kThrough);
        rig.setType(type);
        const double after = rig.run(constant(1e-6, 1)).front() / 1e-6;
        std::printf("type %d: gain %.3f before, %.3f after a change there and back\n", type, before, after);
        EXPECT_LT(before, 0.5);
        EXPECT_NEAR(after, 1.0, 0.01);
    }
}

TEST(LimiterTypes, ControlsMovedElsewhereHoldWhenTheTypeComes)
{
    // Attack, Release and Smooth mean something else at each type; a change of type takes them all over.
    const Signal in = noise(4.0, 6400);
    for (const Variant& variant : kVariants) {
        LimiterRig before(kThrough);
        LimiterRig after(variant.type);
        for (LimiterRig* rig : {&before, &after}) {
            rig->set(kAttackOffset, 0.3);
            rig->set(kSmoothOffset, 0.7);
            rig->set(kReleaseOffset, 0.2);
        }
        after.setType(kThrough);
        before.setType(variant.type);
        after.setType(variant.type);
        EXPECT_EQ(before.run(in), after.run(in)) << variant.name;
    }
}

TEST(LimiterTypes, DeactivatedPassesThroughAndActivationStartsClean)
{
    const Signal loud = noise(8.0, 6400);
    const Signal in = noise(0.8, 6400, 9);
    for (const Variant& variant : kVariants) {
        LimiterRig rig(variant.type);
        rig.run(loud);
        rig.module.deactivate();
        EXPECT_EQ(rig.reduction(), 0.0);
        EXPECT_EQ(rig.run(in), in) << variant.name;
        rig.module.activate();
        LimiterRig fresh(variant.type);
        const bool same = rig.run(in) == fresh.run(in);
        EXPECT_EQ(same, variant.type != kVca) << variant.name; // the VCA's followers outlive a reset
    }
}

TEST(LimiterTypes, ResetLandsOnTheTargets)
{
    for (const Variant& variant : kVariants) {
        LimiterRig landed(variant.type);
        landed.setOutputDb(-9.0);
        landed.setCeilingDb(-20.0);
        landed.set(kHighPassOffset, 0.8);
        landed.module.reset();
        const Signal in = constant(1e-4, 128);
        const Signal out = landed.run(in);
        EXPECT_NEAR(out.back() / out[64], 1.0, variant.type == kSaturator ? 0.2 : 1e-3) << variant.name;
        EXPECT_NEAR(toDb(out.front() / 1e-4), -9.0, 0.05) << variant.name;
        EXPECT_GE(landed.meter(0), 0.0);
        landed.module.reset();
        for (std::uint32_t meter = 0; meter < 3; ++meter) EXPECT_EQ(landed.meter(meter), 0.0);
    }
}

TEST(LimiterTypes, MetersOfTheEnginesPassThroughGoToRest)
{
    LimiterRig rig(kOpto);
    rig.run(noise(8.0, 6400));
    rig.module.resetMeters();
    for (std::uint32_t meter = 0; meter < 3; ++meter) EXPECT_EQ(rig.meter(meter), 0.0);
    EXPECT_EQ(rig.meter(3), -1.0); // an index that the module doesn't know
}

TEST(LimiterTypes, RateIsHeldWithinItsRange)
{
    for (const Variant& variant : kVariants) {
        const Signal in = noise(2.0, 3200);
        EXPECT_EQ(LimiterRig(variant.type, 8000.0).run(in), LimiterRig(variant.type, 44100.0).run(in));
        EXPECT_EQ(LimiterRig(variant.type, 1e6).run(in), LimiterRig(variant.type, 384000.0).run(in));
    }
}

TEST(LimiterTypes, DefaultsLeaveAQuietSignalAtItsLevel)
{
    LimiterRig rig(kBrickWall);
    rig.setOutputDb(12.0);
    rig.setMode(7);
    rig.setSoft(true);
    rig.module.loadDefaults();
    rig.module.reset();
    const Signal in = noise(0.5, 6400);
    EXPECT_EQ(rig.run(in), in); // 0 dB of output, ceiling 0 dB, hard, mode 1
}

} // namespace
} // namespace velmora::test
