#include "modules/input/console_emulation.h"
#include "tests/plain/preamp_console.h"
#include "tests/support/gap.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdio>
#include <limits>
#include <numbers>
#include <random>
#include <vector>

namespace velmora::test {
namespace {

using preamp::ConsoleEmulation;
using preamp::NoiseMode;
using preamp::RailBlocks;

/// A session of pieces of all lengths, with a level for each stretch of them, while drive, noise and decade
/// move.
struct Session {
    double rate;
    int pieces;
    bool hostile; ///< carries NaN, denormals, giants and infinities
};

constexpr double kGiant = 2.0; // no ordinary programme comes out as loud
constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::array kOddities{std::nan(""), 5e-324, 1e6, -kInfinity, -1e-310, 1e200, -1e6, kInfinity, 1e3};

/// A circuit never comes back by itself from what has no square; another rate clears it.
bool endless(double oddity)
{
    return !std::isfinite(oddity * oddity);
}

template <typename Console>
std::vector<double> play(Console& console, int emulation, const Session& session)
{
    std::mt19937 random(19);
    std::uniform_real_distribution<double> unit(-1.0, 1.0);
    console.setSampleRate(session.rate);
    console.select(emulation);
    std::vector<double> out;
    double phase = 0.0;
    for (int piece = 0; piece < session.pieces; ++piece) {
        if (piece % 97 == 0) {
            console.setDrive(0.5 + 0.5 * unit(random));
            console.setNoiseLevel(0.5 + 0.5 * unit(random));
            console.setNoiseMode(static_cast<NoiseMode>(piece / 97 % 3));
        }
        if (piece % 301 == 300) console.select(emulation);
        if (session.hostile && piece % 501 == 500) console.reset();
        const int count = piece < 128 ? piece / 2 + 1 : 64 - (piece % 7 == 0 ? piece % 59 : 0);
        const double level = std::pow(10.0, -(piece / 50 % 6));
        RailBlocks blocks{};
        for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) {
            phase += 2.0 * std::numbers::pi * 220.0 / session.rate;
            blocks[0][i] = level * (std::sin(phase) + 0.3 * unit(random));
            blocks[1][i] = piece % 200 < 150 ? blocks[0][i] : level * unit(random);
        }
        const unsigned round = static_cast<unsigned>(piece / 40);
        if (session.hostile && piece % 40 == 7)
            blocks[round % 2][static_cast<unsigned>(piece % count)] = kOddities[round % kOddities.size()];
        if (piece % 40 == 12 && endless(kOddities[round % kOddities.size()]) && session.hostile)
            console.setSampleRate(session.rate);
        console.run(blocks, count);
        for (const auto& rail : blocks) out.insert(out.end(), rail.begin(), rail.begin() + count);
        out.push_back(console.saturationLevel());
    }
    return out;
}

struct Difference {
    double worst = 0.0; ///< of the reference's peak, which a giant raises for a short while only
    std::size_t unequal = 0;
    std::size_t silent = 0; ///< zero or no number in the reference
};

Difference compare(const std::vector<double>& reference, const std::vector<double>& other)
{
    constexpr double kFade = 0.9999; // per value
    Difference difference;
    if (reference.size() != other.size()) return {kInfinity, reference.size(), 0};
    double usual = 1.0;
    for (const double value : reference)
        if (std::fabs(value) < kGiant) usual = std::max(usual, std::fabs(value));
    double peak = usual;
    for (std::size_t i = 0; i < reference.size(); ++i) {
        difference.silent += reference[i] == 0.0 || std::isnan(reference[i]);
        peak = std::max(usual, kFade * peak);
        if (std::isfinite(reference[i])) peak = std::max(peak, std::fabs(reference[i]));
        if (std::bit_cast<std::uint64_t>(reference[i]) == std::bit_cast<std::uint64_t>(other[i])) continue;
        ++difference.unequal;
        difference.worst = std::max(difference.worst, gapBetween(reference[i], other[i]) / peak);
    }
    return difference;
}

// The curves of the 60s come from other functions than the C library's; everything else keeps every bit.
TEST(ConsoleKernel, SoundsAsThePlainConsoleOnEveryInstructionSet)
{
    for (const double rate : {44100.0, 192000.0, 384000.0}) {
        for (const bool hostile : {false, true}) {
            const Session session{rate, hostile ? 2100 : 6000, hostile};
            for (int emulation = preamp::kPre60s; emulation <= preamp::kAdc90s; ++emulation) {
                plain::Console plainConsole(5);
                const std::vector<double> reference = play(plainConsole, emulation, session);
                std::vector<double> first;
                forEachInstructionSet([&] {
                    ConsoleEmulation console(5);
                    const std::vector<double> fast = play(console, emulation, session);
                    ASSERT_EQ(fast.size(), reference.size());
                    if (first.empty()) first = fast;
                    EXPECT_EQ(compare(first, fast).unequal, 0u) << "instruction sets agree";
                });
                const Difference difference = compare(reference, first);
                std::printf(
                    "decade %d at %.0f Hz%s: %.2g off the plain form, %zu of %zu unequal, %zu silent\n",
                    emulation, rate, hostile ? ", hostile" : "", difference.worst, difference.unequal,
                    reference.size(), difference.silent);
                // The converter rounds quiet stretches to zero.
                EXPECT_LT(difference.silent, emulation == preamp::kAdc90s ? reference.size() / 3 : 1);
                if (emulation == preamp::kPre60s)
                    EXPECT_LT(difference.worst, 1e-11);
                else
                    EXPECT_EQ(difference.unequal, 0u);
            }
        }
    }
}

// As a session moves from one decade to the other, and to another rate while the converter is on, whose noise
// keeps values of the decade before it.
TEST(ConsoleKernel, ChangesOfDecadeAndRateLeaveTheStateOfThePlainConsole)
{
    const auto wander = [](auto& console) {
        console.setNoiseMode(NoiseMode::On);
        std::vector<double> out;
        for (const int emulation : {4, 3, 5, 4, 5, 3})
            for (const double rate : {44100.0, 96000.0}) {
                for (const double value : play(console, emulation, {rate, 120, false})) out.push_back(value);
                console.reset();
            }
        return out;
    };
    plain::Console plainConsole(11);
    ConsoleEmulation console(11);
    EXPECT_EQ(compare(wander(plainConsole), wander(console)).unequal, 0u);
}

} // namespace
} // namespace velmora::test
