#pragma once

#include "tests/presets/library_fixtures.h"

#include <gtest/gtest.h>

namespace velmora::test {

/// A host's side that also plays the engine: it keeps what it was last sent, and sees to it that the store
/// only sends within a bulk change.
class EngineMaster final : public RecordingMaster {
public:
    void setParameter(std::int32_t id, double value) override
    {
        EXPECT_GT(depth, 0) << "id " << id;
        heard[id] = value;
        RecordingMaster::setParameter(id, value);
    }
    void beginBulk() override
    {
        ++depth;
        ++claims;
    }
    void endBulk() override { --depth; }

    int depth = 0;
    int claims = 0; ///< taken so far
    std::map<std::int32_t, double> heard;
};

/// A store over a library of its own, with a clock that stands still.
struct PresetSession {
    static std::uint32_t ticks() { return now; }
    inline static std::uint32_t now = 1000;

    PresetSession()
    {
        master.store = &store;
        for (ParameterId id = 0; id < kHostParameterCount; ++id)
            if (isStored(id)) master.heard[id] = static_cast<double>(store.currentValue(id));
    }

    /// A change by the host, `wait` milliseconds behind the last.
    void change(ParameterId id, double value, std::uint32_t wait = 1000)
    {
        now += wait;
        master.heard[id] = value;
        store.onParameterChanged(id, value);
    }
    Preset current() const { return store.current().snapshot(); }
    /// What is heard is what a chunk would store.
    bool engineFollows() const
    {
        for (const auto& [id, value] : master.heard)
            if (id < kHostParameterCount && static_cast<float>(value) != store.currentValue(id)) return false;
        return master.depth == 0;
    }

    UserLibrary user;
    EngineMaster master;
    PresetStore store{master, user.library, ticks};
};

} // namespace velmora::test
