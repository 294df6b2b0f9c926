#include "tools/render/arguments.h"

#include "tools/common/command_line.h"
#include "tools/common/user_error.h"

namespace velmora::render {

namespace {

constexpr int kMaxBlock = 65536;
constexpr double kMaxTail = 3600.0;

void addOptions(CLI::App& app, Arguments& arguments)
{
    app.add_option("IN", arguments.input, "Recording to process (WAV, FLAC), 44100 to 384000 Hz");
    app.add_option("OUT", arguments.output, "Result: .wav (32-bit float) or .flac (24-bit)");
    app.add_option("--side-chain", arguments.sideChain, "Key signal for the side-chain inputs, at IN's rate")
        ->type_name("FILE");
    CLI::Option* file =
        app.add_option("--preset", arguments.preset, "Preset to start from")->type_name("FILE.qor");
    app.add_option("--factory", arguments.factory, "Factory preset to start from")
        ->type_name("NAME|ID")
        ->excludes(file);
    app.add_option("--set", arguments.settings,
                   "Set a parameter by its name and a text, e.g. \"Mstr:Gain=-6\"; may be repeated")
        ->type_name("NAME=TEXT")
        ->allow_extra_args(false);
    app.add_option("--automate", arguments.automation,
                   "Parameter changes over time, one a line: seconds,name,text")
        ->type_name("FILE.csv");
    app.add_option("--block", arguments.block, "Frames that one process call hands over")
        ->type_name("N")
        ->capture_default_str()
        ->check(CLI::Range(1, kMaxBlock));
    app.add_flag("--double", arguments.doublePrecision, "Process in double precision instead of single");
    app.add_option("--tail", arguments.tail, "Seconds of silence to process after the end of IN")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, kMaxTail));
    app.add_option("--save-preset", arguments.savePreset, "Save the state that the settings made")
        ->type_name("FILE.qor");
    CLI::Option* list = app.add_flag("--list-parameters", arguments.listParameters,
                                     "Print the parameters and what they take");
    app.add_flag("--csv", arguments.csv, "With --list-parameters: as comma-separated values")->needs(list);
    app.add_option("--plugin", arguments.plugin, "The plug-in to load (default: the one beside this program)")
        ->type_name("PATH");
}

} // namespace

std::optional<Arguments> parseArguments(int argc, const char* const* argv)
{
    Arguments arguments;
    CLI::App app("Runs a recording through the QOR Velmora Mono plug-in, by its VST interface.",
                 "velmora-render");
    addOptions(app, arguments);
    if (!parseCommandLine(app, argc, argv)) return std::nullopt;
    if (!arguments.listParameters && (arguments.input.empty() || arguments.output.empty()))
        throw UserError("two files are needed, IN and OUT, as in: velmora-render voice.wav louder.wav --set "
                        "\"Mstr:Gain=6\"");
    return arguments;
}

} // namespace velmora::render
