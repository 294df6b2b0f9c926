#pragma once

#include "dsp/level_meter.h"
#include "engine/audio_record.h"
#include "params/parameter_ids.h"

#include <algorithm>
#include <cstdint>

namespace velmora {

/// Base of every processing module of the rack.
///
/// A module is addressed by a window of parameter ids and a window of meter ids, and works on ids relative to
/// their bases, so one class serves a fixed role and an insert alike. The engine drives it with `processMono`
/// in sub-blocks of at most 64 samples. All operations but `getMeter` come on the audio thread, or on the
/// host's main thread while audio is stopped; `getMeter` may come from any thread at any time.
class StripEffect {
public:
    StripEffect(std::uint32_t windowBaseId, std::uint32_t meterBaseId, std::uint32_t localBaseId)
        : windowBase(windowBaseId), meterBase(meterBaseId), localBase(localBaseId)
    {
    }
    virtual ~StripEffect() = default;
    StripEffect(const StripEffect&) = delete;
    StripEffect& operator=(const StripEffect&) = delete;

    /// Returns the module to silence: clears filters, detectors and meters, lands smoothed values on their
    /// targets.
    virtual void reset() = 0;
    /// Stores the rate in Hz, clamped by the class, and recomputes what depends on it. Clears no state.
    virtual void setSampleRate(double hz) = 0;
    /// @param id parameter id of the module's window (or a meter id of it); unknown ids are ignored.
    /// @param value normalised, 0..1.
    virtual void setParameter(std::uint32_t id, double value) = 0;
    /// Sets the relative ids 16..47 to the defaults of the module's kind.
    virtual void loadDefaults() = 0;
    /// Two-channel form; nothing in this mono program calls it.
    virtual void processStereo(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) = 0;
    /// Mono form: reads channel 0 of pair 0, writes the result to both channels of pair 0. @range
    /// frames 1..64
    virtual void processMono(const AudioRecord& in, const AudioRecord& out, std::int32_t frames) = 0;
    /// Writes the reading 0..1 of a meter id that the class knows; leaves `out` alone for others.
    virtual void getMeter(std::uint32_t id, double* out) = 0;
    /// Called instead of processing while the engine passes audio through: clears the meters.
    virtual void resetMeters() = 0;
    virtual void activate() = 0;
    /// From here on the module passes audio through, metered.
    virtual void deactivate() = 0;

    /// Modules of one rack share what their level meters found. @param memo outlives the module's processing;
    /// null for none.
    void shareLevels(LevelMemo* memo) { levelMemo = memo; }

protected:
    /// Id relative to the window; a meter id gives an offset behind the window's own.
    ParameterId relative(std::uint32_t id) const { return static_cast<ParameterId>(id - windowBase); }

    static constexpr double kMinSampleRate = 44100.0;
    static constexpr double kMaxSampleRate = 384000.0;

    /// A switch or stepped parameter's integer: the whole part of value x steps + 0.5.
    static std::int32_t decodeStep(double value, double steps = 1.0)
    {
        return static_cast<std::int32_t>(value * steps + 0.5);
    }
    /// Type parameter of a fixed module: variant 0..15.
    static std::int32_t decodeType(double value) { return decodeStep(value, 15.0); }

    /// Writes the defaults of a Type code's module to the relative ids 16..47.
    void writeDefaults(std::int32_t code);

    /// Copies the input pair to every pair of the output mask, metered: input and output meters read alike.
    void processThrough(const AudioRecord& in, const AudioRecord& out, std::int32_t frames);

    /// The level meters, for one sample of one channel or of both.
    void meterInMono(double x) { inMeter.process(x, meterRates); }
    void meterOutMono(double y) { outMeter.process(y, meterRates); }
    void meterInStereo(double left, double right) { inMeter.process(left, right, meterRates); }
    void meterOutStereo(double left, double right) { outMeter.process(left, right, meterRates); }

    /// The same for a whole block, at a fraction of the cost; readings agree but for rounding. A module that
    /// works in place has its input metered before it writes.
    /// Input and output of a mono module at once cost little more than one.
    void meterBlocks(const double* x, const double* y, std::int32_t frames)
    {
        LevelMeter::processBlocks(inMeter, x, outMeter, y, frames, meterRates, levelMemo);
    }
    /// The same signal on both sides of the meters.
    void meterBlocksOnBothSides(const double* x, const double* y, std::int32_t frames)
    {
        LevelMeter::processBothSides(inMeter, x, outMeter, y, frames, meterRates, levelMemo);
    }
    void meterInBlock(const double* left, const double* right, std::int32_t frames)
    {
        inMeter.processBlock(left, right, frames, meterRates, levelMemo);
    }
    void meterOutBlock(const double* left, const double* right, std::int32_t frames)
    {
        outMeter.processBlock(left, right, frames, meterRates, levelMemo);
    }

    /// Writes a block from `start` on to both channels of output pair 0, if the mask has it.
    void writeMono(const AudioRecord& out, std::int32_t start, const double* y, std::int32_t frames) const
    {
        if ((outputMask & 1) == 0) return;
        std::copy_n(y, frames, out.left(0) + start);
        std::copy_n(y, frames, out.right(0) + start);
    }

    /// Answers the first two meter ids. @return false for any other id, `out` untouched.
    bool answerLevelMeters(std::uint32_t id, double* out) const
    {
        if (id == meterBase)
            *out = inMeter.reading();
        else if (id == meterBase + 1)
            *out = outMeter.reading();
        else
            return false;
        return true;
    }

    /// Zeroes the level meters and takes their rates from the sample rate.
    void resetMeterState();

    std::uint32_t windowBase;
    std::uint32_t meterBase;
    std::uint32_t localBase;
    std::int32_t active = 1;
    std::int32_t inputPair = 0;
    std::int32_t outputMask = 1; ///< bit b: output pair b receives the result
    double sampleRate = kMinSampleRate;
    std::int32_t type = 1;            ///< variant, 0 = pass through
    std::int32_t sideChainSource = 0; ///< pair of the key signal: 0 own input, 1 auxiliary
    LevelMeter inMeter;
    LevelMeter outMeter;

private:
    LevelMemo* levelMemo = nullptr;
    LevelRates meterRates;
    double meteredSampleRate = 0.0; ///< the sample rate that the meters' rates are for
};

} // namespace velmora
