// Properties that every module must have at every place of the rack.

#include "tests/engine/placed_module.h"
#include "tests/support/measure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>

namespace velmora::test {
namespace {

/// A test per module; `everywhere` runs a check at each of its places.
class AllModules : public testing::TestWithParam<ModuleType> {
protected:
    template <typename Check>
    void everywhere(Check check)
    {
        for (const Place& place : placesOf(GetParam())) {
            SCOPED_TRACE(nameOf(place));
            check(place);
        }
    }
    /// The defaults and three settings drawn at random.
    std::vector<Values> settings() const
    {
        const ModuleType& type = GetParam();
        return {defaultsOf(type), randomValues(type, 1), randomValues(type, 2), randomValues(type, 3)};
    }
};

INSTANTIATE_TEST_SUITE_P(Rack, AllModules, testing::ValuesIn(moduleTypes().begin(), moduleTypes().end()),
                         testName);

/// Bursts and rests, so that whatever detects has something to follow.
Signal programme(std::size_t frames, double level = 0.7, unsigned seed = 1)
{
    Signal signal = noise(frames, level, seed);
    for (std::size_t i = 0; i < frames; ++i)
        if (i / 1500 % 3 == 2) signal[i] *= 0.02;
    return signal;
}

/// Nothing at any input.
Signal runSilence(PlacedModule& rig, double seconds)
{
    const Signal quiet = silence(rig.samples(seconds));
    const int lengths[] = {1 << 20};
    return rig.run(quiet, quiet, lengths);
}

// The bias of the 70s settles behind its high-pass; nothing else makes a sound of its own.
double ownSound(const ModuleType& type)
{
    return type.kind == ModuleKind::Preamp && type.variant == 3 ? 1e-5 : 0.0;
}

TEST_P(AllModules, SilenceStaysSilentAndMetersComeToRest)
{
    constexpr double kStep = 0.5;     // seconds between two looks at the meters
    constexpr double kPatience = 8.0; // what follows a 300 ms programme most slowly is an optical cell
    double loudest = 0.0, tail = 0.0, slowest = 0.0;
    everywhere([&](const Place& place) {
        for (const Values& values : settings()) {
            PlacedModule rig(place, values);
            const double level = peak(runSilence(rig, 0.2));
            EXPECT_LE(level, ownSound(place.type));
            loudest = std::max(loudest, level);

            rig.run(programme(rig.samples(0.3)));
            double seconds = 0.0;
            std::vector<double> before, now = rig.meters();
            do {
                before = now;
                tail = peak(runSilence(rig, kStep));
                now = rig.meters();
                seconds += kStep;
            } while (seconds < kPatience && !(maxDifference(now, before) < 1e-3 && now[0] < 1e-4));
            EXPECT_LT(seconds, kPatience);
            EXPECT_LE(tail, ownSound(place.type) + 1e-6);
            slowest = std::max(slowest, seconds);
        }
    });
    std::printf("own sound %.2g; meters at rest %.1f s behind a programme, the tail then at %.2g\n", loudest,
                slowest, tail);
}

TEST_P(AllModules, BlocksMaySplitAtAnyPiece)
{
    const std::vector<std::vector<int>> splits{{64}, {192, 64, 1024, 128}};
    everywhere([&](const Place& place) {
        for (const Values& values : settings()) {
            PlacedModule whole(place, values);
            const Signal input = programme(64 * 150 + 17);
            const Signal expected = whole.run(input, {1 << 20});
            ASSERT_TRUE(allFinite(expected));
            for (const auto& lengths : splits) {
                PlacedModule split(place, values);
                EXPECT_EQ(maxDifference(split.run(input, lengths), expected), 0.0);
                EXPECT_EQ(split.meters(), whole.meters());
                EXPECT_EQ(split.reading(kTotalGainReductionId), whole.reading(kTotalGainReductionId));
            }
        }
    });
}

TEST_P(AllModules, SoundsTheSameAtEveryPlace)
{
    const std::vector<Place> places = placesOf(GetParam());
    const Signal input = programme(20000);
    for (const Values& values : settings()) {
        PlacedModule first(places[0], values);
        const Signal expected = first.run(input);
        for (std::size_t i = 1; i < places.size(); ++i) {
            SCOPED_TRACE(nameOf(places[i]));
            PlacedModule other(places[i], values);
            EXPECT_EQ(maxDifference(other.run(input), expected), 0.0);
            EXPECT_EQ(other.meters(), first.meters());
        }
    }
}

/// What a host may send by mistake, with the strip's limit behind it; then the rest of a piece is silent.
Signal burst()
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    Signal samples{std::nan(""), kInfinity, -kInfinity, 1e9, -1e300, 1e6, -1e6, 1e6};
    samples.resize(64);
    return samples;
}

/// How long a module may take back to what a twin does that got ordinary full scale instead, in seconds.
double recoverySeconds(const ModuleType& type)
{
    if (type.kind == ModuleKind::Limiter && type.variant == 1)
        return 45.0; // the optical cell falls by at most 0.06 of the ceiling per sample
    return type.kind == ModuleKind::Output ? 20.0 : 4.0; // the RMS meter starts from a square
}

TEST_P(AllModules, ComesBackFromABurstByItself)
{
    constexpr double kStep = 0.1;
    const double limit = recoverySeconds(GetParam());
    double sound = 0.0, reading = 0.0;
    everywhere([&](const Place& place) {
        PlacedModule calm(place, defaultsOf(place.type));
        PlacedModule hit(place, defaultsOf(place.type));
        Signal fullScale = silence(64);
        std::fill_n(fullScale.begin() + 3, 5, 1.0); // lights a clip lamp too
        calm.run(fullScale);
        EXPECT_TRUE(allFinite(hit.run(burst())));
        EXPECT_TRUE(allFinite(hit.meters()));

        double seconds = 0.0;
        bool apart = true, metersApart = true;
        for (unsigned seed = 0; (apart || metersApart) && seconds < limit; ++seed, seconds += kStep) {
            const Signal input = programme(calm.samples(kStep), 0.7, seed);
            const Signal expected = calm.run(input), output = hit.run(input);
            ASSERT_TRUE(allFinite(output));
            apart = maxDifference(output, expected) > 1e-5 * peak(expected);
            metersApart = maxDifference(hit.meters(), calm.meters()) > 1e-4;
            if (apart) sound = std::max(sound, seconds + kStep);
            if (metersApart) reading = std::max(reading, seconds + kStep);
        }
        EXPECT_LT(seconds, limit);
    });
    std::printf("sound back %.1f s behind a burst of 1e6, meters %.1f s\n", sound, reading);
}

TEST_P(AllModules, TheRoadToARateDoesNotMatter)
{
    everywhere([&](const Place& place) {
        for (const Values& values : {settings()[0], settings()[2]}) {
            for (const double rate : kRates) {
                PlacedModule walker(place, values);
                for (const double between : kRates) walker.effect.setSampleRate(between);
                walker.effect.setSampleRate(rate);
                PlacedModule direct(place, values, rate);
                for (PlacedModule* rig : {&walker, &direct}) {
                    rig->set(values); // a write may take over what stands at that moment: the rate, the gain
                    rig->effect.reset();
                }
                const Signal input = programme(4000);
                EXPECT_EQ(maxDifference(walker.run(input), direct.run(input)), 0.0) << rate;
                EXPECT_EQ(walker.meters(), direct.meters()) << rate;
            }
        }
    });
}

TEST_P(AllModules, ARateChangeInMidStreamStaysFinite)
{
    everywhere([&](const Place& place) {
        for (const Values& values : settings()) {
            PlacedModule rig(place, values);
            rig.run(programme(4000));
            for (const double rate : {384000.0, 44100.0, 192000.0, 48000.0, 96000.0, 88200.0}) {
                rig.effect.setSampleRate(rate);
                EXPECT_TRUE(allFinite(rig.run(programme(3000)))) << rate;
                EXPECT_TRUE(allFinite(rig.meters())) << rate;
            }
        }
    });
}

// A module that comes back must be as one that stayed and was set up again: the rate, the values, a reset.
// Values carry over from another variant; from another kind, and between specials, the own ones are defaults.
TEST_P(AllModules, SwappedOutAndBackKeepsItsSettingsWithinItsKindOnly)
{
    const ModuleType& type = GetParam();
    const Values values = randomValues(type, 5);
    Values defaults = defaultsOf(type);
    for (const auto offset : {kSideChainOffset, kMonitorOffset})
        defaults[static_cast<unsigned>(offset)] = values[static_cast<unsigned>(offset)];
    const Signal input = programme(6000);

    for (const Role role : {Role::InsertX, Role::InsertY}) {
        const Place place{role, type};
        const auto stayed = [&](const Values& then) {
            PlacedModule rig(place, values);
            rig.run(input);
            rig.effect.setSampleRate(88200.0);
            rig.effect.setSampleRate(44100.0);
            rig.set(then);
            rig.effect.reset();
            return rig.run(input);
        };
        const Signal kept = stayed(values), restarted = stayed(defaults);
        for (const ModuleType& between : moduleTypes()) {
            const bool carries = between.kind == type.kind && type.kind != ModuleKind::Special;
            if (between.code == type.code || !(carries || between.variant == 1)) continue;
            SCOPED_TRACE(nameOf(place) + " with " + std::string(between.listName) + " between");
            PlacedModule rig(place, values);
            rig.run(input);
            rig.choose({role, between});
            if (type.kind == ModuleKind::Preamp) rig.set(kPreampNoiseIn, 0.0);
            rig.run(input);
            rig.choose(place);
            if (type.kind == ModuleKind::Preamp) rig.set(kPreampNoiseIn, 0.0);
            EXPECT_EQ(maxDifference(rig.run(input), carries ? kept : restarted), 0.0);
        }
    }
}

TEST_P(AllModules, RandomAutomationStaysFinite)
{
    everywhere([&](const Place& place) {
        PlacedModule rig(place, defaultsOf(place.type));
        std::mt19937 random(11);
        std::uniform_real_distribution<double> unit(0.0, 1.0);
        const int lengths[] = {1 << 20};
        for (int block = 0; block < 600; ++block) {
            for (int change = 0; change < 4; ++change) {
                const ParameterId offset = kSideChainOffset + static_cast<ParameterId>(random() % 43);
                if (travels(offset)) rig.set(offset, unit(random));
            }
            const double level = std::pow(10.0, 12.0 * unit(random) - 6.0);
            const auto frames = 1 + random() % 300;
            const Signal main = noise(frames, level, random()), key = noise(frames, level, random());
            ASSERT_TRUE(allFinite(rig.run(main, key, lengths))) << "block " << block;
            // Levels may go above full scale, the preamp's behind its gain too; all else is a share.
            const std::size_t levels = place.type.kind == ModuleKind::Preamp ? 3 : 2;
            const std::vector<double> meters = rig.meters();
            for (std::size_t m = 0; m < meters.size(); ++m) {
                const double highest = m < levels ? std::numeric_limits<double>::max() : 1.0;
                ASSERT_TRUE(meters[m] >= 0.0 && meters[m] <= highest) << "block " << block << " meter " << m;
            }
        }
    });
}

/// Moves anything that a host can move in a rack whose nine positions are all filled and mostly at work.
class RandomHand {
public:
    RandomHand(KnownStrip& strip, unsigned seed) : strip_(strip), random_(seed)
    {
        for (const RoleWindow& window : kRoleWindows) fill(window);
    }

