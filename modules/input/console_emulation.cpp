#include "modules/input/console_emulation.h"

#include "dsp/flush.h"
#include "dsp/one_pole.h"
#include "dsp/run_in_step.h"
#include "dsp/run_widest.h"
#include "modules/input/dc_blocker.h"

#include <algorithm>
#include <cmath>

namespace velmora::preamp {

namespace {

constexpr double kReferenceRate = 44100.0;
constexpr double kBlockSeconds = 0.2 * 0.015625; // 200 ms at one step per 64 samples
constexpr double kSmootherFlush = 1e-30;
constexpr double kCompensationExponent = 0.9576;
constexpr double kStartNoiseLevel = 1e-4;
constexpr double kPre80sAttenuation = 0.794328234724282 * 0.5; // -8 dB
constexpr double kTubeInput = 0.125;
constexpr double kTubeMakeUp = 20.166514627199998;

std::array<NoiseGenerator, kRails> railGenerators(std::int32_t instanceIndex)
{
    const RailSeeds seeds = railSeeds(instanceIndex);
    return {NoiseGenerator(seeds.left), NoiseGenerator(seeds.right)};
}

VELMORA_KERNEL double louderRail(const Rails& v)
{
    const Rails magnitude = absLanes(v);
    return std::max(magnitude[0], magnitude[1]);
}

} // namespace

ConsoleEmulation::ConsoleEmulation(std::int32_t instanceIndex)
    : instanceIndex_(instanceIndex),
      spread_(componentSpread(instanceIndex)),
      generators_(railGenerators(instanceIndex)),
      noiseShaper_(spread_.noiseTrim),
      stage1_(spread_.curveTrim),
      transistors_(spread_.biasTrim),
      noiseLevelTarget_(kStartNoiseLevel),
      noiseLevelCurrent_(kStartNoiseLevel)
{
    setSampleRate(kReferenceRate);
}

void ConsoleEmulation::setSampleRate(double hz)
{
    sampleRate_ = hz;
    blockCoefficient_ = onePoleRate(kBlockSeconds, hz);
    for (const std::int32_t emulation : {kPre60s, kPre70s, kPre80s})
        designs_[static_cast<unsigned>(emulation - kPre60s)] = designDecade(emulation, spread_, hz);
    const BiquadCoefficients highPass = designDcBlocker(hz);
    transformer_.tune({highPass, highPass});
    tubes_.setSampleRate(hz);
    reset();
}

void ConsoleEmulation::reset()
{
    noiseLevelCurrent_ = noiseLevelTarget_;
    driveCurrent_ = driveTarget_;
    noiseShaper_.reset();
    stage1_.reset();
    transistors_.reset();
    transformer_.reset();
    landSections();
    applyEmulation();
    converter_.reset();
    saturation_.clear();
    autoMute_.reset(sampleRate_);
}

void ConsoleEmulation::select(std::int32_t emulation)
{
    emulation_ = emulation;
    applyEmulation();
}

void ConsoleEmulation::applyEmulation()
{
    noiseScale_ = std::sqrt(sampleRate_ / kReferenceRate);
    if (!analog()) return;
    lastAnalog_ = emulation_;
    noiseScale_ *= decade().constants->noiseScale;
    noiseFilterCoefficient_ = decade().noiseFilterCoefficient;
    landSections();
}

void ConsoleEmulation::landSections()
{
    noiseShaper_.land(decade().noise);
    bandwidth_.land(decade().bandwidth);
    crosstalk_.land(decade().crosstalk);
    bump_.land(decade().bump);
}

void ConsoleEmulation::setDrive(double v)
{
    driveTarget_ = std::pow(1000.0, std::clamp(v, 0.0, 1.0)) * 4.0 * 0.31622777;
}

void ConsoleEmulation::setNoiseLevel(double v)
{
    noiseLevelTarget_ = std::pow(1000.0, std::clamp(v, 0.0, 1.0)) * 0.000003 * 0.57;
}

void ConsoleEmulation::run(RailBlocks& blocks, int count)
{
    moveSmoothers();
    runWidest([&]() VELMORA_KERNEL_LAMBDA { takeInput(blocks, count); });
    if (noiseMode_ != NoiseMode::Off) setNoiseGains(count);
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        runStage1<Lanes<decltype(width)::value>>(count);
        runStage2(count);
    });
    if (emulation_ == kPre60s) tubes_.run(signal_, count);
    if (emulation_ == kAdc90s)
        converter_.process(signal_, count, generators_[0], saturation_, blockCoefficient_);
    runWidest([&]() VELMORA_KERNEL_LAMBDA { writeOutput(blocks, count); });
}

