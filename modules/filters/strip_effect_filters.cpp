#include "modules/filters/strip_effect_filters.h"

#include "params/laws/filters_laws.h"

#include <algorithm>
#include <array>

namespace velmora {

namespace {

constexpr std::int32_t kFiltersCode = (static_cast<std::int32_t>(ModuleKind::Filters) - 1) * 16 + 1;
constexpr double kHighestRate = 192000.0;

enum Offset : ParameterId {
    LowPassIn = kOwnOffset,
    LowPassFrequency,
    LowPassSlope,
    ParametricIn,
    ParametricGain,
    ParametricFrequency,
    ParametricQ,
    ParametricType,
    HighPassIn,
    HighPassFrequency,
    HighPassSlope,
};

// By "Flt:Parametric Type": LoShelf, Bell (a band-pass, so its gain does nothing), Peak, Notch, HiShelf.
constexpr std::array kParametricKinds{StripBiquadKind::LowShelf, StripBiquadKind::BandPass,
                                      StripBiquadKind::Peaking, StripBiquadKind::Notch,
                                      StripBiquadKind::HighShelf};

// -24..24 dB in steps of 0.01 dB.
double steppedGainDb(double value)
{
    return static_cast<std::int32_t>(value * 48.0 * 100.0 + 0.5) * 0.01 - 24.0;
}

StripBiquadKind parametricKind(std::int32_t parametricType)
{
    return kParametricKinds[static_cast<std::size_t>(std::clamp(parametricType, 0, 4))];
}

} // namespace

StripEffectFilters::StripEffectFilters(std::uint32_t windowBaseId, std::uint32_t meterBaseId,
                                       std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    updateEnables();
    StripEffectFilters::setSampleRate(kMinSampleRate);
    StripEffectFilters::reset();
}

void StripEffectFilters::reset()
{
    resetMeterState();
    forEachRail([](FilterRail& rail) { rail.reset(); });
}

void StripEffectFilters::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kHighestRate);
    forEachRail([this](FilterRail& rail) { rail.setSampleRate(sampleRate); });
}

void StripEffectFilters::updateEnables()
{
    forEachRail([this](FilterRail& rail) {
        rail.setHighPass(highPassIn != 0, highPassSlope);
        rail.setLowPass(lowPassIn != 0, lowPassSlope);
        rail.band().setEnabled(parametricIn != 0);
    });
}

void StripEffectFilters::setParameter(std::uint32_t id, double value)
{
    switch (relative(id)) {
    case kTypeOffset:
        type = decodeType(value);
        break;
    case kMonitorOffset:
        sideChainMonitor = decodeStep(value);
        break;
    case LowPassIn:
        lowPassIn = decodeStep(value);
        updateEnables();
        break;
    case LowPassFrequency: {
        const double hz = std::clamp(filters::lowPassHz(value), 300.0, 30000.0);
        forEachRail([&](FilterRail& rail) { rail.setLowPassFrequency(hz, sampleRate); });
        break;
    }
    case LowPassSlope:
        lowPassSlope = decodeStep(value, 2.0);
        updateEnables();
        break;
    case ParametricIn:
        parametricIn = decodeStep(value);
        updateEnables();
        break;
    case ParametricGain:
        forEachRail([&](FilterRail& rail) { rail.band().setGainDb(steppedGainDb(value)); });
        break;
    case ParametricFrequency:
        forEachRail([&](FilterRail& rail) { rail.band().setFrequency(filters::parametricHz(value)); });
        break;
    case ParametricQ:
        forEachRail([&](FilterRail& rail) { rail.band().setQ(filters::parametricQ(value)); });
        break;
    case ParametricType:
        forEachRail([&](FilterRail& rail) { rail.band().setKind(parametricKind(decodeStep(value, 4.0))); });
        break;
    case HighPassIn:
        highPassIn = decodeStep(value);
        updateEnables();
        break;
    case HighPassFrequency: {
        const double hz = std::clamp(filters::highPassHz(value), 20.0, 2000.0);
        forEachRail([&](FilterRail& rail) { rail.setHighPassFrequency(hz); });
        break;
    }
    case HighPassSlope:
        highPassSlope = decodeStep(value, 2.0);
        updateEnables();
        break;
    default:
        break;
    }
}

void StripEffectFilters::loadDefaults()
{
    writeDefaults(kFiltersCode);
}

void StripEffectFilters::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) return processThrough(in, out, frames);
    if (type == SideChain) return processSideChain(in, out, frames);

    const double* input = in.left(0);
    for (std::int32_t start = 0; start < frames; start += kPiece) {
        const std::int32_t count = std::min(kPiece, frames - start);
        std::array<double, kPiece> piece;
        std::copy_n(input + start, count, piece.begin());
        FilterRail::Links links;
        const SectionChain<StripFilterSection> chain = rails[Left].chain(type == Pro, piece.data(), links);
        runRails({&chain, 1}, count);
        meterBlocks(input + start, piece.data(), count);
        writeMono(out, start, piece.data(), count);
    }
}

void StripEffectFilters::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (passesThrough()) return processThrough(in, out, frames);
    if (type == SideChain) return processSideChain(in, out, frames);

    runPair(in, out, 0, type == Pro, frames);
}

void StripEffectFilters::processSideChain(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    runPair(in, out, 1, true, frames);
    if (sideChainMonitor == 0) return;
    std::copy_n(out.left(1), frames, out.left(0));
    std::copy_n(out.right(1), frames, out.right(0));
}

void StripEffectFilters::runPair(const AudioRecord& in, const AudioRecord& out, int pair, bool withBand,
                                 std::int32_t frames)
{
    const std::array inputs{in.left(pair), in.right(pair)};
    const std::array outputs{out.left(pair), out.right(pair)};
    meterInBlock(inputs[Left], inputs[Right], frames);
    std::array<FilterRail::Links, kChannels> links;
    std::array<SectionChain<StripFilterSection>, kChannels> chains;
    for (std::size_t c = 0; c < kChannels; ++c) {
        if (outputs[c] != inputs[c]) std::copy_n(inputs[c], frames, outputs[c]);
        chains[c] = rails[c].chain(withBand, outputs[c], links[c]);
    }
    runRails(chains, frames);
    meterOutBlock(outputs[Left], outputs[Right], frames);
}

} // namespace velmora