    void moveOne()
    {
        const auto id = static_cast<ParameterId>(random_() % kHostParameterCount);
        const RoleWindow* window = windowOf(id);
        const ParameterId offset = window != nullptr ? id - window->windowBase : -1;
        if (offset == kTypeOffset)
            fill(*window);
        else if (offset == kPositionOffset)
            exchange(static_cast<std::size_t>(window->role), random_() % kRoleCount);
        else if (id == kProcessId)
            strip_.effect.setParameter(id, below(8) == 0 ? 0.0 : 1.0);
        else if (offset == kMuteOffset || offset == kSoloOffset || offset == kMonitorOffset)
            strip_.effect.setParameter(id, below(12) == 0 ? 1.0 : 0.0);
        else
            strip_.effect.setParameter(id, unit());
    }

    double unit() { return static_cast<double>(random_()) / 4294967295.0; }
    unsigned below(unsigned limit) { return static_cast<unsigned>(random_() % limit); }
    double level() { return std::pow(10.0, 12.0 * unit() - 6.0); }

private:
    void fill(const RoleWindow& window)
    {
        const ModuleType* type = nullptr;
        do {
            type = &moduleTypes()[below(static_cast<unsigned>(moduleTypes().size()))];
        } while (!isInsert(window.role) && type->kind != window.kind);
        strip_.choose({window.role, *type});
    }
    void exchange(std::size_t a, std::size_t b)
    {
        std::swap(positions_[a], positions_[b]);
        for (const std::size_t role : {a, b})
            strip_.set(static_cast<Role>(role), kPositionOffset, positions_[role] / 8.0);
    }

