#pragma once

#include "engine/velmora_mono_effect.h"
#include "params/parameter_ids.h"

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace velmora::test {

using Log = std::vector<std::string>;

template <typename... Parts>
std::string text(const Parts&... parts)
{
    std::ostringstream stream;
    (stream << ... << parts);
    return stream.str();
}

/// Writes down every call but meter reads, and works on the signal by y = gain x + offset + memory x (last
/// y).
class RecordingModule : public StripEffect {
public:
    RecordingModule(std::string moduleName, Log& log, const ModuleBases& bases)
        : StripEffect(bases.window, bases.meter, bases.local), name(std::move(moduleName)), log_(log)
    {
        note("create ", windowBase, " ", meterBase, " ", localBase);
    }

    void reset() override
    {
        last = 0.0;
        note("reset");
    }
    void setSampleRate(double hz) override { note("rate ", hz); }
    void setParameter(std::uint32_t id, double value) override
    {
        values[id] = value;
        note("set ", id, " ", value);
    }
    void loadDefaults() override { note("defaults"); }
    void processStereo(const AudioRecord&, const AudioRecord&, std::int32_t) override { note("stereo"); }
    void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) override
    {
        note("process ", frames);
        seen = {in.left(0)[0], in.right(0)[0], in.left(1)[0], in.right(1)[0]};
        if (active == 0) return;
        for (std::int32_t i = 0; i < frames; ++i) {
            last = gain * in.left(0)[i] + offset + memory * last;
            writeMono(out, i, &last, 1);
        }
    }
    void getMeter(std::uint32_t id, double* out) override
    {
        if (id - meterBase < meters.size()) *out = meters[id - meterBase];
    }
    void resetMeters() override { note("resetMeters"); }
    void activate() override { switchTo(1, "activate"); }
    void deactivate() override { switchTo(0, "deactivate"); }

    bool isActive() const { return active != 0; }

    const std::string name;
    double gain = 1.0;
    double offset = 0.0;
    double memory = 0.0;
    double last = 0.0;
    std::array<double, 4> seen{}; ///< first sample of the four channels at the last call
    std::array<MeterCell, 3> meters;
    std::map<std::uint32_t, double> values;

private:
    template <typename... Parts>
    void note(const Parts&... parts)
    {
        log_.push_back(text(name, " ", parts...));
    }
    void switchTo(std::int32_t state, const char* word)
    {
        active = state;
        note(word);
    }

    Log& log_;
};

/// An engine full of recording modules, named by their role ("Comp:") or by insert and code ("X49").
struct RecordingRack {
    Log log;
    std::map<std::string, RecordingModule*, std::less<>> modules;
    VelmoraMonoEffect effect{factory()};

    /// The chain is rebuilt on a few sub-blocks behind construction; from here on it moves by request alone.
    RecordingRack() { run(64 * 16); }

    RecordingModule& operator[](std::string_view name) { return *modules.find(name)->second; }

    /// @return the calls since the last `take` whose text holds `word`.
    Log take(std::string_view word = "")
    {
        Log found;
        for (const std::string& line : log)
            if (line.find(word) != std::string::npos) found.push_back(line);
        log.clear();
        return found;
    }

    /// Runs a block of a constant on input 0 alone. @return output 0.
    std::vector<double> run(std::int32_t frames, double level = 1.0)
    {
        std::vector<double> input(static_cast<std::size_t>(frames), level);
        std::vector<double> output(input.size() + 1);
        double* inputs[4] = {input.data(), nullptr, nullptr, nullptr};
        double* outputs[2] = {output.data(), nullptr};
        effect.processDouble(inputs, outputs, frames);
        output.pop_back();
        return output;
    }

    void set(Role role, ParameterId offset, double value)
    {
        effect.setParameter(roleWindow(role).windowBase + offset, value);
    }

    double meter(ParameterId id)
    {
        double reading = -1.0;
        return effect.getParameter(id, &reading) ? reading : -1.0;
    }

private:
    ModuleFactory factory()
    {
        const auto build = [this](std::string name, const ModuleBases& bases) {
            auto module = std::make_unique<RecordingModule>(name, log, bases);
            modules[name] = module.get();
            return module;
        };
        return {[=](Role role, const ModuleBases& bases) {
                    return build(std::string(roleWindow(role).longPrefix), bases);
                },
                [=](std::int32_t code, const ModuleBases& bases) {
                    return build(text(bases.window == 256 ? "X" : "Y", code), bases);
                }};
    }
};

} // namespace velmora::test
