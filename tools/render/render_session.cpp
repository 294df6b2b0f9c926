#include "tools/render/render_session.h"

#include "presets/preset_file.h"
#include "presets/preset_library.h"
#include "tools/common/factory_lookup.h"
#include "tools/common/user_error.h"
#include "tools/host/private_home.h"
#include "tools/render/audio_file.h"
#include "tools/render/automation_plan.h"
#include "tools/render/input_feed.h"
#include "tools/render/interruption.h"
#include "tools/render/level_figures.h"
#include "tools/render/plugin_search.h"
#include "tools/render/preset_exchange.h"
#include "tools/render/progress_bar.h"
#include "tools/render/strip_channels.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <fstream>
#include <memory>
#include <optional>

namespace velmora::render {

namespace {

struct RenderFigures {
    LevelFigures in;
    LevelFigures out;
    std::int64_t frames = 0;
};

/// A result that took the place of something it was made from couldn't be made again.
void refuseToOverwrite(const Arguments& arguments)
{
    for (const std::filesystem::path& source :
         {arguments.input, arguments.sideChain, arguments.preset, arguments.automation}) {
        std::error_code ignored;
        for (const std::filesystem::path& target : {arguments.output, arguments.savePreset})
            if (!source.empty() && !target.empty() && std::filesystem::equivalent(source, target, ignored))
                throw UserError(target.string() + " is read and can't be written too; choose another name");
    }
    if (!arguments.savePreset.empty() && arguments.savePreset == arguments.output)
        throw UserError("OUT and --save-preset name the same file; choose another name");
}

std::optional<Preset> startingPreset(const Arguments& arguments)
{
    if (!arguments.preset.empty()) return readPresetFile(arguments.preset);
    if (!arguments.factory.empty()) return makeFactoryPreset(findFactoryPreset(arguments.factory));
    return std::nullopt;
}

/// Preset, then settings, in the order of the command line.
ParameterTexts applySettings(const Arguments& arguments, StripChannels& strips)
{
    if (const std::optional<Preset> start = startingPreset(arguments))
        strips.setChunk(chunkWithPreset(strips.first().chunk(), *start));
    ParameterTexts texts;
    for (const Role role : {Role::InsertX, Role::InsertY}) {
        const ParameterId type = roleWindow(role).windowBase;
        texts.follow(type, static_cast<double>(strips.first().parameter(type)));
    }
    for (const std::string& setting : arguments.settings)
        strips.setParameter(texts.resolveAssignment(setting));
    return texts;
}

AutomationPlan readAutomation(const std::filesystem::path& path, const ParameterTexts& texts, double rate)
{
    if (path.empty()) return {};
    std::ifstream in(path);
    if (!in || std::filesystem::is_directory(path))
        throw UserError("the automation file " + path.string() + " can't be read");
    return AutomationPlan(parseAutomation(in, path.string()), path.string(), texts, rate);
}

/// The preset that the state so far makes, written but not yet in its place; null if none is wanted.
std::unique_ptr<OutputFile> preparePreset(const std::filesystem::path& path, const StripChannels& strips)
{
    if (path.empty()) return nullptr;
    Preset preset = presetOfChunk(strips.first().chunk());
    preset.name = makePresetName(path.stem().string());
    auto file = std::make_unique<OutputFile>(path);
    file->write(writePresetBlock(preset));
    return file;
}

/// Runs the recording through, cutting the host's blocks where a parameter changes.
RenderFigures run(InputFeed& feed, StripChannels& strips, AutomationPlan& plan, AudioWriter& writer,
                  int block)
{
    RenderFigures figures;
    std::vector<double> main;
    std::vector<double> key;
    ProgressBar progress(feed.length());
    for (;;) {
        const std::int64_t position = figures.frames;
        plan.applyUpTo(position, [&](const ParameterChange& change) { strips.setParameter(change); });
        const std::int64_t blockEnd = (position / block + 1) * block;
        const std::int64_t frames = feed.read(main, key, std::min(blockEnd, plan.nextPosition()) - position);
        if (frames == 0) return figures;

        const auto samples = static_cast<std::size_t>(frames * feed.channels());
        figures.in.add(main.data(), samples);
        strips.process(main.data(), key.data(), feed.keyChannels(), static_cast<int>(frames));
        if (!figures.out.add(main.data(), samples))
            throw UserError(
                "the plug-in gave a sample that is no finite number; this is a fault of the plug-in");
        writer.write(main.data(), frames);
        figures.frames += frames;
        progress.show(figures.frames);
        if (interrupted()) throw UserError("interrupted, no file was written");
    }
}

void printReport(const Arguments& arguments, const AudioReader& input, const RenderFigures& figures,
                 double lowestGain)
{
    const auto seconds = static_cast<double>(figures.frames) / input.rate();
    std::printf("%s: %d Hz, %d channel%s, %s\n", arguments.input.c_str(), input.rate(), input.channels(),
                input.channels() == 1 ? "" : "s", levelText(figures.in).c_str());
    std::printf("%s: %.3f s, %s, gain reduction %s\n", arguments.output.c_str(), seconds,
                levelText(figures.out).c_str(), decibelText(1.0 / std::max(lowestGain, 1e-6)).c_str());
}

} // namespace

void renderFile(const Arguments& arguments)
{
    refuseToOverwrite(arguments);
    AudioReader input(arguments.input);
    std::optional<AudioReader> sideChain;
    if (!arguments.sideChain.empty()) sideChain.emplace(arguments.sideChain);
    const double rate = input.rate();
    InputFeed feed(input, sideChain ? &*sideChain : nullptr, std::llround(arguments.tail * rate));

    const host::PrivateHome home;
    const host::PluginLibrary library(arguments.plugin.empty() ? findPlugin() : arguments.plugin);
    StripChannels strips(library, input.channels(), {rate, arguments.block, arguments.doublePrecision});
    const ParameterTexts texts = applySettings(arguments, strips);
    AutomationPlan plan = readAutomation(arguments.automation, texts, rate);

    AudioWriter writer(arguments.output, input.rate(), input.channels(), feed.length());
    const std::unique_ptr<OutputFile> preset = preparePreset(arguments.savePreset, strips);
    const RenderFigures figures = run(feed, strips, plan, writer, arguments.block);
    writer.finish();
    if (preset) preset->commit();
    writer.commit();

    if (plan.left() > 0)
        std::fprintf(stderr, "velmora-render: %zu changes of %s lie behind the end and weren't reached\n",
                     plan.left(), arguments.automation.c_str());
    printReport(arguments, input, figures, strips.lowestGain());
}

} // namespace velmora::render
