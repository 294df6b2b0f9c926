#include "presets/preset_file.h"
#include "presets/preset_library.h"
#include "tools/common/command_line.h"
#include "tools/common/factory_lookup.h"
#include "tools/common/user_error.h"
#include "tools/presets/preset_check.h"
#include "tools/presets/preset_export.h"
#include "tools/presets/preset_list.h"
#include "tools/presets/preset_sheet.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

namespace {

using namespace velmora;
using namespace velmora::presets_tool;

constexpr int kFailed = 2;

struct Request {
    std::string category;
    std::string designer;
    bool user = false;
    std::string name;
    std::filesystem::path folder;
    std::vector<std::filesystem::path> files;
};

void showPreset(const std::string& name)
{
    if (name.ends_with(kPresetExtension)) {
        Preset preset = makeFactoryPreset(0);
        const PresetFileStatus status = loadPresetFile(name, 0, &preset);
        if (status != PresetFileStatus::Loaded)
            throw UserError(name + " is no preset: " + std::string(presetFileStatusText(status)));
        return printPresetSheet(std::cout, preset);
    }
    const FactoryListing listing = factoryListing(findFactoryPreset(name));
    std::cout << listing.id << "  " << listing.name << "  " << listing.category << "  " << listing.designer
              << "\n\n";
    printPresetSheet(std::cout, makeFactoryPreset(listing.id));
}

int run(int argc, const char* const* argv)
{
    Request request;
    CLI::App app("Shows, exports and checks presets of the QOR Velmora Mono.", "velmora-presets");
    app.require_subcommand(1);

    CLI::App* list = app.add_subcommand("list", "List the factory presets, or the user's own");
    auto* category = list->add_option("--category", request.category, "Only this category");
    auto* designer =
        list->add_option("--designer", request.designer, "Only this designer")->excludes(category);
    list->add_flag("--user", request.user, "The user's presets")->excludes(category)->excludes(designer);

    CLI::App* show = app.add_subcommand("show", "Show the rack of a preset with each module's settings");
    show->add_option("NAME", request.name, "Name or id of a factory preset, or a .qor file")->required();

    CLI::App* save = app.add_subcommand("export", "Write every factory preset as a .qor file");
    save->add_option("DIR", request.folder, "Folder for the files")->required();

    CLI::App* check = app.add_subcommand("check", "Say what .qor files hold, or why they are no presets");
    check->add_option("FILE", request.files, "Files to check")->required();

    if (!parseCommandLine(app, argc, argv)) return 0;
    if (*list) {
        if (request.user)
            listUserPresets(std::cout);
        else
            listFactoryPresets(std::cout, request.category, request.designer);
    }
    if (*show) showPreset(request.name);
    if (*save) exportFactoryPresets(std::cout, request.folder);
    return *check && !checkPresetFiles(std::cout, request.files) ? kFailed : 0;
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return run(argc, argv);
    } catch (const std::exception& error) {
        std::cerr << "velmora-presets: " << error.what() << '\n';
        return kFailed;
    }
}
