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

} // namespace

StripEffectEq::StripEffectEq(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId)
    : StripEffect(windowBaseId, meterBaseId, localBaseId)
{
    for (EqBand band : kAllEqBands) {
        bands[index(band)].frequency = kRanges[index(band)].startHz;
        touchBand(band);
    }
    setAnalog(true);
    setSampleRate(kMinSampleRate);
    reset();
}

template <typename Action>
void StripEffectEq::forEachFilter(Action action)
{
    action(sorrel);
    action(tamarin);
    action(juniper);
}

void StripEffectEq::reset()
{
    resetMeterState();
    outGain.reset({outTarget});
    forEachFilter([this](auto& filter) { filter.upToDate(bands).reset(); });
    driveFollower = {};
    inFade.reset({});
}

void StripEffectEq::setSampleRate(double hz)
{
    sampleRate = std::clamp(hz, kMinSampleRate, kMaxSampleRate);
    smoothingStep = 1.0 - std::pow(kRateResidue, kSmoothingHz / sampleRate);
    forEachFilter([this](auto& filter) { filter.asItStands().setSampleRate(sampleRate); });
    for (std::size_t f = 0; f < driveRates.size(); ++f)
        driveRates[f] = eqDriveRate(static_cast<EqFlavour>(f + 1), sampleRate);
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
    touchBand(band);
}

// Whole dB only.
void StripEffectEq::setOut(double value)
{
    outTarget = std::pow(10.0, (decodeStep(value, kOutSpanDb) + kOutLowestDb) / 20.0);
}

// The depth of the softening is that of the bands at this moment.
void StripEffectEq::setAnalog(bool on)
{
    analog = on ? 1 : 0;
    forEachFilter([this, on](auto& filter) { filter.upToDate(bands).setAnalog(on); });
}

void StripEffectEq::touchBand(EqBand band)
{
    forEachFilter([band](auto& filter) { filter.touchBand(band); });
}

// The sections run from the first In onwards, whatever its value: off and on is the crossfade's work.
void StripEffectEq::enableBand(EqBand band)
{
    forEachFilter([band](auto& filter) { filter.asItStands().enableBand(band); });
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
    if (frames <= 0) return;
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
void StripEffectEq::processFlavour(DeferredFilter<Filter>& deferred, const AudioRecord& in,
                                   const AudioRecord& out, std::int32_t frames)
{
    EqPiece piece;
    piece.frames = frames;
    piece.input = in.left(0);
    piece.follower = driveFollower;
    piece.follower.rate = driveRates[static_cast<std::size_t>(Filter::kFlavour) - 1];
    fadeBands(piece);
    moveOutGain(piece);
    deferred.upToDate(bands).process(piece, smoothingStep);
    driveFollower = piece.follower;
    if (analog != 0) eqSaturate(Filter::kFlavour, piece.output, piece.drive, frames);
    meterBlocks(piece.input, piece.output.data(), frames);
    writeMono(out, 0, piece.output.data(), frames);
}

void StripEffectEq::fadeBands(EqPiece& piece)
{
    PerBand<double> targets;
    for (std::size_t b = 0; b < kEqBands; ++b) targets[b] = bands[b].in;
    piece.fading = !inFade.resting(targets, smoothingStep);
    piece.mix[0] = inFade.values();
    if (!piece.fading) return;
    inFade.advance(targets, smoothingStep, piece.frames,
                   [&](std::size_t n, const PerBand<double>& mix) { piece.mix[n] = mix; });
}

void StripEffectEq::moveOutGain(EqPiece& piece)
{
    piece.gainMoving = !outGain.resting({outTarget}, smoothingStep);
    piece.gain[0] = outGain.values()[0];
    if (!piece.gainMoving) return;
    outGain.advance({outTarget}, smoothingStep, piece.frames,
                    [&](std::size_t n, const auto& gain) { piece.gain[n] = gain[0]; });
}

void StripEffectEq::getMeter(std::uint32_t id, double* out)
{
    answerLevelMeters(id, out);
}

} // namespace velmora
