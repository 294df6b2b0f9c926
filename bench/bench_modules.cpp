// Every variant of the strip by itself, at 48000 Hz in blocks of 64: as it starts, with everything switched
// on, and with every continuous parameter on the move.

#include "bench/module_bench.h"
#include "engine/insert_bank.h"
#include "params/catalogue.h"
#include "params/type_codes.h"

#include <string>

namespace velmora::bench {
namespace {

constexpr double kRate = 48000.0;
constexpr double kOn = 0.6;    ///< switches on, steps and knobs a little above their middle
constexpr double kMoved = 0.7; ///< the other end of a moving knob

class Variant {
public:
    explicit Variant(std::int32_t code)
        : code_(code), bank_(productModules(), basesOf(roleWindow(Role::InsertX))), module_(bank_[code])
    {
        module_->setSampleRate(kRate);
        module_->loadDefaults();
        module_->reset();
    }

    void switchOn()
    {
        for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset) set(offset, kOn);
        module_->reset();
    }
    void move()
    {
        value_ = kOn + kMoved - value_;
        for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
            if (moduleHostSteps(code_, offset) == 0) set(offset, value_);
    }
    StripEffect& module() { return *module_; }

private:
    void set(ParameterId offset, double value)
    {
        module_->setParameter(static_cast<std::uint32_t>(roleWindow(Role::InsertX).windowBase + offset),
                              value);
    }

    std::int32_t code_;
    InsertBank bank_;
    StripEffect* module_;
    double value_ = kOn;
};

void defaults(benchmark::State& state, std::int32_t code)
{
    Variant variant(code);
    runModule(state, variant.module());
}

void steady(benchmark::State& state, std::int32_t code)
{
    Variant variant(code);
    variant.switchOn();
    runModule(state, variant.module());
}

void gliding(benchmark::State& state, std::int32_t code)
{
    Variant variant(code);
    variant.switchOn();
    runModule(state, variant.module(), [&] { variant.move(); });
}

const bool kRegistered = [] {
    for (const ModuleType& type : moduleTypes()) {
        const std::string name = "module/" + std::string(type.listName);
        benchmark::RegisterBenchmark((name + "/defaults").c_str(), defaults, type.code);
        benchmark::RegisterBenchmark((name + "/steady").c_str(), steady, type.code);
        benchmark::RegisterBenchmark((name + "/gliding").c_str(), gliding, type.code);
    }
    return true;
}();

} // namespace
} // namespace velmora::bench
