#include "tools/presets/preset_export.h"

#include "presets/preset_file.h"
#include "presets/preset_library.h"
#include "tools/common/factory_lookup.h"
#include "tools/common/user_error.h"

#include <iomanip>
#include <ostream>
#include <sstream>
#include <string>

namespace velmora::presets_tool {

namespace {

// A name may hold what a file name can't.
std::string fileName(const FactoryListing& listing)
{
    std::string name = listing.name;
    for (char& c : name)
        if (c == '/') c = '-';
    std::ostringstream text;
    text << std::setfill('0') << std::setw(3) << listing.id << ' ' << name << kPresetExtension;
    return text.str();
}

} // namespace

void exportFactoryPresets(std::ostream& out, const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder))
        throw UserError(folder.string() +
                        " is no folder and can't be made; name a folder that can be written");
    std::uint32_t written = 0;
    for (const FactoryListing& listing : factoryListings()) {
        const std::filesystem::path path = folder / fileName(listing);
        if (!savePresetFile(path.string(), makeFactoryPreset(listing.id)))
            throw UserError(path.string() + " can't be written; " + std::to_string(written) +
                            " presets were, choose a folder with room that can be written");
        ++written;
    }
    out << written << " presets in " << folder.string() << '\n';
}

} // namespace velmora::presets_tool
