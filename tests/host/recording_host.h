#pragma once

#include "host/vst24/vst24_abi.h"
#include "host/vst24/vst24_effect_wrapper.h"
#include "tools/host/private_home.h"

#include <cstdint>
#include <vector>

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

using velmora::host::PrivateHome;

/// The nine Position ids.
inline constexpr std::int32_t kPositionIds[] = {17, 49, 81, 113, 145, 193, 225, 257, 305};

} // namespace velmora::vst24::test
