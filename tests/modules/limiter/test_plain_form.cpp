#include "tests/modules/limiter/limiter_rig.h"

#include "tests/plain/limiter.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <limits>

namespace velmora::test {
namespace {

using namespace limiter;

struct Setting {
    std::int32_t type;
    int choice; // mode or shape
    bool soft;
};

std::vector<Setting> settings()
{
    std::vector<Setting> all;
    for (bool soft : {false, true}) {
        all.push_back({kOpto, 0, soft});
        all.push_back({kVca, 0, soft});
        for (int mode = 0; mode <= 2; ++mode) all.push_back({kBrickWall, mode, soft});
        for (int shape = 0; shape <= 5; ++shape) all.push_back({kSaturator, shape, soft});
    }
    return all;
}

std::string nameOf(const Setting& setting, double rate)
{
    return "type " + std::to_string(setting.type) + ", choice " + std::to_string(setting.choice) +
           (setting.soft ? ", soft, " : ", hard, ") + std::to_string(static_cast<int>(rate)) + " Hz";
}

// What happens to both forms ahead of a block: now and then a control moves, sections glide and rest.
template <typename Form>
void automate(Form& form, std::size_t block)
{
    const double position = 0.5 + 0.5 * std::sin(static_cast<double>(block));
    if (block % 97 == 50) form.set(kHighPassOffset, block % 2 == 0 ? 0.0 : position);
    if (block % 61 == 20) form.set(kCeilingOffset, 0.3 + 0.5 * position);
    if (block % 61 == 40) form.set(block % 2 == 0 ? kReleaseOffset : kAttackOffset, position);
    if (block % 61 == 40) form.set(kSmoothOffset, position);
}

template <typename Form>
void prepare(Form& form, const Setting& setting)
{
    form.set(kSoftOffset, setting.soft ? 1.0 : 0.0);
    form.set(kModeOffset, setting.choice / 10.0);
    form.set(kShapeOffset, setting.choice / 10.0);
    form.set(kAttackOffset, 0.2);
    form.set(kReleaseOffset, 0.4);
    form.set(kSmoothOffset, 0.3);
    form.set(kOutputOffset, 0.6);
    form.set(kCeilingOffset, 0.6);
    form.set(kHighPassOffset, 0.3);
}

Signal runFast(const Setting& setting, double rate, const Signal& in, std::size_t block)
{
    LimiterRig rig(setting.type, rate);
    prepare(rig, setting);
    rig.module.reset();
    Signal out;
    for (std::size_t at = 0, n = 0; at < in.size(); at += block, ++n) {
        automate(rig, n);
        const auto from = in.begin() + static_cast<std::ptrdiff_t>(at);
        const Signal part(from, from + static_cast<std::ptrdiff_t>(std::min(block, in.size() - at)));
        const Signal done = rig.run(part);
        out.insert(out.end(), done.begin(), done.end());
    }
    return out;
}

Signal runPlain(const Setting& setting, double rate, const Signal& in, std::size_t block)
{
    plain::Limiter form(setting.type, rate);
    prepare(form, setting);
    form.reset();
    Signal out = in;
    Signal key = in;
    for (std::size_t at = 0, n = 0; at < in.size(); at += block, ++n) {
        automate(form, n);
        form.process(&out[at], &key[at], static_cast<int>(std::min(block, in.size() - at)));
    }
    return out;
}

// Largest difference as a share of the peak; infinite where only one is a number.
double difference(const Signal& a, const Signal& b)
{
    double worst = 0.0;
    double highest = 1e-300;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] == b[i] || (std::isnan(a[i]) && std::isnan(b[i]))) continue;
        if (!std::isfinite(a[i]) || !std::isfinite(b[i])) return std::numeric_limits<double>::infinity();
        worst = std::max(worst, std::fabs(a[i] - b[i]));
        highest = std::max(highest, std::fabs(b[i]));
    }
    return worst / std::max(1.0, highest);
}

Signal bursts(std::size_t count)
{
    Signal in = noise(1.0, count, 11);
    for (std::size_t i = 0; i < count; ++i)
        in[i] *= 3.0 * std::pow(std::sin(7e-4 * static_cast<double>(i)), 4.0) + 1e-4;
    return in;
}

