// A user's stored settings: the value of one as anybody may have left it, and names that lead elsewhere. Up
// to the first zero byte an input is a name, behind it the value.

#include "fuzz/require.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "host/vst24/vst24_master_controller.h"
#include "params/parameter_ids.h"
#include "platform/settings_store.h"
#include "tools/host/private_home.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace velmora::fuzz {
namespace {

namespace files = std::filesystem;

std::intptr_t quietHost(vst24::AEffect*, std::int32_t opcode, std::int32_t, std::intptr_t, void*, float)
{
    return opcode == vst24::audioMasterVersion ? vst24::kVstVersion : 0;
}

struct User {
    host::PrivateHome home;
    vst24::QORVST24EffectWrapper strip{quietHost};
    files::path values = home.settings() / "Qorvane" / "QORVelmora";
};

void requireSound(QORMasterController& master, std::int32_t setting)
{
    constexpr double kUnset = -1.0;
    double value = kUnset;
    master.readStoredSetting(setting, &value);
    require(value == kUnset || (value >= 0.0 && value <= 1.0), "a setting is unset or lies in 0..1");
}

// The names that the product itself reads are found by letting it write them.
std::vector<std::string> ownNames(User& user)
{
    for (const std::int32_t setting : {kZoomCommand, kHintsCommand})
        user.strip.getMasterController().writeStoredSetting(setting, 0.5);
    std::vector<std::string> names;
    for (const auto& entry : files::directory_iterator(user.values))
        names.push_back(entry.path().filename().string());
    require(names.size() >= 2, "settings are stored");
    return names;
}

void run(const std::uint8_t* data, std::size_t size)
{
    static User user;
    static const std::vector<std::string> own = ownNames(user);

    const std::uint8_t* end = std::find(data, data + size, std::uint8_t{0});
    const std::string name(data, end);
    const std::vector<std::uint8_t> value(end == data + size ? end : end + 1, data + size);

    const SettingsStore store;
    if (store.write(name, value)) {
        const files::path written = user.values / name;
        require(written.parent_path() == user.values && files::is_regular_file(written),
                "a value stays in its folder");
        require(store.read(name) == value, "a value comes back as it was");
        files::remove(written);
    }
    for (const std::string& ownName : own) store.write(ownName, value);
    for (const std::int32_t setting : {kZoomCommand, kHintsCommand})
        requireSound(user.strip.getMasterController(), setting);
}

} // namespace
} // namespace velmora::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    velmora::fuzz::run(data, size);
    return 0;
}