// Once per piece.
void ConsoleEmulation::moveSmoothers()
{
    const auto move = [this](double& current, double target) {
        current = flush((target - current) * blockCoefficient_ + current, kSmootherFlush);
    };
    move(driveCurrent_, driveTarget_);
    move(noiseLevelCurrent_, noiseLevelTarget_);
    if (driveCurrent_ == compensatedDrive_) return;
    compensation_ = std::pow(1.0 / driveCurrent_, kCompensationExponent);
    compensatedDrive_ = driveCurrent_;
}

VELMORA_KERNEL void ConsoleEmulation::takeInput(const RailBlocks& blocks, int count)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
        signal_.put(i, zeroNanLanes(Rails{blocks[0][i], blocks[1][i]}));
    NoiseGenerator::drawRails(generators_, noise_, count);
}

// The mute takes its taps from the left rail's generator, behind the piece's noise.
void ConsoleEmulation::setNoiseGains(int count)
{
    if (noiseMode_ == NoiseMode::On) return noiseGains_.fill(1.0);
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) noiseGains_[i] = louderRail(signal_[i]);
    autoMute_.run(noiseGains_, count, generators_[0]);
}

// The noise runs on even while none is added, so that it is settled when it's switched on. The bandwidth is
// limited only with the noise. `next` are stages that the signal goes through in step with it.
template <typename... Next>
VELMORA_KERNEL void ConsoleEmulation::runNoise(int count, Next... next)
{
    if (noiseMode_ == NoiseMode::Off) return shapeNoise(count, next...);

    RailSection<> bandwidth = bandwidth_;
    const bool limited = emulation_ != kPre70s;
    const double filteredMix = decade().constants->filteredMix;
    const double directMix = decade().constants->directMix;
    const auto add = [&](std::size_t i) VELMORA_KERNEL_LAMBDA {
        const Rails direct = signal_[i] + noiseGains_[i] * noise_[i];
        const Rails filtered = limited ? bandwidth.process(direct) : direct;
        signal_.put(i, filteredMix * filtered + directMix * direct);
    };
    shapeNoise(count, add, next...);
    bandwidth_ = bandwidth;
}

// The converter's noise isn't shaped.
template <typename... Next>
VELMORA_KERNEL void ConsoleEmulation::shapeNoise(int count, Next... next)
{
    const NoiseShaper::Setting setting{noiseLevelCurrent_, noiseScale_, noiseFilterCoefficient_};
    NoiseShaper shaper = noiseShaper_;
    const auto filter = [&](std::size_t i)
                            VELMORA_KERNEL_LAMBDA { noise_.put(i, shaper.filter(noise_[i], setting)); };
    if (analog())
        runInStep(
            count, filter,
            [&](std::size_t i) VELMORA_KERNEL_LAMBDA { noise_.put(i, shaper.tilt(noise_[i])); },
            [&](std::size_t i) VELMORA_KERNEL_LAMBDA { noise_.put(i, shaper.hum1(noise_[i])); },
            [&](std::size_t i) VELMORA_KERNEL_LAMBDA { noise_.put(i, shaper.hum2(noise_[i])); },
            [&](std::size_t i) VELMORA_KERNEL_LAMBDA { noise_.put(i, shaper.hum3(noise_[i])); }, next...);
    else
        runInStep(count, filter, next...);
    noiseShaper_ = shaper;
}

template <typename V>
VELMORA_KERNEL void ConsoleEmulation::runStage1(int count)
{
    if (emulation_ == kPre60s || emulation_ == kPre70s) return runBiasedStage<V>(count);
    runNoise(count);
    scaleSignal<V>(count, emulation_ == kPre80s ? kPre80sAttenuation : 1.0);
}

