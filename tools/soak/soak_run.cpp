#include "tools/soak/soak_run.h"

#include "tools/render/interruption.h"
#include "tools/soak/memory_reading.h"
#include "tools/soak/player.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <string>

namespace velmora::soak {

namespace {

/// A library whose preamps number from the start, whatever was loaded before.
struct FreshPlayer {
    FreshPlayer(const std::filesystem::path& path, int earlierInstances)
        : library(path), player(library, earlierInstances)
    {
    }
    host::PluginLibrary library;
    Player player;
};

/// Readings behind blocks of a few samples would cost more than the audio.
constexpr std::int64_t kMeterInterval = 64;

constexpr double kSilence = 1e-6;

/// The first use of a module touches memory that its instance has had all along: up to half a mebibyte in
/// each of eleven preamps.
constexpr std::int64_t kResidentAllowance = 8 << 20;
constexpr std::int64_t kHeapAllowance = 64 << 10;

class Run {
public:
    Run(const SoakPlan& plan, std::uint64_t seed)
        : plan_(plan),
          scenario_(seed, plan.cast,
                    plan.reference.empty() ? Scenario::Denormals::Included : Scenario::Denormals::LeftOut),
          tested_(plan.plugin, scenario_.earlierInstances())
    {
        if (plan.reference.empty()) return;
        reference_.emplace(plan.reference, scenario_.earlierInstances());
        figures_.comparison.emplace();
    }

    RunFigures play()
    {
        std::optional<MemoryReading> halfWay;
        while (figures_.seconds < plan_.seconds && !render::interrupted()) {
            playStep();
            if (!halfWay && figures_.seconds >= 0.5 * plan_.seconds) halfWay = readMemory();
        }
        if (halfWay) checkMemory(*halfWay);
        return figures_;
    }

private:
    void playStep()
    {
        const Step& step = scenario_.next();
        if (plan_.trace) trace(step);
        tested_.player.play(step);
        if (reference_) {
            reference_->player.play(step);
            figures_.comparison->add(tested_.player, reference_->player, figures_.frames, step.stripOn);
        }
        const bool repaired = step.stripOn || !scenario_.rough();
        const double peak = std::max(checkedPeak(tested_.player.left(), repaired),
                                     checkedPeak(tested_.player.right(), repaired));
        if (step.stripOn) figures_.peak = std::max(figures_.peak, peak);
        if (peak > kSilence) figures_.soundingFrames += step.frames;
        figures_.frames += step.frames;
        figures_.seconds += step.frames / scenario_.sampleRate();
        ++figures_.blocks;
        if (figures_.frames >= nextMeterReading_) checkMeters();
    }

    void trace(const Step& step) const
    {
        for (const Action& action : step.actions)
            std::printf("  frame %lld: %s\n", static_cast<long long>(figures_.frames),
                        describe(action).c_str());
    }

    /// @param repaired false: broken input samples may show, as the strip is off and hands them through
    double checkedPeak(std::span<const double> samples, bool repaired) const
    {
        double peak = 0.0;
        for (std::size_t i = 0; i < samples.size(); ++i) {
            if (!std::isfinite(samples[i])) {
                if (repaired) fail("an output sample is no finite number", i);
                continue;
            }
            peak = std::max(peak, std::abs(samples[i]));
        }
        return peak;
    }

    void checkMeters()
    {
        nextMeterReading_ = figures_.frames + kMeterInterval;
        tested_.player.readMeters();
        const std::span<const float> meters = tested_.player.meters();
        for (std::size_t i = 0; i < meters.size(); ++i)
            if (!(meters[i] >= 0.0f && meters[i] <= 1.0f))
                fail("meter " + std::to_string(kFirstMeterId + i) + " shows " + std::to_string(meters[i]));
        if (!reference_) return;
        reference_->player.readMeters();
        figures_.comparison->addMeters(tested_.player, reference_->player, figures_.frames);
    }

    void checkMemory(const MemoryReading& halfWay)
    {
        const MemoryReading end = readMemory();
        figures_.residentGrowth = end.resident - halfWay.resident;
        figures_.heapGrowth = end.heap - halfWay.heap;
        if (figures_.residentGrowth > kResidentAllowance)
            fail(std::to_string(figures_.residentGrowth) + " bytes more are resident than half-way");
        if (figures_.heapGrowth > kHeapAllowance)
            fail(std::to_string(figures_.heapGrowth) + " bytes more are allocated than half-way");
    }

    [[noreturn]] void fail(const std::string& what, std::size_t frameInBlock = 0) const
    {
        const auto frame = figures_.frames + static_cast<std::int64_t>(frameInBlock);
        throw Fault("frame " + std::to_string(frame) + " (" + std::to_string(figures_.seconds) +
                    " s): " + what);
    }

    const SoakPlan& plan_;
    Scenario scenario_;
    FreshPlayer tested_;
    std::optional<FreshPlayer> reference_;
    RunFigures figures_;
    std::int64_t nextMeterReading_ = 0;
};

} // namespace

RunFigures soak(const SoakPlan& plan, std::uint64_t seed)
{
    return Run(plan, seed).play();
}

} // namespace velmora::soak
