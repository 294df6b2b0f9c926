#include "tools/soak/arguments.h"

#include "tools/common/command_line.h"

namespace velmora::soak {

namespace {

constexpr double kSecondsPerHour = 3600.0;
constexpr double kMaxSeconds = 1000.0 * kSecondsPerHour;
constexpr int kMaxRuns = 1000000;

} // namespace

std::optional<Arguments> parseArguments(int argc, const char* const* argv)
{
    Arguments arguments;
    double hours = 0.0;
    CLI::App app("Plays random sessions through the QOR Velmora Mono plug-in and looks for faults.",
                 "velmora-soak");
    CLI::Option* seconds = app.add_option("--seconds", arguments.seconds, "Seconds of audio in a run")
                               ->capture_default_str()
                               ->check(CLI::Range(0.001, kMaxSeconds));
    app.add_option("--hours", hours, "The same in hours")
        ->check(CLI::Range(1e-6, kMaxSeconds / kSecondsPerHour))
        ->excludes(seconds);
    app.add_option("--seed", arguments.seed, "Seed of the first run; each further run takes the next")
        ->capture_default_str();
    app.add_option("--runs", arguments.runs, "Runs, each with a fresh instance")
        ->capture_default_str()
        ->check(CLI::Range(1, kMaxRuns));
    app.add_option(
           "--module", arguments.modules,
           "Only this module sounds: a kind (input, filters, expander, compressor, eq, limiter, output, "
           "deesser, dehummer, marlow) or one by its name, e.g. \"FET Levelor\"; may be repeated")
        ->type_name("NAME")
        ->allow_extra_args(false);
    app.add_option(
           "--against", arguments.reference,
           "Plays the same, without denormal samples, through another build and fails if they differ by "
           "more than 1e-9")
        ->type_name("PATH");
    app.add_flag("--trace", arguments.trace, "Print everything that is done to the plug-in");
    app.add_option("--plugin", arguments.plugin, "The plug-in to load (default: the one beside this program)")
        ->type_name("PATH");
    if (!parseCommandLine(app, argc, argv)) return std::nullopt;
    if (hours > 0.0) arguments.seconds = hours * kSecondsPerHour;
    return arguments;
}

} // namespace velmora::soak
