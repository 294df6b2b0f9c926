#include "modules/input/console_emulation.h"

#include "dsp/flush.h"
#include "dsp/one_pole.h"
#include "modules/input/section_setup.h"

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

double oneMinusExp(double w, double sampleRate)
{
    return 1.0 - std::exp(-w / sampleRate);
}

} // namespace

ConsoleEmulation::ConsoleEmulation(std::int32_t instanceIndex)
    : instanceIndex_(instanceIndex),
      spread_(componentSpread(instanceIndex)),
      rails_{Rail(railSeeds(instanceIndex).left, spread_, 0),
             Rail(railSeeds(instanceIndex).right, spread_, 1)},
      noiseLevelTarget_(kStartNoiseLevel),
      noiseLevelCurrent_(kStartNoiseLevel)
{
    setSampleRate(kReferenceRate);
}

void ConsoleEmulation::setSampleRate(double hz)
{
    sampleRate_ = hz;
    blockCoefficient_ = onePoleRate(kBlockSeconds, hz);
    transistor_.highPass = DcBlocker::design(hz);
    for (Rail& rail : rails_) rail.tube.setSampleRate(hz);
    reset();
}

void ConsoleEmulation::reset()
{
    noiseLevelCurrent_ = noiseLevelTarget_;
    driveCurrent_ = driveTarget_;
    for (Rail& rail : rails_) {
        rail.noise.reset(sampleRate_);
        rail.stage1.reset();
        rail.transistor.reset();
        for (StripBiquad* section : {&rail.bandwidth, &rail.crosstalk, &rail.bump})
            restartSection(*section, sampleRate_);
    }
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
    const double rateScale = std::sqrt(sampleRate_ / kReferenceRate);
    if (!analog()) {
        noiseScale_ = rateScale;
        return;
    }
    const DecadeConstants& d = decadeConstants(emulation_);
    decade_ = &d;
    biased_ = BiasedStage::coefficients(d.stage1, sampleRate_);
    noiseScale_ = rateScale * d.noiseScale;
    noiseFilterCoefficient_ = oneMinusExp(d.noiseFilterW, sampleRate_);
    // 256 ^ sqrt(0.5) / 256, at a sixteenth of an eighth
    transistor_.bias = d.biased ? std::pow(256.0, std::sqrt(0.5)) / 256.0 * 0.0625 * 0.125 : 0.0;
    transistor_.harmonic = oneMinusExp(d.harmonicW, sampleRate_);
    transistor_.makeUp = d.stage2MakeUp;
    transistor_.outGain = d.stage2OutGain;
    for (int rail = 0; rail < kRails; ++rail) {
        Rail& r = rails_[static_cast<unsigned>(rail)];
        r.noise.tune(d, spread_, rail);
        r.bandwidth.setFrequency(d.bandwidthFrequency);
        r.bandwidth.resetState();
        landSection(r.crosstalk, d.crosstalkFrequency, d.crosstalkQ);
        landSection(r.bump, d.bumpFrequency, d.bumpQ, d.bumpGainDb);
    }
}

void ConsoleEmulation::setDrive(double v)
{
    driveTarget_ = std::pow(1000.0, std::clamp(v, 0.0, 1.0)) * 4.0 * 0.31622777;
}

void ConsoleEmulation::setNoiseLevel(double v)
{
    noiseLevelTarget_ = std::pow(1000.0, std::clamp(v, 0.0, 1.0)) * 0.000003 * 0.57;
}

