#pragma once

#include "engine/velmora_mono_effect.h"
#include "modules/input/strip_effect_input.h"
#include "params/catalogue.h"
#include "params/type_codes.h"
#include "tests/support/measure.h"
#include "tests/support/signals.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <map>
#include <ostream>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

/// Any module of the system at any place of the rack, driven through the engine.
namespace velmora {

inline void PrintTo(const ModuleType& type, std::ostream* out)
{
    *out << type.listName;
}

} // namespace velmora

namespace velmora::test {

inline constexpr double kRates[] = {44100.0, 48000.0, 88200.0, 96000.0, 176400.0, 192000.0, 384000.0};

/// A role of the rack with a module in it.
struct Place {
    Role role;
    ModuleType type;
};

inline std::string nameOf(const Place& place)
{
    return std::string(roleWindow(place.role).longPrefix) + " " + std::string(place.type.listName);
}

inline double insertTypeValue(std::int32_t code)
{
    return code / 255.0;
}

/// Where a module can stand: the fixed role of its kind, if there is one, and both inserts.
inline std::vector<Place> placesOf(const ModuleType& type)
{
    std::vector<Place> places;
    for (const RoleWindow& window : kRoleWindows)
        if (window.kind == type.kind || isInsert(window.role)) places.push_back({window.role, type});
    return places;
}

/// Preamp parameters that a test may have to pin.
inline constexpr ParameterId kPreampAutoIn = 17;
inline constexpr ParameterId kPreampNoiseIn = 25;

/// What travels with a module, by its offset in the window: side chain, monitor and all own parameters.
using Values = std::array<double, 48>;

inline bool travels(ParameterId offset)
{
    return offset == kSideChainOffset || offset == kMonitorOffset || offset >= kOwnOffset;
}

inline Values defaultsOf(const ModuleType& type)
{
    Values values{};
    for (ParameterId offset = kOwnOffset; offset <= kLastOwnOffset; ++offset)
        values[static_cast<unsigned>(offset)] = moduleDefault(type.code, offset);
    if (type.kind == ModuleKind::Preamp) values[kPreampNoiseIn] = 0.0;
    return values;
}

/// Any setting of the module, at the precision of a host. A preamp adds no noise of its own.
inline Values randomValues(const ModuleType& type, unsigned seed)
{
    std::mt19937 random(seed * 1000 + static_cast<unsigned>(type.code));
    std::uniform_real_distribution<float> value(0.0f, 1.0f);
    Values values{};
    for (ParameterId offset = 0; offset < 48; ++offset)
        if (travels(offset)) values[static_cast<unsigned>(offset)] = value(random);
    if (type.kind == ModuleKind::Preamp) values[kPreampNoiseIn] = 0.0;
    values[kMonitorOffset] = static_cast<double>(random() % 4 == 0);
    values[47] = 0.0; // the second insert has no id for it, and no module a parameter
    return values;
}

/// The module's name without what a test's name can't have.
inline std::string testName(const testing::TestParamInfo<ModuleType>& info)
{
    std::string name;
    for (const char c : info.param.listName)
        if (std::isalnum(static_cast<unsigned char>(c))) name += c;
    return name;
}

/// Makes the preamp that is built next the unit with these component values, 0..15.
inline void turnUnits(int next)
{
    while (StripEffectInput(16, 361, 438).instanceIndex() != (next + 15) % 16) {
    }
}

/// A strip that knows the instances of its modules, so that their unclamped meters can be read.
class KnownStrip {
    std::map<std::pair<std::uint32_t, std::int32_t>, StripEffect*> instances_; // by window and code

public:
    /// @param firstUnit the component values, 0..15, of the first of the strip's eleven preamps
    explicit KnownStrip(int firstUnit = 0) : effect((turnUnits(firstUnit), knownModules())) {}

    void set(Role role, ParameterId offset, double value)
    {
        const RoleWindow& window = roleWindow(role);
        if (window.windowBase + offset < window.windowEnd)
            effect.setParameter(window.windowBase + offset, value);
    }
    void set(Role role, const Values& values)
    {
        for (ParameterId offset = 0; offset < 48; ++offset)
            if (travels(offset)) set(role, offset, values[static_cast<unsigned>(offset)]);
    }
    void choose(const Place& place)
    {
        if (isInsert(place.role))
            set(place.role, kTypeOffset, insertTypeValue(place.type.code));
        else
            set(place.role, kTypeOffset, place.type.variant / 15.0);
    }