TEST(LimiterPlainForm, SoundsAlikeAtEveryBlockSizeAndRate)
{
    const Signal in = bursts(12000);
    for (const Setting& setting : settings()) {
        double worst = 0.0;
        for (double rate : {44100.0, 96000.0, 384000.0}) {
            for (std::size_t block : {1U, 2U, 3U, 4U, 5U, 17U, 63U, 64U}) {
                const double d =
                    difference(runFast(setting, rate, in, block), runPlain(setting, rate, in, block));
                EXPECT_EQ(d, 0.0) << nameOf(setting, rate) << ", block " << block;
                worst = std::max(worst, d);
            }
        }
        std::printf("type %2d choice %d %s: worst difference %.2g\n", setting.type, setting.choice,
                    setting.soft ? "soft" : "hard", worst);
    }
}

// What follows the limiter may raise a last bit of so loud a signal until it is heard.
TEST(LimiterPlainForm, FarAboveFullScaleEveryBitStays)
{
    Signal in = bursts(40000);
    for (std::size_t i = 0; i < in.size(); ++i)
        if (i / 5000 % 2 == 1) in[i] = i / 137 % 2 == 0 ? 1e6 : -1e6;
    for (const Setting& setting : settings())
        for (double rate : {44100.0, 384000.0})
            EXPECT_EQ(difference(runFast(setting, rate, in, 64), runPlain(setting, rate, in, 64)), 0.0)
                << nameOf(setting, rate);
}

TEST(LimiterPlainForm, LongSoundAtTheHighestRateAndLowestCutOffStaysAlike)
{
    const Signal in = bursts(1 << 20);
    for (int shape = 0; shape <= 5; ++shape) {
        const Setting setting{kSaturator, shape, false};
        EXPECT_EQ(difference(runFast(setting, 384000.0, in, 64), runPlain(setting, 384000.0, in, 64)), 0.0)
            << nameOf(setting, 384000.0);
    }
}

TEST(LimiterPlainForm, InstructionSetsAgreeToTheBit)
{
    const Signal in = bursts(6000);
    for (const Setting& setting : settings()) {
        const Signal reference = runFast(setting, 48000.0, in, 61);
        forEachInstructionSet([&] {
            EXPECT_EQ(difference(runFast(setting, 48000.0, in, 61), reference), 0.0)
                << nameOf(setting, 48000.0);
        });
    }
}

TEST(LimiterPlainForm, HealsAlikeFromWhatIsNoNumber)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const double kinds[] = {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e300, 4e-310};
    for (const Setting& setting : settings()) {
        for (double odd : kinds) {
            Signal in = bursts(4000);
            for (std::size_t i : {700U, 701U, 1500U}) in[i] = odd;
            const Signal plainly = runPlain(setting, 44100.0, in, 37);
            forEachInstructionSet([&] {
                EXPECT_EQ(difference(runFast(setting, 44100.0, in, 37), plainly), 0.0)
                    << nameOf(setting, 44100.0) << ", " << odd;
            });
        }
    }
}

TEST(LimiterPlainForm, SettingManyTimesIsSettingOnce)
{
    const Signal in = bursts(6000);
    for (const Variant& variant : kVariants) {
        LimiterRig once(variant.type);
        LimiterRig often(variant.type);
        for (int turn = 0; turn < 3; ++turn) {
            for (double passing : {0.9, 0.1, 0.7})
                for (ParameterId offset : {kAttackOffset, kHighPassOffset, kSmoothOffset, kReleaseOffset})
                    often.set(offset, passing);
            for (LimiterRig* rig : {&once, &often})
                for (ParameterId offset : {kReleaseOffset, kHighPassOffset, kSmoothOffset, kAttackOffset})
                    rig->set(offset, 0.2 + 0.2 * turn);
            EXPECT_EQ(once.run(in), often.run(in)) << variant.name << ", turn " << turn;
        }
    }
}

} // namespace
} // namespace velmora::test