template <typename V>
VELMORA_KERNEL void ConsoleEmulation::runBiasedStage(int count)
{
    const BiasedStage::Coefficients c = decade().stage1;
    BiasedStage stage = stage1_;
    runNoise(count, [&, drive = driveCurrent_](std::size_t i) VELMORA_KERNEL_LAMBDA {
        const auto [signal, bias] = stage.follow(signal_[i], drive, c);
        signal_.put(i, signal);
        bias_.put(i, bias);
    });
    stage1_ = stage;
    forEachVector<V>(count, [&](std::size_t at) VELMORA_KERNEL_LAMBDA {
        signal_.putVector<V>(at, stage.curve<V>(signal_.vectorAt<V>(at), bias_.vectorAt<V>(at), c));
    });
}

// Stage 1 of the two that have no curve there.
template <typename V>
VELMORA_KERNEL void ConsoleEmulation::scaleSignal(int count, double gain)
{
    forEachVector<V>(count, [&, drive = driveCurrent_](std::size_t at) VELMORA_KERNEL_LAMBDA {
        signal_.putVector<V>(at, zeroNanLanes<V>(drive * signal_.vectorAt<V>(at) * gain));
    });
}

VELMORA_KERNEL void ConsoleEmulation::runStage2(int count)
{
    if (emulation_ == kPre60s) return runToTubes(count);
    if (analog()) runTransistors(count);
}

// Each rail takes a band of the other in negative phase.
VELMORA_KERNEL Rails ConsoleEmulation::crossed(const Rails& x, CrosstalkSection& section, double amount)
{
    const Rails band = section.process(x);
    return x - Rails{band[1], band[0]} * amount;
}

VELMORA_KERNEL void ConsoleEmulation::runToTubes(int count)
{
    const DecadeConstants d = *decade().constants;
    CrosstalkSection crosstalk = crosstalk_;
    double reading = saturation_.level();
    runInStep(
        count,
        [&](std::size_t i)
            VELMORA_KERNEL_LAMBDA { signal_.put(i, crossed(signal_[i], crosstalk, d.crosstalkAmount)); },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA {
            const Rails level = zeroNanLanes(d.stage2InGain * signal_[i]) * 0.7071;
            reading =
                SaturationMeter::peak(reading, louderRail(level) * d.saturationMeter, blockCoefficient_);
            signal_.put(i, level * kTubeInput);
        });
    crosstalk_ = crosstalk;
    saturation_.show(reading);
}

VELMORA_KERNEL void ConsoleEmulation::runTransistors(int count)
{
    const DecadeConstants d = *decade().constants;
    const TransistorStage::Coefficients c = decade().transistor;
    CrosstalkSection crosstalk = crosstalk_;
    TransistorStage transistors = transistors_;
    RailSection<Healing::None> transformer = transformer_;
    RailSection<> bump = bump_;
    double reading = saturation_.level();
    runInStep(
        count,
        [&](std::size_t i)
            VELMORA_KERNEL_LAMBDA { signal_.put(i, crossed(signal_[i], crosstalk, d.crosstalkAmount)); },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA {
            const Rails level = TransistorStage::level(zeroNanLanes(d.stage2InGain * signal_[i]));
            reading =
                SaturationMeter::peak(reading, louderRail(level) * d.saturationMeter, blockCoefficient_);
            signal_.put(i, level);
        },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA { signal_.put(i, TransistorStage::clip(signal_[i])); },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA { signal_.put(i, transistors.bend(signal_[i], c)); },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA {
            signal_.put(i, transformer.process(signal_[i]) * 1.4142 * c.makeUp * c.outGain);
        },
        [&](std::size_t i) VELMORA_KERNEL_LAMBDA { signal_.put(i, bump.process(signal_[i])); });
    crosstalk_ = crosstalk;
    transistors_ = transistors;
    transformer_ = transformer;
    bump_ = bump;
    saturation_.show(reading);
}

VELMORA_KERNEL void ConsoleEmulation::writeOutput(RailBlocks& blocks, int count)
{
    const bool tubes = emulation_ == kPre60s;
    const double outGain = decade().constants->stage2OutGain;
    RailSection<> bump = bump_;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        Rails y = signal_[i];
        if (tubes) y = bump.process(y * kTubeMakeUp * outGain);
        y = zeroNanLanes(y) * compensation_;
        blocks[0][i] = y[0];
        blocks[1][i] = y[1];
    }
    bump_ = bump;
}

} // namespace velmora::preamp