    KnownStrip& strip_;
    std::mt19937 random_;
    std::array<int, kRoleCount> positions_{0, 1, 2, 3, 4, 5, 6, 7, 8};
};

TEST(WholeRack, RandomAutomationOfEveryParameterStaysFinite)
{
    const int lengths[] = {1 << 20};
    double loudest = 0.0;
    for (const double rate : {44100.0, 96000.0, 384000.0}) {
        KnownStrip strip;
        strip.effect.setSampleRate(rate);
        strip.effect.reset();
        RandomHand hand(strip, 5);
        for (unsigned block = 0; block < 4000; ++block) {
            SCOPED_TRACE(block);
            for (int change = 0; change < 8; ++change) hand.moveOne();
            const std::size_t frames = 1 + hand.below(200);
            const Signal main = noise(frames, hand.level(), block);
            const Signal output = strip.run(main, noise(frames, hand.level(), block + 1), lengths);
            ASSERT_TRUE(allFinite(output));
            loudest = std::max(loudest, peak(output));
            ASSERT_TRUE(strip.allMetersFinite());
            for (ParameterId id = kFirstMeterId; id <= kTotalGainReductionId; ++id) {
                if (id > kLastModuleMeterId && id < kTotalGainReductionId) continue;
                const double reading = strip.reading(id);
                ASSERT_TRUE(reading >= 0.0 && reading <= 1.0) << id;
            }
        }
    }
    std::printf("loudest output %.3g\n", loudest);
}

} // namespace
} // namespace velmora::test
