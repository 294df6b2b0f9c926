// What stands on the clipboard that all instances of a user share.

#include "fuzz/require.h"
#include "host/master/master_controller.h"
#include "params/catalogue.h"
#include "platform/settings_store.h"
#include "presets/preset_library.h"
#include "presets/preset_store.h"
#include "tools/host/private_home.h"

#include <cstdint>

namespace velmora::fuzz {
namespace {

/// Counts what a store sends, and requires that it's in range.
class CountingMaster : public QORMasterController {
public:
    void setParameter(std::int32_t id, double value) override
    {
        ++sent;
        if (id < kHostParameterCount) require(value >= 0.0 && value <= 1.0, "a sent value lies in 0..1");
    }
    void writeStoredSetting(std::int32_t, double) override {}
    void readStoredSetting(std::int32_t, double*) override {}
    QORBasePresetStore* getPresetStore() override { return nullptr; }
    QORBaseParametersController* getController() override { return nullptr; }

    int sent = 0;
};

/// One for all inputs: a store takes longer to make than a paste. What was pasted before stays, as in a
/// session.
struct User {
    host::PrivateHome home;
    PresetLibrary library{home.folder().string(), [](std::string_view) {}};
    CountingMaster master;
    PresetStore store{master, library};
};

void run(const std::uint8_t* data, std::size_t size)
{
    static User user;
    PresetStore& store = user.store;
    if (!SettingsStore().write("MemoA", {data, size})) return;

    user.master.sent = 0;
    const Preset before = store.current().snapshot();
    store.pasteFromClipboard();
    if (user.master.sent == 0)
        require(store.current().snapshot().values == before.values, "a refused paste changes nothing");
    for (ParameterId id = 0; id < kHostParameterCount; ++id) {
        const float value = store.current().value(id);
        require(value >= 0.0f && value <= 1.0f, "a pasted value lies in 0..1");
    }
    require(store.currentName().size() < PresetName().size(), "the name has an end");
}

} // namespace
} // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velmora::fuzz::run(data, size);
    return 0;
}
