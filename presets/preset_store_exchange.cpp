// What leaves an instance and comes back: the clipboard and the user's files.

#include "host/master/master_controller.h"
#include "platform/clock.h"
#include "platform/settings_store.h"
#include "presets/preset_library.h"
#include "presets/preset_store.h"
#include "presets/save_dialog.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace velmora {
namespace {

constexpr std::string_view kClipboardValue = "MemoA";

/// Sets the extension in place of one that differs in case, else behind the name: names have dots.
std::string withExtension(std::string path)
{
    const std::size_t length = kPresetExtension.size();
    const auto sameLetter = [](char a, char b) { return std::tolower(static_cast<unsigned char>(a)) == b; };
    if (path.size() >= length &&
        std::ranges::equal(std::string_view(path).substr(path.size() - length), kPresetExtension, sameLetter))
        path.resize(path.size() - length);
    return path.append(kPresetExtension);
}

/// The name of a file for a preset of any name.
std::string fileNameFor(std::string presetName)
{
    if (presetName.empty()) presetName = "current";
    std::ranges::replace(presetName, '/', '-');
    return withExtension(std::move(presetName));
}

} // namespace

void PresetStore::copyToClipboard()
{
    clipboardPreset_ = current().snapshot();
    clipboardPreset_.name = makePresetName("clipboard " + localTimeText("%H:%M:%S"));
    SettingsStore().write(kClipboardValue, writePresetBlock(clipboardPreset_));
}

void PresetStore::pasteFromClipboard()
{
    const auto block = SettingsStore().read(kClipboardValue);
    if (!block) return;
    Preset pasted = clipboardPreset_;
    BlockHeader header;
    const BlockStatus status =
        decodeBlock(*block, {.kind = BlockKind::SinglePreset}, header, {.slots = {&pasted, 1}});
    // A block of another kind isn't decoded: what was pasted or copied last comes again.
    if (status != BlockStatus::Good && status != BlockStatus::WrongKind) return;

    const BulkScope bulk(master_);
    if (status == BlockStatus::Good) clipboardPreset_ = pasted;
    side().load(clipboardPreset_);
    position_.entry = -1;
    applyPreset(clipboardPreset_);
}

bool PresetStore::saveCurrentPreset(SaveDialog& dialog)
{
    const std::optional<std::string> chosen = dialog.askForPath({.title = "Save preset",
                                                                 .directory = library_.userRoot(),
                                                                 .suggestedName = fileNameFor(currentName()),
                                                                 .typeName = "QOR Preset",
                                                                 .extension = "qor"});
    if (!chosen || chosen->empty()) return false;
    const bool saved = savePresetFile(withExtension(*chosen));
    library_.scanUserFolder();
    return saved;
}

} // namespace velmora
