#include "modules/eq/strip_effect_eq.h"

#include "dsp/one_pole.h"
#include "params/laws/equalizer_laws.h"

#include <algorithm>

namespace velmora {

namespace {

constexpr std::int32_t kTypeCode = 65;

// Own parameters: four controls for each band, then the output's.
constexpr ParameterId kControlsPerBand = 4;
enum BandControl : ParameterId { kIn, kGain, kFreq, kWidth };
constexpr ParameterId kOutOffset = kOwnOffset + 16;
constexpr ParameterId kAnalogOffset = kOwnOffset + 17;

struct BandRange {
    double (*law)(double);
    double lowestHz;
    double highestHz;
    double startHz; // before any parameter arrives
};
constexpr PerBand<BandRange> kRanges{{
    {equalizer::highHz, 1400.0, 28000.0, 8000.0},
    {equalizer::highMidHz, 500.0, 10000.0, 3000.0},
    {equalizer::lowMidHz, 100.0, 2000.0, 500.0},
    {equalizer::lowHz, 20.0, 400.0, 100.0},
}};

constexpr double kMaxGainDb = 18.0;
constexpr double kOutSpanDb = 36.0;
constexpr std::int32_t kOutLowestDb = -18;
constexpr double kSmoothingHz = 320.0; // inverse of the rate's time
constexpr double kOutFlush = 1e-14;
constexpr double kInFlush = 1e-19;

} // namespace

StripEffectEq::StripEffectEq(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    for (EqBand band : kAllEqBands) {
        bands[index(band)].frequency = kRanges[index(band)].startHz;
        designBand(band);
    }
    setAnalog(true);
    setSampleRate(kMinSampleRate);
    reset();
}

void StripEffectEq::reset()
{
    resetMeterState();
    outGain = outTarget;
    sorrel.reset();
    tamarin.reset();
    juniper.reset();
    saturation.reset();
    inSmooth = {};
}

void StripEffectEq::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    smoothingStep = 1.0 - std::pow(kRateResidue, kSmoothingHz / sampleRate);
    sorrel.setSampleRate(sampleRate);
    tamarin.setSampleRate(sampleRate);
    juniper.setSampleRate(sampleRate);
    saturation.setSampleRate(sampleRate);
}

void StripEffectEq::setParameter(std::uint32_t id, double value)
{
    const ParameterId r = relative(id);
    if (r == kTypeOffset)
        type = decodeType(value);
    else if (r >= kOwnOffset && r < kOutOffset)
        setBandParameter(static_cast<EqBand>((r - kOwnOffset) / kControlsPerBand),
                         (r - kOwnOffset) % kControlsPerBand, value);
    else if (r == kOutOffset)
        setOut(value);
    else if (r == kAnalogOffset)
        setAnalog(std::clamp(decodeStep(value), 0, 1) != 0);
}

void StripEffectEq::setBandParameter(EqBand band, ParameterId control, double value)
{
    EqBandSettings& settings = bands[index(band)];
    const BandRange& range = kRanges[index(band)];
    switch (control) {
    case kIn:
        settings.in = std::clamp(decodeStep(value), 0, 1);
        enableBand(band);
        break;
    case kGain:
        settings.gainDb = std::clamp(equalizer::gainDb(value), -kMaxGainDb, kMaxGainDb);
        break;
    case kFreq:
        settings.frequency =
            std::clamp(range.law(std::clamp(value, 0.0, 1.0)), range.lowestHz, range.highestHz);
        break;
    default:
        settings.width = static_cast<EqWidth>(decodeStep(std::clamp(value, 0.0, 1.0), 2.0));
        break;
    }
    designBand(band);
}

// Whole dB only.
void StripEffectEq::setOut(double value)
{
    outTarget = std::pow(10.0, (decodeStep(value, kOutSpanDb) + kOutLowestDb) / 20.0);
}

void StripEffectEq::setAnalog(bool on)
{
    analog = on ? 1 : 0;
    sorrel.setAnalog(on);
    tamarin.setAnalog(on);
    juniper.setAnalog(on);
}

void StripEffectEq::designBand(EqBand band)
{
    const EqBandSettings& settings = bands[index(band)];
    sorrel.setBand(band, settings);
    tamarin.setBand(band, settings);
    juniper.setBand(band, settings);
}

// The sections run from the first In onwards, whatever its value: off and on is the crossfade's work.
void StripEffectEq::enableBand(EqBand band)
{
    sorrel.enableBand(band);
    tamarin.enableBand(band);
    juniper.enableBand(band);
}

void StripEffectEq::loadDefaults()
{
    writeDefaults(kTypeCode);
}

void StripEffectEq::processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    processThrough(in, out, frames);
}

void StripEffectEq::processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames)
{
    if (active == 0) return processThrough(in, out, frames);
    switch (static_cast<EqFlavour>(type)) {
    case EqFlavour::Sorrel:
        return processFlavour(sorrel, in, out, frames);
    case EqFlavour::Tamarin:
        return processFlavour(tamarin, in, out, frames);
    case EqFlavour::Juniper:
        return processFlavour(juniper, in, out, frames);
    }
    processThrough(in, out, frames); // 0 and the values that name no flavour
}

template <typename Filter>
void StripEffectEq::processFlavour(Filter& filter, const AudioRecord& in, const AudioRecord& out,
                                   std::int32_t frames)
{
    const double* input = in.left(0);
    const double c = smoothingStep;
    EqPiece piece;
    piece.frames = frames;
    for (std::int32_t i = 0; i < frames; ++i) {
        const auto at = static_cast<std::size_t>(i);
        piece.audio[at] = input[i];
        meterInMono(input[i]);
        for (std::size_t b = 0; b < kEqBands; ++b)
            inSmooth[b] = flush(inSmooth[b] + (bands[b].in - inSmooth[b]) * c, kInFlush);
        piece.mix[at] = inSmooth;
    }
    filter.process(piece, c);
    const bool saturating = analog != 0;
    for (std::int32_t i = 0; i < frames; ++i) {
        outGain = flush(outGain + (outTarget - outGain) * c, kOutFlush);
        const double louder = piece.audio[static_cast<std::size_t>(i)] * outGain;
        const double y = saturation.process<Filter::kFlavour>(louder, saturating);
        meterOutMono(y);
        writeMono(out, i, y);
    }
}

void StripEffectEq::getMeter(std::uint32_t id, double* out)
{
    answerLevelMeters(id, out);
}

} // namespace velmora
