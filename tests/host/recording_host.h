#pragma once

#include "host/vst24/vst24_abi.h"
#include "host/vst24/vst24_effect_wrapper.h"

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <unistd.h>

namespace velmora::vst24::test {

/// A host that notes what the effect tells it. One at a time in a process.
class RecordingHost {
public:
    struct Event {
        std::int32_t opcode;
        std::int32_t index;
        float value;
    };

    RecordingHost()
    {
        events().clear();
        events().reserve(100000);
    }

    static std::intptr_t callback(AEffect*, std::int32_t opcode, std::int32_t index, std::intptr_t, void*,
                                  float opt)
    {
        if (opcode == audioMasterVersion) return kVstVersion;
        if (recording()) events().push_back({opcode, index, opt});
        return 0;
    }

    static std::vector<Event>& events()
    {
        static std::vector<Event> list;
        return list;
    }
    /// Off while several threads call in: the list isn't guarded.
    static bool& recording()
    {
        static bool on = true;
        return on;
    }

    static int count(std::int32_t opcode)
    {
        int n = 0;
        for (const Event& event : events()) n += event.opcode == opcode ? 1 : 0;
        return n;
    }
};

/// Settings and presets of the user stay untouched: the process's home is a folder of its own for the test.
class PrivateHome {
public:
    PrivateHome()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "velmora-test-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        setenv("XDG_CONFIG_HOME", folder.c_str(), 1);
        setenv("USERPROFILE", folder.c_str(), 1);
    }
    ~PrivateHome() { std::filesystem::remove_all(folder); }
    PrivateHome(const PrivateHome&) = delete;
    PrivateHome& operator=(const PrivateHome&) = delete;

    std::filesystem::path folder;
};

/// The nine Position ids.
inline constexpr std::int32_t kPositionIds[] = {17, 49, 81, 113, 145, 193, 225, 257, 305};

} // namespace velmora::vst24::test
