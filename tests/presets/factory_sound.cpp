#include "tests/presets/factory_sound.h"

#include "engine/velmora_mono_effect.h"
#include "params/catalogue.h"
#include "presets/factory_bank.h"
#include "tests/support/measure.h"

#include <algorithm>
#include <map>

namespace velmora::test {
namespace {

using enum Instrument;

struct SourceRange {
    std::uint32_t first;
    std::uint32_t last;
    std::vector<Instrument> instruments;
};

// clang-format off
const std::vector<SourceRange> kSources{
    {3, 27, {Kick}}, {28, 48, {Snare}}, {49, 53, {HiHat}}, {54, 61, {Toms}}, {62, 64, {Overheads}},
    {65, 66, {Room}}, {67, 70, {Overheads}}, {71, 71, {Room}}, {72, 72, {Overheads}}, {73, 74, {Room}},
    {75, 75, {Overheads}}, {76, 76, {Room}}, {77, 85, {DrumKit}}, {86, 86, {Strings}}, {87, 95, {DrumKit}},
    {96, 96, {Room}}, {97, 97, {DrumKit}}, {98, 101, {Toms}}, {102, 102, {HiHat}}, {103, 103, {Toms}},
    {104, 104, {HiHat}}, {105, 107, {Snare}}, {108, 108, {HiHat}}, {109, 110, {Toms}}, {111, 111, {DrumKit}},
    {112, 112, {Overheads}}, {114, 123, {Bass}}, {124, 124, {Pad}}, {125, 132, {Bass}},
    {134, 139, {PickedGuitar, StrummedGuitar}}, {140, 140, {PickedGuitar}},
    {141, 145, {PickedGuitar, StrummedGuitar}}, {146, 146, {PickedGuitar}}, {147, 147, {StrummedGuitar}},
    {148, 150, {PickedGuitar, StrummedGuitar}}, {152, 155, {Pad}}, {156, 167, {Piano}}, {168, 168, {Pad}},
    {170, 171, {Strings}}, {172, 172, {Brass}}, {173, 173, {Strings, Brass}}, {174, 174, {Strings}},
    {176, 183, {Brass}}, {185, 186, {MaleVoice, FemaleVoice}}, {187, 187, {PickedGuitar, StrummedGuitar}},
    {188, 190, {MaleVoice, FemaleVoice}}, {191, 191, {FemaleVoice}}, {192, 193, {MaleVoice, FemaleVoice}},
    {194, 194, {MaleVoice}}, {195, 195, {MaleVoice, FemaleVoice}}, {196, 196, {MaleVoice}},
    {197, 200, {FemaleVoice}}, {201, 205, {MaleVoice}}, {206, 217, {MaleVoice, FemaleVoice}},
    {218, 218, {MaleVoice}}, {220, 222, {MaleVoice, FemaleVoice}}, {223, 225, {FullMix}}, {226, 227, {DrumKit}},
    {228, 231, {FullMix}}, {232, 232, {DrumKit}},
};
// clang-format on

const Signal& heard(Instrument instrument)
{
    static std::map<Instrument, Signal> played;
    const auto [entry, isNew] = played.try_emplace(instrument);
    if (isNew) entry->second = playInstrument(instrument, kSoundRate);
    return entry->second;
}

void load(VelmoraMonoEffect& effect, std::uint32_t id)
{
    std::array<double, kHostParameterCount> values{};
    for (ParameterId p = 0; p < kHostParameterCount; ++p) values[p] = defaultValue(p);
    factoryPreset(id, values.data(), nullptr, nullptr);
    for (ParameterId p = 0; p < kHostParameterCount; ++p)
        if (isStored(p)) effect.setParameter(p, values[p]);
}

Signal render(VelmoraMonoEffect& effect, Signal input)
{
    Signal left(input.size());
    Signal right(input.size());
    double* inputs[4] = {input.data(), input.data(), nullptr, nullptr};
    double* outputs[2] = {left.data(), right.data()};
    effect.processDouble(inputs, outputs, static_cast<std::int32_t>(input.size()));
    return left;
}

} // namespace

std::vector<Instrument> instrumentsFor(std::uint32_t id)
{
    const auto found = std::ranges::find_if(
        kSources, [id](const SourceRange& range) { return id >= range.first && id <= range.last; });
    return found == kSources.end() ? std::vector<Instrument>{} : found->instruments;
}

SoundFigures listenTo(std::uint32_t id, Instrument instrument)
{
    VelmoraMonoEffect effect;
    effect.setSampleRate(kSoundRate);
    load(effect, id);
    effect.reset();
    const Signal& input = heard(instrument);
    render(effect, input);
    const Signal output = render(effect, input);
    return {rmsDb(input), rmsDb(output), decibels(peak(output)), allFinite(output)};
}

} // namespace velmora::test
