#pragma once

#include "tools/host/loaded_plugin.h"
#include "tools/soak/scenario.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace velmora::soak {

inline constexpr std::size_t kMeters = kTotalGainReductionId - kFirstMeterId + 1;

/// One instance of a build, playing a scenario.
class Player {
public:
    /// @param earlierInstances made and closed first. Throws host::HostError.
    Player(const host::PluginLibrary& library, int earlierInstances);

    void play(const Step& step);

    /// The latest block, widened to double.
    std::span<const double> left() const { return left_; }
    std::span<const double> right() const { return right_; }
    /// The latest block came in single precision.
    bool single() const { return !doublePrecision_; }

    /// Reads every meter once: some age with each reading.
    void readMeters();
    /// The latest readings, from kFirstMeterId on.
    std::span<const float> meters() const { return meters_; }

private:
    template <typename Sample>
    struct Buffers {
        std::array<std::vector<Sample>, kInputs> in;
        std::array<std::vector<Sample>, 2> out;
    };

    void perform(const Action& action);
    void begin(const Restart& restart);
    template <typename Sample>
    void process(Buffers<Sample>& buffers, const Step& step);

    host::LoadedPlugin plugin_;
    Buffers<float> single_;
    Buffers<double> double_;
    std::vector<double> left_;
    std::vector<double> right_;
    std::array<float, kMeters> meters_{};
    bool doublePrecision_ = false;
    bool open_ = false;
};

} // namespace velmora::soak
