#include "dsp/run_widest.h"
#include "dsp/vector_math.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <numbers>
#include <random>
#include <string>
#include <vector>

namespace velmora::test {
namespace {

using Values = std::vector<double>;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kTiny = std::numeric_limits<double>::denorm_min();
constexpr double kSmallest = std::numeric_limits<double>::min();
constexpr double kLargest = std::numeric_limits<double>::max();

struct Function {
    const char* name;
    void (*lanes)(const Values& x, const Values& y, Values& out);
    long double (*exact)(long double x, long double y);
    double (*libm)(double x, double y);
};

#define VELMORA_FUNCTION(label, CALL, EXACT, LIBM)                                                           \
    {                                                                                                        \
        label,                                                                                               \
            [](const Values& xs, const Values& ys, Values& out) {                                            \
                out.resize(xs.size());                                                                       \
                runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {                                            \
                    using V = Lanes<width>;                                                                  \
                    for (std::size_t i = 0; i < xs.size(); i += width) {                                     \
                        const V x = loadLanes<V>(&xs[i]);                                                    \
                        [[maybe_unused]] const V y = loadLanes<V>(&ys[i]);                                   \
                        storeLanes<V>(&out[i], CALL);                                                        \
                    }                                                                                        \
                });                                                                                          \
            },                                                                                               \
            [](long double x, [[maybe_unused]] long double y) -> long double { return EXACT; },              \
            [](double x, [[maybe_unused]] double y) -> double { return LIBM; },                              \
    }

const Function kExp = VELMORA_FUNCTION("exp", expLanes<V>(x), std::exp(x), std::exp(x));
const Function kExp10 = VELMORA_FUNCTION("exp10", exp10Lanes<V>(x), std::pow(10.0L, x), std::pow(10.0, x));
const Function kLog = VELMORA_FUNCTION("log", logLanes<V>(x), std::log(x), std::log(x));
const Function kLog10 = VELMORA_FUNCTION("log10", log10Lanes<V>(x), std::log10(x), std::log10(x));
const Function kPow = VELMORA_FUNCTION("pow", (powLanes<V>(x, y)), std::pow(x, y), std::pow(x, y));
const Function kTanh = VELMORA_FUNCTION("tanh", tanhLanes<V>(x), std::tanh(x), std::tanh(x));
const Function kAtan = VELMORA_FUNCTION("atan", atanLanes<V>(x), std::atan(x), std::atan(x));
#undef VELMORA_FUNCTION

/// Distance from the exact value in units of its last place as a double; 0 for the same infinity or two NaN.
double ulps(double got, long double exact)
{
    const double rounded = static_cast<double>(exact);
    if (std::isnan(rounded) || std::isinf(rounded)) {
        const bool same = std::isnan(rounded) ? std::isnan(got) : got == rounded;
        return same ? 0.0 : kInfinity;
    }
    int exponent = 0;
    std::frexp(exact, &exponent);
    const long double unit = std::ldexp(1.0L, std::max(exponent - 53, -1074));
    return static_cast<double>(std::fabs(got - exact) / unit);
}

/// The next `count` arguments; pairs for a power.
template <typename Draw>
void fill(Values& xs, Values& ys, std::size_t count, Draw draw)
{
    xs.resize(count);
    ys.resize(count);
    for (std::size_t i = 0; i < count; ++i) draw(xs[i], ys[i]);
}

class Source {
public:
    double between(double low, double high) { return std::uniform_real_distribution(low, high)(random_); }
    /// As many of each exponent, from `low` to `high`, both above 0.
    double magnitude(double low, double high)
    {
        std::uniform_int_distribution all(std::bit_cast<std::int64_t>(low),
                                          std::bit_cast<std::int64_t>(high));
        return std::bit_cast<double>(all(random_));
    }
    bool flip() { return random_() % 2 != 0; }

private:
    std::mt19937_64 random_{20};
};

constexpr std::size_t kDense = 100000;

struct Stretch {
    const char* range;
    void (*draw)(Source& source, double& x, double& y);
};

/// @param bound worst error that the docstring promises, in units of the last place.
void expectWithin(const Function& function, double bound, const std::vector<Stretch>& stretches)
{
    Source source;
    Values xs;
    Values ys;
    Values out;
    for (const Stretch& stretch : stretches) {
        fill(xs, ys, kDense, [&](double& x, double& y) { stretch.draw(source, x, y); });
        function.lanes(xs, ys, out);
        double worst = 0.0;
        double worstRelative = 0.0;
        std::size_t at = 0;
        for (std::size_t i = 0; i < xs.size(); ++i) {
            const long double exact = function.exact(xs[i], ys[i]);
            const double error = ulps(out[i], exact);
            if (error > worst) {
                worst = error;
                at = i;
            }
            if (std::fabs(exact) >= kSmallest && std::isfinite(out[i]))
                worstRelative =
                    std::max(worstRelative, static_cast<double>(std::fabs(out[i] / exact - 1.0L)));
        }
        std::printf("%-5s %-28s worst %.3f ulp, relative %.2e, at %.17g, %.17g\n", function.name,
                    stretch.range, worst, worstRelative, xs[at], ys[at]);
        EXPECT_LE(worst, bound) << function.name << " " << stretch.range;
    }
}

TEST(VectorMath, ExponentialsAreExactToTheirBounds)
{
    expectWithin(
        kExp, 0.8,
        {
            {"-1..1", [](Source& s, double& x, double&) { x = s.between(-1.0, 1.0); }},
            {"-20..20", [](Source& s, double& x, double&) { x = s.between(-20.0, 20.0); }},
            {"all normal results", [](Source& s, double& x, double&) { x = s.between(-708.0, 709.7); }},
            {"denormal results", [](Source& s, double& x, double&) { x = s.between(-746.0, -708.0); }},
            {"all small arguments",
             [](Source& s, double& x, double&) {
                 x = s.magnitude(kTiny, 1.0);
                 if (s.flip()) x = -x;
             }},
            {"between two powers of two",
             [](Source& s, double& x, double&) {
                 x = (std::floor(s.between(-1020.0, 1020.0)) + 0.5) * std::numbers::ln2 *
                     (1.0 + s.between(-1e-14, 1e-14));
             }},
        });
    expectWithin(
        kExp10, 0.8,
        {
            {"-1..1", [](Source& s, double& x, double&) { x = s.between(-1.0, 1.0); }},
            {"-10..10", [](Source& s, double& x, double&) { x = s.between(-10.0, 10.0); }},
            {"all normal results", [](Source& s, double& x, double&) { x = s.between(-307.6, 308.2); }},
            {"denormal results", [](Source& s, double& x, double&) { x = s.between(-324.5, -307.6); }},
            {"all small arguments",
             [](Source& s, double& x, double&) {
                 x = s.magnitude(kTiny, 1.0);
                 if (s.flip()) x = -x;
             }},
        });
}

TEST(VectorMath, LogarithmsAreExactToTheirBounds)
{
    const std::vector<Stretch> stretches{
        {"all magnitudes", [](Source& s, double& x, double&) { x = s.magnitude(kTiny, kLargest); }},
        {"denormals", [](Source& s, double& x, double&) { x = s.magnitude(kTiny, kSmallest); }},
        {"0.4..2.5", [](Source& s, double& x, double&) { x = s.between(0.4, 2.5); }},
        {"next to 1",
         [](Source& s, double& x, double&) { x = 1.0 + (s.flip() ? 1.0 : -1.0) * s.magnitude(1e-16, 0.01); }},
        {"next to the root of 1/2",
         [](Source& s, double& x, double&) {
             x = std::numbers::sqrt2 / 2.0 * (1.0 + s.between(-1e-14, 1e-14));
         }},
    };
    expectWithin(kLog, 0.75, stretches);
    expectWithin(kLog10, 0.75, stretches);
}

TEST(VectorMath, PowersAreExactToTheirBounds)
{
    expectWithin(kPow, 0.8,
                 {{"0..4 to the -4..4",
                   [](Source& s, double& x, double& y) {
                       x = s.between(0.0, 4.0);
                       y = s.between(-4.0, 4.0);
                   }},
                  {"levels to the 1.5",
                   [](Source& s, double& x, double& y) {
                       x = s.magnitude(1e-9, 10.0);
                       y = 1.5157165665104;
                   }},
                  {"results from e^-100 to e^100",
                   [](Source& s, double& x, double& y) {
                       x = s.magnitude(kTiny, kLargest);
                       y = s.between(-100.0, 100.0) / std::log(x);
                   }},
                  {"high powers next to 1", [](Source& s, double& x, double& y) {
                       x = 1.0 + (s.flip() ? 1.0 : -1.0) * s.magnitude(1e-15, 0.01);
                       y = s.between(-100.0, 100.0) / std::log(x);
                   }}});
    expectWithin(kPow, 1.5,
                 {{"all normal results",
                   [](Source& s, double& x, double& y) {
                       x = s.magnitude(kTiny, kLargest);
                       y = s.between(-708.0, 709.7) / std::log(x);
                   }},
                  {"high powers of 0.5..2",
                   [](Source& s, double& x, double& y) {
                       x = s.between(0.5, 2.0);
                       y = s.between(-708.0, 709.7) / std::log(x);
                   }},
                  {"denormal results", [](Source& s, double& x, double& y) {
                       x = s.magnitude(kTiny, 0.9);
                       y = s.between(-746.0, -708.5) / std::log(x);
                   }}});
}

TEST(VectorMath, TangentsAreExactToTheirBounds)
{
    expectWithin(kTanh, 1.1,
                 {
                     {"-1..1", [](Source& s, double& x, double&) { x = s.between(-1.0, 1.0); }},
                     {"-23..23", [](Source& s, double& x, double&) { x = s.between(-23.0, 23.0); }},
                     {"next to the crossover",
                      [](Source& s, double& x, double&) { x = 0.75 + s.between(-1e-2, 1e-2); }},
                     {"all magnitudes",
                      [](Source& s, double& x, double&) {
                          x = s.magnitude(kTiny, kLargest);
                          if (s.flip()) x = -x;
                      }},
                 });
    expectWithin(kAtan, 0.9,
                 {
                     {"-0.5..0.5", [](Source& s, double& x, double&) { x = s.between(-0.5, 0.5); }},
                     {"-5..5", [](Source& s, double& x, double&) { x = s.between(-5.0, 5.0); }},
                     {"next to the intervals' edges",
                      [](Source& s, double& x, double&) {
                          const double edges[] = {7.0, 11.0, 19.0, 39.0};
                          x = edges[static_cast<int>(s.between(0.0, 4.0))] / 16.0 *
                              (1.0 + s.between(-1e-3, 1e-3));
                      }},
                     {"all magnitudes",
                      [](Source& s, double& x, double&) {
                          x = s.magnitude(kTiny, kLargest);
                          if (s.flip()) x = -x;
                      }},
                 });
}

// Every function at zeros, ends, steps next to them, infinities and NaN, against libm: the same special
// values, the same signs, one step apart elsewhere.
TEST(VectorMath, EdgesAreThoseOfLibm)
{
    const Values plain{0.0,
                       -0.0,
                       1.0,
                       -1.0,
                       0.5,
                       2.0,
                       3.0,
                       -3.0,
                       1e-8,
                       -1e-8,
                       10.0,
                       1000.0,
                       22.0,
                       1e22,
                       -1e22,
                       kTiny,
                       -kTiny,
                       kSmallest,
                       kLargest,
                       -kLargest,
                       kInfinity,
                       -kInfinity,
                       kNaN,
                       709.782712893384,
                       709.7827128933841,
                       -745.1332191019411,
                       -745.1332191019412,
                       308.2547155599167,
                       308.25471555991674,
                       -323.6,
                       -323.7,
                       1.0 + 1e-16,
                       1.0 - 1.2e-16,
                       1.0 + 2.3e-16};
    Values xs;
    Values ys;
    for (double x : plain)
        for (double y : plain) {
            xs.push_back(x);
            ys.push_back(y);
        }
    for (; xs.size() % 8 != 0; ys.push_back(0.0)) xs.push_back(0.0);
    for (const Function& function : {kExp, kExp10, kLog, kLog10, kPow, kTanh, kAtan}) {
        Values out;
        function.lanes(xs, ys, out);
        for (std::size_t i = 0; i < xs.size(); ++i) {
            const bool power = function.lanes == kPow.lanes;
            // Powers of what is below 0 are left out, and -0 counts as 0.
            double expected = function.libm(power && xs[i] == 0.0 ? 0.0 : xs[i], ys[i]);
            if (power && xs[i] < 0.0 && ys[i] != 0.0) expected = kNaN;
            const std::string where =
                std::string(function.name) + " of " + std::to_string(xs[i]) + ", " + std::to_string(ys[i]);
            if (std::isnan(expected)) {
                EXPECT_TRUE(std::isnan(out[i])) << where << " is " << out[i];
            } else if (std::isinf(expected) || expected == 0.0) {
                EXPECT_EQ(std::bit_cast<std::uint64_t>(out[i]), std::bit_cast<std::uint64_t>(expected))
                    << where << " is " << out[i];
            } else {
                EXPECT_TRUE(out[i] == expected || out[i] == std::nextafter(expected, kInfinity) ||
                            out[i] == std::nextafter(expected, -kInfinity))
                    << where << " is " << out[i] << " not " << expected;
            }
        }
    }
}

TEST(VectorMath, RoundTripsAreClean)
{
    Values xs;
    Values ys;
    Values out;
    for (int n = 0; n <= 22; ++n) xs.push_back(std::pow(10.0, n)); // the powers that doubles hold
    xs.push_back(1.0);
    ys.resize(xs.size(), 1.0);
    kLog10.lanes(xs, ys, out);
    for (int n = 0; n <= 22; ++n) EXPECT_EQ(out[static_cast<std::size_t>(n)], n);
    kPow.lanes(xs, ys, out);
    EXPECT_EQ(out, xs); // to the 1
    Values back = ys;
    for (std::size_t n = 0; n <= 22; ++n) back[n] = static_cast<double>(n);
    kExp10.lanes(back, ys, out);
    for (std::size_t n = 0; n <= 22; ++n) EXPECT_LE(std::fabs(out[n] / xs[n] - 1.0), 2.3e-16) << n;
}

TEST(VectorMath, SetsAgreeBitForBit)
{
    Source source;
    Values xs;
    Values ys;
    fill(xs, ys, 20000, [&](double& x, double& y) {
        x = source.magnitude(1e-12, 1e3);
        if (source.flip()) x = -x;
        y = source.between(-5.0, 5.0);
    });
    for (const Function& function : {kExp, kExp10, kLog, kLog10, kPow, kTanh, kAtan}) {
        Values widest;
        function.lanes(xs, ys, widest);
        forEachInstructionSet([&] {
            Values out;
            function.lanes(xs, ys, out);
            std::size_t different = 0;
            for (std::size_t i = 0; i < xs.size(); ++i)
                different += !(out[i] == widest[i] || (std::isnan(out[i]) && std::isnan(widest[i])));
            EXPECT_EQ(different, 0u) << function.name;
        });
    }
}

} // namespace
} // namespace velmora::test
