#pragma once

#include "modules/compressor/strip_effect_compressor.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

namespace velmora::test {

inline constexpr std::uint32_t kWindow = 112;
inline constexpr std::uint32_t kMeters = 375;
inline constexpr std::array kRates{44100.0, 96000.0, 384000.0};

enum Variant : int { Opto = 1, Fet, Vca };
inline constexpr std::array kVariants{Opto, Fet, Vca};
inline constexpr std::array kVariantNames{"off ", "opto", "FET ", "VCA "};

using Signal = std::vector<double>;

inline double toDb(double gain)
{
    return 20.0 * std::log10(gain);
}
inline double fromDb(double db)
{
    return std::pow(10.0, db / 20.0);
}

/// The compressor in its fixed role, with a test signal in front of it. Starts at its slowest release and
/// fastest attack, without make-up gain and with the key's high-pass at its lowest.
class CompressorRig {
public:
    enum Id : std::uint32_t { Type = 0, SideChain = 4, Monitor = 5 };
    enum Own : std::uint32_t { Attack = 16, Release, Threshold, Ratio, Mix, Makeup, HighPass, Link };
    enum Reading : std::uint32_t { InLevel, OutLevel, GainReduction };

    explicit CompressorRig(int variant, double rate = 44100.0) : module(kWindow, kMeters, 555), rate_(rate)
    {
        set(Type, variant / 15.0);
        set(Attack, 0.0);
        set(Release, 1.0);
        set(Makeup, 0.0);
        set(HighPass, 0.0);
        module.setSampleRate(rate);
        module.reset();
    }

    void set(std::uint32_t offset, double value) { module.setParameter(kWindow + offset, value); }
    double read(std::uint32_t meter)
    {
        double value = -1.0;
        module.getMeter(kMeters + meter, &value);
        return value;
    }
    /// Gain of the last sample, from the meter.
    double gain() { return 1.0 - read(GainReduction); }

    /// Runs a signal in place, in pieces of at most `piece` samples, against an own or an auxiliary key.
    Signal run(Signal x, Signal aux = {}, std::size_t piece = 64)
    {
        aux.resize(x.size());
        Signal other = x;
        for (std::size_t at = 0; at < x.size(); at += piece)
            module.processMono(record(x, other, aux, aux, at), record(x, other, aux, aux, at),
                               length(x, at, piece));
        return x;
    }
    std::array<Signal, 2> runStereo(Signal l, Signal r)
    {
        Signal aux(l.size());
        for (std::size_t at = 0; at < l.size(); at += 64)
            module.processStereo(record(l, r, aux, aux, at), record(l, r, aux, aux, at), length(l, at, 64));
        return {std::move(l), std::move(r)};
    }

    std::size_t samples(double seconds) const { return static_cast<std::size_t>(seconds * rate_); }
    Signal silence(double seconds) const { return Signal(samples(seconds)); }
    Signal sine(double seconds, double amplitude, double hz = 1000.0) const
    {
        Signal x(samples(seconds));
        for (std::size_t i = 0; i < x.size(); ++i)
            x[i] = amplitude * std::sin(2.0 * std::numbers::pi * hz / rate_ * static_cast<double>(i));
        return x;
    }
    /// Samples of alternating sign: a key of constant magnitude behind the high-pass at 10 Hz. The first
    /// sample brings the filter's state where the rest would have brought it.
    Signal alternating(double seconds, double amplitude) const
    {
        Signal x(samples(seconds));
        for (std::size_t i = 0; i < x.size(); ++i) x[i] = i % 2 == 0 ? amplitude : -amplitude;
        x[0] = amplitude / (1.0 + highPassKeep());
        return x;
    }
    /// Magnitude of the key behind its high-pass at 10 Hz, for an alternating signal.
    double keyMagnitude(double amplitude) const
    {
        return amplitude * 2.0 * highPassKeep() / (1.0 + highPassKeep());
    }

    StripEffectCompressor module;

private:
    double highPassKeep() const { return std::exp(-2.0 * std::numbers::pi * 10.0 / rate_); }
    static AudioRecord record(Signal& l, Signal& r, Signal& auxL, Signal& auxR, std::size_t at)
    {
        AudioRecord result;
        result.channels[0] = l.data() + at;
        result.channels[1] = r.data() + at;
        result.channels[2] = auxL.data() + at;
        result.channels[3] = auxR.data() + at;
        return result;
    }
    static std::int32_t length(const Signal& x, std::size_t at, std::size_t piece)
    {
        return static_cast<std::int32_t>(std::min(piece, x.size() - at));
    }

    double rate_;
};

} // namespace velmora::test
