#pragma once

#include <cstdint>

namespace velmora {

/// The audio engine as a host adapter sees it. Float and double forms are twins; 4 input and 2 output
/// pointers.
class QORBaseAudioProcessor {
public:
    virtual ~QORBaseAudioProcessor() = default;

    virtual void processFloat(float** inputs, float** outputs, std::int32_t frames) = 0;
    virtual void processDouble(double** inputs, double** outputs, std::int32_t frames) = 0;
    /// For a host that stops calling the forms above while it bypasses the effect.
    virtual void processBypassedFloat(float** inputs, float** outputs, std::int32_t frames) = 0;
    virtual void processBypassedDouble(double** inputs, double** outputs, std::int32_t frames) = 0;
    /// @return latency in samples.
    virtual std::int32_t getLatency() const = 0;
    /// @return the integer part of half the sample rate in Hz.
    virtual std::int32_t getHalfSampleRate() const = 0;
    /// @return false if the rate was clamped to 44100..384000 Hz.
    virtual bool setSampleRate(double hz) = 0;
    virtual void reset() = 0;
    virtual bool canProcessFloat() const = 0;
    virtual bool canProcessDouble() const = 0;
    /// @param value normalised, 0..1.
    virtual void setParameter(std::int32_t id, double value) = 0;
    /// Meter readings. @return true and a value 0..1 for meter ids; false, `out` untouched, for all others.
    virtual bool getParameter(std::int32_t id, double* out) = 0;
};

} // namespace velmora
