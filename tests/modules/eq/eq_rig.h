#pragma once

#include "modules/eq/strip_effect_eq.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <numbers>
#include <random>
#include <vector>

namespace velmora::test {

using Signal = std::vector<double>;

inline constexpr std::array<EqFlavour, 3> kFlavours{EqFlavour::Sorrel, EqFlavour::Tamarin,
                                                    EqFlavour::Juniper};
inline constexpr PerBand<const char*> kBandNames{"HI", "HM", "LM", "LO"};

inline const char* name(EqFlavour flavour)
{
    constexpr std::array<const char*, 3> names{"Sorrel", "Tamarin", "Juniper"};
    return names[static_cast<std::size_t>(flavour) - 1];
}

inline double db(double linear)
{
    return 20.0 * std::log10(linear);
}

/// Offsets of the module's parameters.
enum Control : std::uint32_t { In = 16, Gain = 17, Freq = 18, Width = 19, Out = 32, Analog = 33 };

/// A module with buffers of its own, in a window that isn't the fixed role's. Starts with every band in at
/// 0 dB, Analog off.
class EqRig {
public:
    explicit EqRig(EqFlavour flavour, double rate = 48000.0)
    {
        for (unsigned c = 0; c < 4; ++c) record_.channels[c] = buffers_[c].data();
        module.setSampleRate(rate);
        setFlavour(flavour);
        neutral();
        module.reset();
    }

    void neutral()
    {
        for (EqBand band : kAllEqBands) setBand(band, 1.0, 0.5, 0.5, 0.0);
        set(Out, 0.5);
        set(Analog, 0.0);
    }
    void setFlavour(EqFlavour flavour) { module.setParameter(kBase, static_cast<int>(flavour) / 15.0); }
    void set(std::uint32_t offset, double value) { module.setParameter(kBase + offset, value); }
    void set(EqBand band, Control control, double value)
    {
        set(control + 4 * static_cast<std::uint32_t>(band), value);
    }
    void setBand(EqBand band, double in, double gain, double freq, double width)
    {
        set(band, In, in);
        set(band, Gain, gain);
        set(band, Freq, freq);
        set(band, Width, width);
    }
    void setAllIn(double in)
    {
        for (EqBand band : kAllEqBands) set(band, In, in);
    }

    Signal run(const Signal& input, const std::vector<int>& pieces = {64})
    {
        Signal output(input.size());
        std::size_t at = 0;
        for (std::size_t p = 0; at < input.size(); ++p) {
            const std::size_t count =
                std::min(static_cast<std::size_t>(pieces[p % pieces.size()]), input.size() - at);
            std::copy_n(input.data() + at, count, buffers_[0].data());
            std::copy_n(input.data() + at, count, buffers_[1].data());
            module.processMono(record_, record_, static_cast<std::int32_t>(count));
            std::copy_n(buffers_[1].data(), count, output.data() + at);
            at += count;
        }
        return output;
    }

    double meter(std::uint32_t number)
    {
        double reading = -1.0;
        module.getMeter(kMeters + number, &reading);
        return reading;
    }

    static constexpr std::uint32_t kBase = 256;
    static constexpr std::uint32_t kMeters = 399;
    StripEffectEq module{kBase, kMeters, 711};

private:
    std::array<std::array<double, 64>, 4> buffers_{};
    AudioRecord record_;
};

inline Signal sine(double hz, double rate, double amplitude, double seconds)
{
    Signal s(static_cast<std::size_t>(seconds * rate));
    for (std::size_t n = 0; n < s.size(); ++n)
        s[n] = amplitude * std::sin(2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate);
    return s;
}

inline Signal noise(std::size_t length, double amplitude, unsigned seed = 1)
{
    std::minstd_rand engine(seed);
    std::uniform_real_distribution<double> value(-amplitude, amplitude);
    Signal s(length);
    for (double& x : s) x = value(engine);
    return s;
}

/// Fourier sum over a signal from `from` on.
inline std::complex<double> bin(const Signal& s, double hz, double rate, std::size_t from = 0)
{
    std::complex<double> sum;
    for (std::size_t n = from; n < s.size(); ++n)
        sum += s[n] * std::polar(1.0, -2.0 * std::numbers::pi * hz * static_cast<double>(n) / rate);
    return sum;
}

} // namespace velmora::test