    /// Runs both pairs of inputs through in calls of the given lengths, gone through again and again.
    /// @return output 0.
    Signal run(const Signal& main, const Signal& key, std::span<const int> lengths)
    {
        Signal output(main.size());
        Signal second(main.size());
        std::size_t at = 0;
        for (std::size_t call = 0; at < main.size(); ++call) {
            const auto length = static_cast<std::size_t>(lengths[call % lengths.size()]);
            const std::size_t count = std::min(length, main.size() - at);
            double* left = const_cast<double*>(main.data() + at);
            double* aux = const_cast<double*>(key.data() + at);
            double* inputs[4] = {left, left, aux, aux};
            double* outputs[2] = {output.data() + at, second.data() + at};
            effect.processDouble(inputs, outputs, static_cast<std::int32_t>(count));
            at += count;
        }
        return output;
    }

    /// The twelve meters as the module itself tells them; those it doesn't have read 0.
    std::vector<double> meters(const Place& place)
    {
        const RoleWindow& window = roleWindow(place.role);
        const auto windowBase = static_cast<std::uint32_t>(window.windowBase);
        return metersOf(*instances_.at({windowBase, isInsert(place.role) ? place.type.code : 0}), window);
    }
    /// The same for every module of the strip, in a role or not.
    bool allMetersFinite()
    {
        return std::ranges::all_of(instances_, [](const auto& entry) {
            const auto windowBase = static_cast<ParameterId>(entry.first.first);
            return allFinite(metersOf(*entry.second, *windowOf(windowBase)));
        });
    }
    /// As the engine tells it, held within 0..1.
    double reading(ParameterId id)
    {
        double value = -1.0;
        effect.getParameter(id, &value);
        return value;
    }

private:
    static std::vector<double> metersOf(StripEffect& module, const RoleWindow& window)
    {
        std::vector<double> readings(12);
        for (unsigned m = 0; m < readings.size(); ++m)
            module.getMeter(static_cast<std::uint32_t>(window.meterBase) + m, &readings[m]);
        return readings;
    }
    ModuleFactory knownModules()
    {
        const auto keep = [this](std::unique_ptr<StripEffect> module, std::uint32_t window,
                                 std::int32_t code) {
            instances_[{window, code}] = module.get();
            return module;
        };
        return {[keep](Role role, const ModuleBases& bases) {
                    return keep(makeFixedModule(role, bases), bases.window, 0);
                },
                [keep](std::int32_t code, const ModuleBases& bases) {
                    return keep(makeInsertModule(code, bases), bases.window, code);
                }};
    }

public:
    VelmoraMonoEffect effect;
};

/// One module at work by itself: all other roles pass the signal on. Wherever it stands, a preamp is the unit
/// with the same component values.
class PlacedModule : public KnownStrip {
public:
    PlacedModule(const Place& where, const Values& values, double sampleRate = 44100.0)
        : KnownStrip(firstUnitFor(where)), place(where), rate(sampleRate)
    {
        effect.setSampleRate(rate);
        set(place.role, kSoloOffset, 1.0);
        // The converter keeps some of the decade chosen before it; an insert's was built as a Pre 70s.
        if (place.role == Role::Input) set(place.role, kTypeOffset, 3 / 15.0);
        choose(place);
        set(values);
        effect.reset();
    }

    using KnownStrip::set;
    void set(ParameterId offset, double value) { set(place.role, offset, value); }
    void set(const Values& values) { set(place.role, values); }

    using KnownStrip::run;
    Signal run(const Signal& main, const std::vector<int>& lengths = {64})
    {
        return run(main, noise(main.size(), 0.4, 99), std::span(lengths));
    }
    std::vector<double> meters() { return KnownStrip::meters(place); }
    std::size_t samples(double seconds) const { return static_cast<std::size_t>(seconds * rate); }

    const Place place;
    const double rate;

private:
    static constexpr int kUnit = 3;

    static int firstUnitFor(const Place& place)
    {
        if (place.type.kind != ModuleKind::Preamp) return 0;
        const int before = place.role == Role::Input     ? 0
                           : place.role == Role::InsertX ? place.type.variant
                                                         : place.type.variant + 5;
        return (kUnit - before + 16) % 16;
    }
};

} // namespace velmora::test
