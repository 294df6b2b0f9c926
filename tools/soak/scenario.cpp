#include "tools/soak/scenario.h"

#include "params/catalogue.h"
#include "presets/factory/factory_names.h"
#include "presets/preset_library.h"

#include <algorithm>
#include <cstdio>
#include <limits>
#include <numeric>

namespace velmora::soak {

namespace {

constexpr std::array kRates{44100.0, 48000.0, 88200.0, 96000.0, 176400.0, 192000.0, 384000.0};
constexpr std::array<SignalKind, 6> kUsualSignals{SignalKind::Music,        SignalKind::Music,
                                                  SignalKind::HummingMusic, SignalKind::QuietTone,
                                                  SignalKind::Noise,        SignalKind::Silence};
constexpr std::array kRoughSignals{SignalKind::HugeSquare, SignalKind::Broken, SignalKind::Denormals,
                                   SignalKind::Noise};
constexpr std::array kSwitches{kMuteOffset, kSoloOffset, kSideChainOffset, kMonitorOffset};
constexpr double kPositionSteps = 8.0;
constexpr double kInsertTypeScale = 255.0;
constexpr std::size_t kMostActions = 4096; // more only cost an allocation
constexpr double kShortestEvent = 1.0;     // frames

ParameterId idOf(Role role, ParameterId offset)
{
    return roleWindow(role).windowBase + offset;
}

template <typename... Format>
std::string formatted(const char* format, Format... values)
{
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

} // namespace

std::string describe(const Action& action)
{
    if (const auto* change = std::get_if<ParameterChange>(&action))
        return formatted("parameter %d (%s) to %.9g", change->id, parameterName(change->id).c_str(),
                         static_cast<double>(change->value));
    if (const auto* load = std::get_if<StateLoad>(&action))
        return "state \"" + std::string(load->preset->title()) + "\"";
    const auto& restart = std::get<Restart>(action);
    return formatted("restart at %.0f Hz, %s", restart.sampleRate,
                     restart.doublePrecision ? "double" : "single");
}

Scenario::Scenario(std::uint64_t seed, const Cast& cast, Denormals denormals)
    : dice_(seed),
      cast_(cast),
      earlierInstances_(dice_.below(3)),
      rough_(dice_.chance(0.3)),
      sources_{SignalSource(dice_.seed()), SignalSource(dice_.seed()), SignalSource(dice_.seed()),
               SignalSource(dice_.seed())}
{
    for (const RoleWindow& window : kRoleWindows)
        if (!cast.types(window.role).empty()) roles_.push_back(window.role);
    if (denormals == Denormals::LeftOut)
        for (SignalSource& source : sources_) source.leaveOutDenormals();
    step_.actions.reserve(kMostActions);
    for (auto& input : step_.inputs) input.reserve(kLongestBlock);
}

const Step& Scenario::next()
{
    step_.actions.clear();
    if (framesToScene_ <= 0.0) beginScene();
    while (framesToEvent_ <= 0.0) {
        event();
        framesToEvent_ +=
            std::max(kShortestEvent, dice_.between(0.1, 2.0) * eventInterval_ * settings_.sampleRate);
    }
    moveRamps();
    step_.frames = chooseFrames();
    framesToScene_ -= step_.frames;
    framesToEvent_ -= step_.frames;
    for (Ramp& ramp : ramps_) ramp.wait -= step_.frames;
    for (unsigned i = 0; i < kInputs; ++i) {
        step_.inputs[i].resize(static_cast<std::size_t>(step_.frames));
        sources_[i].fill(step_.inputs[i], settings_.sampleRate);
    }
    return step_;
}

std::int32_t Scenario::chooseFrames()
{
    if (dice_.chance(0.001)) return 0;
    const std::int32_t frames =
        blocksVary_ ? static_cast<std::int32_t>(dice_.octaveBetween(1.0, blockFrames_ + 0.999))
                    : blockFrames_;
    if (!blocksEndAtEvents_) return frames;
    double end = std::min(framesToEvent_, framesToScene_);
    for (const Ramp& ramp : ramps_)
        if (ramp.stepsLeft > 0) end = std::min<double>(end, ramp.wait);
    return std::min(frames, std::max(1, static_cast<std::int32_t>(std::ceil(end))));
}

void Scenario::beginScene()
{
    if (!started_ || dice_.chance(0.4)) {
        started_ = true;
        settings_ = {dice_.pick(kRates), dice_.chance(0.6)};
        step_.actions.emplace_back(settings_);
    }
    framesToScene_ = dice_.octaveBetween(0.05, 3.0) * settings_.sampleRate;
    eventInterval_ = dice_.octaveBetween(0.002, 1.0);
    framesToEvent_ = dice_.between(0.0, 2.0) * eventInterval_ * settings_.sampleRate;
    chooseState();
    chooseWiring();
    chooseBlocks();
    chooseSignals();
}

void Scenario::chooseState()
{
    const double roll = dice_.uniform();
    if (roll < 0.2) {
        set(kProcessId, 1.0);
        return;
    }
    Preset preset = roll < 0.75 ? factoryPreset() : randomPreset();
    if (cast_.restricted()) fitToCast(preset);
    if (dice_.chance(0.6)) {
        step_.actions.emplace_back(StateLoad{std::make_unique<const Preset>(preset)});
        step_.stripOn = preset.values[kProcessId] >= 0.5f;
        return;
    }
    for (ParameterId id = 0; id < kHostParameterCount; ++id)
        if (isStored(id)) set(id, static_cast<double>(preset.values[static_cast<unsigned>(id)]));
}

Preset Scenario::factoryPreset()
{
    return makeFactoryPreset(static_cast<std::uint32_t>(dice_.below(kFactoryPresetCount)));
}

Preset Scenario::randomPreset()
{
    Preset preset = makeFactoryPreset(0);
    preset.name = makePresetName("Random");
    for (float& value : preset.values) value = static_cast<float>(chooseValue());
    std::array<int, kRoleCount> order{};
    std::iota(order.begin(), order.end(), 0);
    for (std::size_t i = order.size(); i > 1; --i)
        std::swap(order[i - 1], order[static_cast<unsigned>(dice_.below(i))]);
    const auto value = [&](ParameterId id) -> float& { return preset.values[static_cast<unsigned>(id)]; };
    for (const RoleWindow& window : kRoleWindows) {
        const Role role = window.role;
        value(idOf(role, kTypeOffset)) = dice_.chance(0.7) ? chooseType(role) : 0.0f;
        value(idOf(role, kPositionOffset)) =
            static_cast<float>(order[static_cast<unsigned>(role)] / kPositionSteps);
        for (const ParameterId offset : kSwitches)
            value(idOf(role, offset)) = dice_.chance(offset == kSideChainOffset ? 0.3 : 0.03) ? 1.0f : 0.0f;
    }
    value(kProcessId) = 1.0f;
    return preset;
}

/// Takes out the modules that aren't asked for and puts in what is, the preset's settings kept.
void Scenario::fitToCast(Preset& preset)
{
    for (const RoleWindow& window : kRoleWindows) {
        float& type = preset.values[static_cast<unsigned>(idOf(window.role, kTypeOffset))];
        const bool playable = !cast_.types(window.role).empty();
        if (!cast_.allows(window.role, type)) type = 0.0f;
        if (type == 0.0f && playable && dice_.chance(0.7)) type = dice_.pick(cast_.types(window.role));
    }
}

void Scenario::chooseWiring()
{
    Wiring& wiring = step_.wiring;
    wiring = {};
    if (dice_.chance(0.3)) wiring.connected[2] = wiring.connected[3] = false;
    if (dice_.chance(0.1)) wiring.connected[3] = false;
    if (dice_.chance(0.05)) wiring.connected[1] = false;
    if (dice_.chance(0.01)) wiring.connected[0] = false;
    wiring.rightOutput = !dice_.chance(0.02);
    wiring.inPlace = dice_.chance(0.3);
}

void Scenario::chooseBlocks()
{
    const double roll = dice_.uniform();
    blocksVary_ = roll < 0.25;
    blocksEndAtEvents_ = dice_.chance(0.5);
    if (roll < 0.4)
        blockFrames_ = static_cast<std::int32_t>(dice_.octaveBetween(1.0, kLongestBlock + 0.999));
    else if (roll < 0.5)
        blockFrames_ = 1 + dice_.below(16);
    else
        blockFrames_ = 16 << dice_.below(9);
}

void Scenario::chooseSignals()
{
    for (SignalSource& source : sources_) source.choose(chooseSignal());
}

SignalKind Scenario::chooseSignal()
{
    if (rough_ && dice_.chance(0.4)) return dice_.pick(kRoughSignals);
    return dice_.pick(kUsualSignals);
}

void Scenario::event()
{
    const double roll = dice_.uniform();
    if (roll < 0.72)
        automate(0.3);
    else if (roll < 0.87)
        changeType();
    else if (roll < 0.92)
        set(idOf(dice_.pick(kRoleWindows).role, kPositionOffset), dice_.below(9) / kPositionSteps);
    else if (roll < 0.96)
        flipSwitch();
    else if (roll < 0.98)
        set(kProcessId, dice_.chance(0.7) ? 1.0 : 0.0);
    else if (roll < 0.99)
        step_.actions.emplace_back(settings_);
    else
        set(chooseParameter(), dice_.chance(0.5) ? std::numeric_limits<double>::quiet_NaN() : 7.0);
}

void Scenario::automate(double probabilityOfRamp)
{
    if (dice_.chance(probabilityOfRamp))
        startRamp();
    else
        set(chooseParameter(), chooseValue());
}

void Scenario::startRamp()
{
    Ramp& ramp = ramps_[static_cast<unsigned>(dice_.below(ramps_.size()))];
    ramp.id = chooseParameter();
    ramp.value = chooseValue();
    ramp.stepsLeft = static_cast<int>(dice_.octaveBetween(4.0, 400.0));
    ramp.stepSize = (chooseValue() - ramp.value) / ramp.stepsLeft;
    ramp.interval = static_cast<std::int32_t>(dice_.octaveBetween(16.0, 2048.0));
    ramp.wait = 0;
}

void Scenario::moveRamps()
{
    for (Ramp& ramp : ramps_) {
        if (ramp.stepsLeft == 0 || ramp.wait > 0) continue;
        set(ramp.id, ramp.value);
        ramp.value += ramp.stepSize;
        ramp.wait = ramp.interval;
        --ramp.stepsLeft;
    }
}

void Scenario::changeType()
{
    const Role role = dice_.pick(roles_);
    set(idOf(role, kTypeOffset), dice_.chance(0.8) ? static_cast<double>(chooseType(role)) : 0.0);
}

float Scenario::chooseType(Role role)
{
    if (isInsert(role) && !cast_.restricted() && dice_.chance(0.1))
        return static_cast<float>(dice_.below(256) / kInsertTypeScale); // most of these are no module
    return cast_.types(role).empty() ? 0.0f : dice_.pick(cast_.types(role));
}

void Scenario::flipSwitch()
{
    set(idOf(dice_.pick(roles_), dice_.pick(kSwitches)), dice_.chance(0.4) ? 1.0 : 0.0);
}

ParameterId Scenario::chooseParameter()
{
    if (!cast_.restricted() && dice_.chance(0.02)) return dice_.below(kIdCount);
    const RoleWindow& window = roleWindow(dice_.pick(roles_));
    const ParameterId own = window.windowBase + kOwnOffset;
    return own + dice_.below(static_cast<std::size_t>(window.windowEnd - own));
}

double Scenario::chooseValue()
{
    const double roll = dice_.uniform();
    if (roll < 0.6) return dice_.uniform();
    if (roll < 0.8) return dice_.below(11) / 10.0;
    return dice_.chance(0.5) ? 1.0 : 0.0;
}

void Scenario::set(ParameterId id, double value)
{
    step_.actions.emplace_back(ParameterChange{id, static_cast<float>(value)});
    if (id == kProcessId && std::isfinite(value)) step_.stripOn = value >= 0.5;
}

} // namespace velmora::soak
