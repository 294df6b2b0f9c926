// What instances cost a host in memory. The order counts: once instances have been closed, the allocator
// hands out used pages, and nothing tells what a new instance costs.

#include "params/parameter_ids.h"
#include "tests/support/plugin_host.h"
#include "tools/soak/memory_reading.h"

#include <gtest/gtest.h>

#include <cmath>
#include <iostream>
#include <memory>
#include <vector>

namespace velmora::test {
namespace {

constexpr ParameterId kPreampType = 16;
constexpr ParameterId kNoise = 41;
constexpr float kPre70s = 3.0f / 15.0f;
constexpr float kNoiseOn = 1.0f;
constexpr float kAutoMute = 0.5f;
constexpr double kHistoryMebibytes = 0.5; // of the one preamp in use; an instance holds eleven

double residentMebibytes()
{
    return soak::mebibytes(soak::readMemory().resident);
}

/// Plays into every plug-in with the noise of its preamp set so.
void playAll(std::vector<std::unique_ptr<RunningPlugin>>& plugins, float noiseMode)
{
    static const Signal input = noise(512, 0.3);
    for (auto& plugin : plugins) {
        plugin->setParameter(kPreampType, kPre70s);
        plugin->setParameter(kNoise, noiseMode);
        for (int block = 0; block < 128; ++block) runPlugin(*plugin, input, 512); // once through the history
    }
}

/// A session's instances, each of them playing.
std::vector<std::unique_ptr<RunningPlugin>> openSession()
{
    constexpr int kInstances = 16;
    std::vector<std::unique_ptr<RunningPlugin>> plugins;
    for (int i = 0; i < kInstances; ++i) plugins.push_back(std::make_unique<RunningPlugin>());
    playAll(plugins, kNoiseOn);
    return plugins;
}

TEST(InstanceMemory, IsSmallUntilTheNoiseMutesItself)
{
    auto plugins = openSession(); // brings the library's own pages into memory
    const double start = residentMebibytes();
    auto more = openSession();
    const double playing = residentMebibytes();
    playAll(more, kAutoMute);
    const double muting = residentMebibytes();

    const auto instances = static_cast<double>(more.size());
    std::cout << (playing - start) / instances << " MiB resident for an instance, "
              << (muting - playing) / instances << " more once its noise mutes itself\n";
    EXPECT_LT((playing - start) / instances, 2.0);
    EXPECT_NEAR((muting - playing) / instances, kHistoryMebibytes, 0.1)
        << "touched before it was needed, or not seen here";
}

// The allocator gives an instance what earlier ones gave back, and no longer fresh pages.
TEST(InstanceMemory, IsSmallWhenASessionIsOpenedAgain)
{
    const RunningPlugin keepsTheLibrary;
    const double start = residentMebibytes();
    for (int session = 1; session <= 4; ++session) {
        const auto plugins = openSession();
        const double instance = (residentMebibytes() - start) / static_cast<double>(plugins.size());
        std::cout << "session " << session << ": " << instance << " MiB resident for an instance\n";
        EXPECT_LT(instance, 2.0);
    }
}

TEST(InstanceMemory, ComesBackAfterTwoHundredRounds)
{
    const Signal input = noise(512);
    const auto rounds = [&](int count) {
        for (int round = 0; round < count; ++round) {
            RunningPlugin plugin({48000.0, 512, true});
            runPlugin(plugin, input, 512);
        }
        return residentMebibytes();
    };
    const double start = rounds(1);
    const double growth = rounds(200) - start;
    std::cout << growth << " MiB more resident behind 200 rounds\n";
    EXPECT_LT(std::abs(growth), 1.0);
}

} // namespace
} // namespace velmora::test
