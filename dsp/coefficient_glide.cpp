#include "dsp/coefficient_glide.h"

#include "dsp/flush.h"

#include <cmath>

namespace velmora {

namespace {

constexpr double kIncrementFlush = 1e-30;

struct RootPair {
    double re1, im1, re2, im2;
};

// Roots of b0 z^2 + b1 z + b2. The first of a complex pair has the negative imaginary part, as long as b0 is
// positive; with a negative b0 the two change places.
RootPair numeratorRoots(const BiquadCoefficients& c)
{
    if (c.b0 == 0.0) return {0.0, 0.0, 0.0, 0.0}; // no finite zeros; a division would leave NaN in the roots
    const double d = c.b1 * c.b1 - 4.0 * c.b0 * c.b2;
    if (d >= 0.0) {
        const double root = std::sqrt(d);
        return {(-c.b1 - root) / (2.0 * c.b0), 0.0, (root - c.b1) / (2.0 * c.b0), 0.0};
    }
    const double re = c.b1 / (-2.0 * c.b0);
    const double im = std::sqrt(-d) / (-2.0 * c.b0);
    return {re, im, re, -im};
}

RootPair denominatorRoots(const BiquadCoefficients& c)
{
    const double d = c.a1 * c.a1 - 4.0 * c.a2;
    if (d >= 0.0) {
        const double root = std::sqrt(d);
        return {(-c.a1 - root) / 2.0, 0.0, (root - c.a1) / 2.0, 0.0};
    }
    const double re = -c.a1 / 2.0;
    const double im = -std::sqrt(-d) / 2.0;
    return {re, im, re, -im};
}

} // namespace

CoefficientGlide::Roots CoefficientGlide::rootsOf(const BiquadCoefficients& c)
{
    const RootPair z = numeratorRoots(c);
    const RootPair p = denominatorRoots(c);
    return {z.re1, z.im1, z.re2, z.im2, p.re1, p.im1, p.re2, p.im2, c.b0};
}

void CoefficientGlide::init(std::uint32_t length)
{
    length_ = length;
    left_ = 0;
    current_ = {};
    target_ = {};
    roots_ = {};
    roots_[Z1Re] = 1.0;
    roots_[Gain] = 1.0;
    targetRoots_ = roots_;
    increments_ = {};
}

void CoefficientGlide::aim(const BiquadCoefficients& target)
{
    if (left_ == 0) current_ = target_; // at rest the target itself is in use
    target_ = target;
    targetRoots_ = rootsOf(target);
    left_ = length_;
    for (std::size_t i = 0; i < kRoots; ++i)
        increments_[i] = flush((targetRoots_[i] - roots_[i]) / length_, kIncrementFlush);
}

void CoefficientGlide::snap()
{
    roots_ = targetRoots_;
    current_ = target_;
    increments_ = {};
    left_ = 0;
}

} // namespace velmora
