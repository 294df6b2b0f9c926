#pragma once

#include "modules/filters/strip_effect_filters.h"
#include "tests/support/module_rig.h"

#include <complex>
#include <numbers>

namespace velmora::test {

/// The filters with everything out.
struct FiltersRig : ModuleRig<StripEffectFilters, 48, 367> {
    enum Id {
        Monitor = 5,
        LpfIn = 16,
        LpfFreq,
        LpfSlope,
        PrmIn,
        PrmGain,
        PrmFreq,
        PrmQ,
        PrmType,
        HpfIn,
        HpfFreq,
        HpfSlope
    };
    enum Type { Basic = 1, Pro, SideChain };

    explicit FiltersRig(int type, double sampleRate = 44100.0) : ModuleRig(type, sampleRate)
    {
        for (int id : {LpfIn, PrmIn, HpfIn}) set(id, 0.0);
        module.reset();
    }

    /// Magnitude of the settled module's transfer function, from its impulse response.
    double magnitude(double hz, double seconds = 0.5)
    {
        module.reset();
        Signal impulse(samples(seconds));
        impulse[0] = 1.0;
        const Signal h = run(impulse);
        std::complex<double> sum = 0.0;
        std::complex<double> turn = 1.0;
        const std::complex<double> step = std::polar(1.0, -2.0 * std::numbers::pi * hz / rate);
        for (double v : h) {
            sum += v * turn;
            turn *= step;
        }
        return std::abs(sum);
    }
    double magnitudeDb(double hz) { return toDb(magnitude(hz)); }
};

/// Analogue second-order prototype carried over by the bilinear transform: what a digital section at `corner`
/// must do at `hz`, after Q has shrunk towards Nyquist.
struct Prototype {
    double hz;
    double rate;

    double pole(double corner, double q, double scale, double exponent, std::complex<double>& s) const
    {
        const double f0 = std::min(corner, 0.499 * rate);
        s = {0.0, std::tan(std::numbers::pi * hz / rate) / std::tan(std::numbers::pi * f0 / rate)};
        const double qw = q * (1.0 - std::pow(f0 / (scale * rate), exponent));
        return std::abs(s * s + s / qw + 1.0);
    }
    double highPass(double corner, double q) const
    {
        std::complex<double> s;
        const double d = pole(corner, q, 0.5001, 6.0, s);
        return std::norm(s) / d;
    }
    double lowPass(double corner, double q) const
    {
        std::complex<double> s;
        return 1.0 / pole(corner, q, 0.50001, 8.0, s);
    }
    std::complex<double> onePole(double corner) const
    {
        const double c = 1.0 - std::exp(-6.283 * corner / rate);
        return c / (1.0 - (1.0 - c) * std::polar(1.0, -2.0 * std::numbers::pi * hz / rate));
    }
};

} // namespace velmora::test