void ConsoleEmulation::run(const RailBlocks& in, RailBlocks& out, int count)
{
    moveSmoothers();
    for (std::size_t rail = 0; rail < kRails; ++rail)
        std::transform(in[rail].begin(), in[rail].begin() + count, signal_[rail].begin(), zeroIfNan);
    makeNoise(count);
    if (noiseMode_ == NoiseMode::On) addNoise(count);
    if (noiseMode_ == NoiseMode::AutoMute) addMutedNoise(count);
    if (noiseMode_ != NoiseMode::Off) limitBandwidth(count);

    if (emulation_ == kAdc90s) {
        scaleSignal(count, 1.0);
        converter_.process(signal_, count, rails_[0].noise.generator(), saturation_, blockCoefficient_);
    } else {
        if (emulation_ == kPre80s)
            scaleSignal(count, kPre80sAttenuation);
        else
            runStage1(count);
        runCrosstalk(count);
        if (emulation_ == kPre60s)
            runTubes(count);
        else
            runTransistors(count);
        runBump(count);
    }
    for (std::size_t rail = 0; rail < kRails; ++rail)
        std::transform(signal_[rail].begin(), signal_[rail].begin() + count, out[rail].begin(),
                       [gain = compensation_](double y) { return zeroIfNan(y) * gain; });
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

// The noise runs on even while none is added, so that it is settled when it's switched on.
void ConsoleEmulation::makeNoise(int count)
{
    for (std::size_t rail = 0; rail < kRails; ++rail) {
        double* block = noise_[rail].data();
        ConsoleNoise& noise = rails_[rail].noise;
        noise.generate(block, count, noiseLevelCurrent_, noiseScale_, noiseFilterCoefficient_);
        if (analog()) noise.shape(block, count);
    }
}

// From here on the noise blocks hold signal and noise before the bandwidth filter.
void ConsoleEmulation::addNoise(int count)
{
    for (std::size_t rail = 0; rail < kRails; ++rail)
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            noise_[rail][i] = signal_[rail][i] += noise_[rail][i];
}

void ConsoleEmulation::addMutedNoise(int count)
{
    NoiseGenerator& taps = rails_[0].noise.generator();
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const double level = std::max(std::fabs(signal_[0][i]), std::fabs(signal_[1][i]));
        const double gain = autoMute_.process(level, taps);
        for (std::size_t rail = 0; rail < kRails; ++rail)
            noise_[rail][i] = signal_[rail][i] += gain * noise_[rail][i];
    }
}

void ConsoleEmulation::limitBandwidth(int count)
{
    for (std::size_t rail = 0; rail < kRails; ++rail) {
        if (emulation_ != kPre70s) rails_[rail].bandwidth.runBlock(signal_[rail].data(), count);
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            signal_[rail][i] = decade_->filteredMix * signal_[rail][i] + decade_->directMix * noise_[rail][i];
    }
}

void ConsoleEmulation::runStage1(int count)
{
    for (std::size_t rail = 0; rail < kRails; ++rail) {
        BiasedStage stage = rails_[rail].stage1;
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            signal_[rail][i] = stage.process(signal_[rail][i], driveCurrent_, biased_);
        rails_[rail].stage1 = stage;
    }
}

// Stage 1 of the two that have no curve there.
void ConsoleEmulation::scaleSignal(int count, double gain)
{
    for (RailBlock& block : signal_)
        for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i)
            block[i] = zeroIfNan(driveCurrent_ * block[i] * gain);
}

// Each rail takes a band of the other in negative phase.
void ConsoleEmulation::runCrosstalk(int count)
{
    const double k = decade_->crosstalkAmount;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const double l = signal_[0][i];
        const double r = signal_[1][i];
        signal_[0][i] = l - rails_[1].crosstalk.runSample(r) * k;
        signal_[1][i] = r - rails_[0].crosstalk.runSample(l) * k;
    }
}

void ConsoleEmulation::runTubes(int count)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const double left = zeroIfNan(decade_->stage2InGain * signal_[0][i]) * 0.7071;
        const double right = zeroIfNan(decade_->stage2InGain * signal_[1][i]) * 0.7071;
        saturation_.peak(std::max(std::fabs(left), std::fabs(right)) * decade_->saturationMeter,
                         blockCoefficient_);
        signal_[0][i] = rails_[0].tube.run(left * kTubeInput) * kTubeMakeUp * decade_->stage2OutGain;
        signal_[1][i] = rails_[1].tube.run(right * kTubeInput) * kTubeMakeUp * decade_->stage2OutGain;
    }
}

void ConsoleEmulation::runTransistors(int count)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        const double left = TransistorStage::level(zeroIfNan(decade_->stage2InGain * signal_[0][i]));
        const double right = TransistorStage::level(zeroIfNan(decade_->stage2InGain * signal_[1][i]));
        saturation_.peak(std::max(std::fabs(left), std::fabs(right)) * decade_->saturationMeter,
                         blockCoefficient_);
        signal_[0][i] = rails_[0].transistor.process(left, transistor_);
        signal_[1][i] = rails_[1].transistor.process(right, transistor_);
    }
}

void ConsoleEmulation::runBump(int count)
{
    for (std::size_t rail = 0; rail < kRails; ++rail) rails_[rail].bump.runBlock(signal_[rail].data(), count);
}

} // namespace velmora::preamp
