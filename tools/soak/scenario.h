#pragma once

#include "presets/preset.h"
#include "tools/soak/cast.h"
#include "tools/soak/dice.h"
#include "tools/soak/signal_source.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

namespace velmora::soak {

inline constexpr std::int32_t kLongestBlock = 4096;
inline constexpr int kInputs = 4;

/// What a host does between two process calls.
struct ParameterChange {
    ParameterId id;
    float value;
};
/// A state chunk with these values.
struct StateLoad {
    std::unique_ptr<const Preset> preset;
};
/// Off, a rate and a precision, on again.
struct Restart {
    double sampleRate = 44100.0;
    bool doublePrecision = false;
};
using Action = std::variant<ParameterChange, StateLoad, Restart>;

std::string describe(const Action& action);

/// How the buffers of a process call are wired.
struct Wiring {
    std::array<bool, kInputs> connected{true, true, true, true}; ///< false: a null pointer
    bool rightOutput = true;
    bool inPlace = false; ///< outputs are written over the main inputs
};

/// One process call and what goes before it.
struct Step {
    std::vector<Action> actions;
    std::int32_t frames = 0;
    Wiring wiring;
    bool stripOn = true; ///< the Process switch
    std::array<std::vector<double>, kInputs> inputs;
};

/// The play of a whole session with one instance, made up from a seed: presets, automation, rebuilt racks,
/// rates, block sizes and signals of every kind, in scenes of up to a few seconds. Nothing depends on what
/// the plug-in answers, so several builds can play the same.
///
/// Builds may differ in whether they take a denormal sample for silence: a play for a comparison has none.
class Scenario {
public:
    enum class Denormals { Included, LeftOut };

    Scenario(std::uint64_t seed, const Cast& cast, Denormals denormals = Denormals::Included);

    /// Instances that the session made and closed before; the preamps of a library number through.
    int earlierInstances() const { return earlierInstances_; }
    /// The step that comes next, valid until the next call. The first restarts.
    const Step& next();
    /// The session knows inputs beyond all measure, and samples that are no number.
    bool rough() const { return rough_; }
    /// Rate of the latest step, Hz.
    double sampleRate() const { return settings_.sampleRate; }

private:
    /// A parameter on its way from one value to another.
    struct Ramp {
        ParameterId id = 0;
        double value = 0.0;
        double stepSize = 0.0;
        int stepsLeft = 0;
        std::int32_t interval = 64; ///< frames between two steps
        std::int32_t wait = 0;
    };

    void beginScene();
    void chooseState();
    void chooseWiring();
    void chooseBlocks();
    void chooseSignals();
    SignalKind chooseSignal();
    std::int32_t chooseFrames();

    void event();
    void automate(double probabilityOfRamp);
    void startRamp();
    void moveRamps();
    void changeType();
    void flipSwitch();
    void set(ParameterId id, double value);

    Preset factoryPreset();
    Preset randomPreset();
    void fitToCast(Preset& preset);
    float chooseType(Role role);
    ParameterId chooseParameter();
    double chooseValue();

    Dice dice_;
    const Cast& cast_;
    int earlierInstances_;
    bool rough_;
    Step step_;
    Restart settings_;
    std::array<SignalSource, kInputs> sources_;
    std::array<Ramp, 3> ramps_;
    std::vector<Role> roles_; ///< that can hold a module of the cast

    bool started_ = false;
    double framesToScene_ = 0.0;
    double framesToEvent_ = 0.0;
    double eventInterval_ = 0.1; ///< seconds, on average
    std::int32_t blockFrames_ = 512;
    bool blocksVary_ = false;
    bool blocksEndAtEvents_ = false;
};

} // namespace velmora::soak
