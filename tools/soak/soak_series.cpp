#include "tools/soak/soak_series.h"

#include "tools/common/user_error.h"
#include "tools/host/private_home.h"
#include "tools/render/interruption.h"
#include "tools/render/plugin_search.h"
#include "tools/soak/memory_reading.h"
#include "tools/soak/soak_run.h"

#include <algorithm>
#include <cstdio>

namespace velmora::soak {

namespace {

constexpr double kMaxDifference = 1e-9;

/// Two loads of one file would share an object, and a build that goes on would change what a later run loads.
std::filesystem::path copyOf(const std::filesystem::path& plugin, const std::filesystem::path& target)
{
    std::error_code error;
    std::filesystem::copy_file(plugin, target, error);
    if (error) throw UserError("the plug-in " + plugin.string() + " can't be read: " + error.message());
    return target;
}

std::string textOf(const WorstDifference& worst)
{
    char text[64];
    std::snprintf(text, sizeof text, worst.frame < 0 ? "%.3g" : "%.3g at frame %lld", worst.difference,
                  static_cast<long long>(worst.frame));
    return text;
}

/// The runs so far.
class Series {
public:
    void add(std::uint64_t seed, const RunFigures& figures)
    {
        seconds_ += figures.seconds;
        std::printf(
            "seed %llu: %.1f s, %lld frames in %lld blocks, %.0f %% sounding, peak %.3g, memory %+.2f MiB",
            static_cast<unsigned long long>(seed), figures.seconds, static_cast<long long>(figures.frames),
            static_cast<long long>(figures.blocks), figures.soundingShare() * 100.0, figures.peak,
            mebibytes(figures.residentGrowth));
        if (figures.comparison) addComparison(seed, *figures.comparison);
        finishLine();
    }

    void addFault(std::uint64_t seed, const Fault& fault)
    {
        ++faults_;
        std::printf("seed %llu: FAULT at %s", static_cast<unsigned long long>(seed), fault.what());
        finishLine();
    }

    bool good() const { return faults_ == 0; }

    void printTotal() const
    {
        std::printf("%.4f hours of audio, %d fault%s", seconds_ / 3600.0, faults_, faults_ == 1 ? "" : "s");
        if (compared_)
            std::printf("; worst difference of output %.3g (seed %llu), of a meter %.3g (seed %llu)", output_,
                        static_cast<unsigned long long>(outputSeed_), meter_,
                        static_cast<unsigned long long>(meterSeed_));
        std::printf("\n");
    }

private:
    void addComparison(std::uint64_t seed, const Comparison& comparison)
    {
        compared_ = true;
        std::printf(", output differs by %s, meter", textOf(comparison.output()).c_str());
        if (comparison.meter().frame >= 0) std::printf(" %d", comparison.worstMeter());
        std::printf(" by %s", textOf(comparison.meter()).c_str());
        if (comparison.firstDifference() >= 0)
            std::printf(", first at frame %lld", static_cast<long long>(comparison.firstDifference()));
        if (comparison.output().difference > output_) outputSeed_ = seed;
        if (comparison.meter().difference > meter_) meterSeed_ = seed;
        output_ = std::max(output_, comparison.output().difference);
        meter_ = std::max(meter_, comparison.meter().difference);
        if (std::max(comparison.output().difference, comparison.meter().difference) > kMaxDifference) {
            ++faults_;
            std::printf(" FAULT");
        }
    }

    static void finishLine()
    {
        std::printf("\n");
        std::fflush(stdout);
    }

    double seconds_ = 0.0;
    int faults_ = 0;
    bool compared_ = false;
    double output_ = 0.0;
    double meter_ = 0.0;
    std::uint64_t outputSeed_ = 0;
    std::uint64_t meterSeed_ = 0;
};

} // namespace

bool playSeries(const Arguments& arguments)
{
    SoakPlan plan;
    plan.cast = Cast(arguments.modules);
    plan.seconds = arguments.seconds;
    plan.trace = arguments.trace;
    const std::filesystem::path plugin = arguments.plugin.empty() ? render::findPlugin() : arguments.plugin;
    const host::PrivateHome home;
    plan.plugin = copyOf(plugin, home.folder() / "tested.so");
    if (!arguments.reference.empty())
        plan.reference = copyOf(arguments.reference, home.folder() / "reference.so");

    Series series;
    const std::uint64_t end = arguments.seed + static_cast<std::uint64_t>(arguments.runs);
    for (std::uint64_t seed = arguments.seed; seed != end && !render::interrupted(); ++seed) {
        try {
            series.add(seed, soak(plan, seed));
        } catch (const Fault& fault) {
            series.addFault(seed, fault);
        }
    }
    series.printTotal();
    return series.good();
}

} // namespace velmora::soak
