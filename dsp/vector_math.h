#pragma once

#include "dsp/lanes.h"

#include <cstddef>
#include <cstdint>
#include <limits>

/// Exponential, logarithm, power, hyperbolic tangent and arc tangent of lane vectors. No tables, no branches,
/// no contraction, so all instruction sets give the same bits. The errors stated are the worst found against
/// libm's long double, in units of the last place; `tests/dsp/vector_math_test.cpp` prints and holds them.
///
/// Methods: arguments are reduced with constants split in two (Cody and Waite, Software Manual for the
/// Elementary Functions), the logarithm goes through the series of the inverse hyperbolic tangent, the
/// tangent through Lambert's continued fraction. Polynomials are minimax fits by the Remez exchange, weighted
/// for the relative error of the function. Where a sum would lose the last place it is carried as head and
/// tail.
namespace velmora {

namespace detail {

/// Adding it to a double below 2^51 rounds to an integer, whose bits are then the lowest ones of the sum.
inline constexpr double kRounder = 0x1.8p52;

inline constexpr double kLog2E = 0x1.71547652b82fep0;
inline constexpr double kLn2Head = 0x1.62e42fefa3800p-1; // 42 bits: its product with an exponent is exact
inline constexpr double kLn2Tail = 0x1.ef35793c76730p-45;
inline constexpr double kLog10Of2Head = 0x1.34413509f7800p-2; // 42 bits
inline constexpr double kLog10Of2Tail = 0x1.fef311f12b358p-46;

template <typename V>
VELMORA_KERNEL V roundLanes(const V& v)
{
    return (v + kRounder) - kRounder;
}

/// 2^k of whole k from -1022 to 1023.
template <typename V>
VELMORA_KERNEL V powerOfTwo(const V& k)
{
    return fromBits<V>(bitsOf<V>(k + (kRounder + 1023.0)) << 52);
}

/// v * 2^k of whole k from -2044 to 2046, rounded once where the result is a denormal.
template <typename V>
VELMORA_KERNEL V scale(const V& v, const V& k)
{
    const V half = roundLanes<V>(k * 0.5);
    return v * powerOfTwo<V>(half) * powerOfTwo<V>(k - half);
}

/// The 26 leading bits of each lane; products of two such are exact.
template <typename V>
VELMORA_KERNEL V leadingBits(const V& v)
{
    return fromBits<V>(bitsOf(v) & ~((std::int64_t{1} << 27) - 1));
}

/// c[0] + c[1] x + c[2] x^2 ..., as two interleaved Horner chains.
template <typename V, std::size_t count>
VELMORA_KERNEL V polynomial(const V& x, const double (&c)[count])
{
    static_assert(count >= 2);
    const V square = x * x;
    V even = allLanes<V>(c[(count - 1) / 2 * 2]);
    V odd = allLanes<V>(c[(count - 2) / 2 * 2 + 1]);
    for (std::size_t i = (count - 1) / 2 * 2; i >= 2; i -= 2) even = even * square + c[i - 2];
    for (std::size_t i = (count - 2) / 2 * 2 + 1; i >= 3; i -= 2) odd = odd * square + c[i - 2];
    return even + odd * x;
}

/// A value as the sum of two; the tail is far smaller.
template <typename V>
struct HeadTail {
    V head, tail;
};

/// head + tail with all that fits moved to the head.
template <typename V>
VELMORA_KERNEL HeadTail<V> settled(const V& head, const V& tail)
{
    const V sum = head + tail;
    return {sum, (head - sum) + tail};
}

/// e^(r.head + r.tail) for |r| up to ln(2)/2.
template <typename V>
VELMORA_KERNEL V expOfReduced(const HeadTail<V>& reduced)
{
    // (e^r - 1 - r - r^2/2) / r^3
    constexpr double kExp[] = {0x1.5555555555501p-3,  0x1.55555555531eap-5,  0x1.11111111289afp-7,
                               0x1.6c16c17ccd790p-10, 0x1.a01a011bd185ep-13, 0x1.a019ab09a88f1p-16,
                               0x1.71df55b5f82d4p-19, 0x1.289fb139a3e9ap-22, 0x1.ad1fd44414a4fp-26};
    const auto [r, tail] = settled<V>(reduced.head, reduced.tail);
    const V bent = r * r * (r * polynomial<V>(r, kExp) + 0.5);
    const V line = 1.0 + r;
    return line + (bent + (((1.0 - line) + r) + tail));
}

/// x = 2^exponent * (1 + fraction), with 1 + fraction between the roots of 1/2 and 2. For x above 0,
/// denormals too; of anything else it makes some finite number.
template <typename V>
struct Split {
    V exponent, fraction;
};

template <typename V>
VELMORA_KERNEL Split<V> split(const V& x)
{
    using Unsigned = typename LaneTypes<kLaneCount<V>>::Unsigned; // the bits of a NaN may wrap
    constexpr std::uint64_t kOne = 0x3FF0000000000000;
    constexpr std::uint64_t kRootOfHalf = 0x3FE6A09E667F3BCD;
    constexpr std::uint64_t kMantissa = (std::uint64_t{1} << 52) - 1;
    constexpr std::uint64_t kTwoTo52 = 0x4330000000000000;
    const MaskOf<V> denormal = x < std::numeric_limits<double>::min();
    const V normal = choose<V>(denormal, x * 0x1p54, x);
    const Unsigned bits = reinterpret_cast<Unsigned>(normal) + (kOne - kRootOfHalf);
    const V biased = reinterpret_cast<V>((bits >> 52) | kTwoTo52) - (0x1p52 + 1023.0);
    const V mantissa = reinterpret_cast<V>((bits & kMantissa) + kRootOfHalf);
    return {biased - keepWhere<V>(denormal, allLanes<V>(54.0)), mantissa - 1.0};
}

/// ln(1 + f) of a split's fraction, good to some 60 bits.
template <typename V>
VELMORA_KERNEL HeadTail<V> logOfFraction(const V& f)
{
    // (ln((1 + s) / (1 - s)) / s - 2) / s^2 over s^2
    constexpr double kLog[] = {0x1.5555555555593p-1, 0x1.999999997fc76p-2, 0x1.2492494204504p-2,
                               0x1.c71c51f8b85d0p-3, 0x1.74664287c45c9p-3, 0x1.39a1581e48d6dp-3,
                               0x1.2f0976b5fa17cp-3};
    const V s = f / (2.0 + f);
    const V square = s * s;
    const V halfSquare = 0.5 * f * f;
    const V head = f - halfSquare; // as 2 s = f - s f and s f = f^2/2 - s f^2/2
    const V tail = ((f - head) - halfSquare) + s * (halfSquare + square * polynomial<V>(square, kLog));
    return {head, tail};
}

/// The values of a logarithm where x is no finite number above 0, as libm has them.
template <typename V>
VELMORA_KERNEL V withLogEdges(const V& x, const V& log)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    const V belowOrNaN = choose<V>(x == 0.0, allLanes<V>(-kInfinity), allLanes<V>(kNaN));
    return choose<V>(x > 0.0, choose<V>(x == kInfinity, x, log), belowOrNaN);
}

/// 1.5 ln(x) of x above 0, good to some 65 bits relative to the result; the head has 26 bits. The series
/// 1.5 ln((1 + s) / (1 - s)) = s (3 + s^2 + ...) has exact leading terms, which is what the factor is for.
template <typename V>
VELMORA_KERNEL HeadTail<V> preciseLog(const V& x)
{
    constexpr double kHead = 0x1.0a2b23f3ba800p0; // 1.5 ln(2)
    constexpr double kTail = 0x1.b9b40d76ac6b2p-43;
    // (1.5 ln((1 + s) / (1 - s)) / s - 3 - s^2) / s^4 over s^2
    constexpr double kLog[] = {0x1.3333333333330p-1, 0x1.b6db6db6dc85ep-2, 0x1.555555541f725p-2,
                               0x1.1745d2262778ep-2, 0x1.d89d13d8e413ap-3, 0x1.99b118e320175p-3,
                               0x1.66a5e928ea6e5p-3, 0x1.70526c649f85ep-3};
    const auto [exponent, f] = split<V>(x);

    // s = f / (2 + f) as head and tail
    const V below = 2.0 + f;
    const V inverse = 1.0 / below;
    const V s = f * inverse;
    const V sHead = leadingBits<V>(s);
    const V belowHead = leadingBits<V>(below);
    const V belowTail = f - (belowHead - 2.0);
    const V sTail = ((f - sHead * belowHead) - sHead * belowTail) * inverse;

    // s (3 + s^2 + ...)
    const V square = s * s;
    const V rest = square * square * polynomial<V>(square, kLog) + sTail * (sHead + s);
    const V squareHead = sHead * sHead;
    const V factorHead = leadingBits<V>(3.0 + squareHead + rest);
    const V factorTail = rest - ((factorHead - 3.0) - squareHead);
    const HeadTail<V> series = settled<V>(sHead * factorHead, sTail * factorHead + factorTail * s);

    const HeadTail<V> sum = settled<V>(exponent * kHead, series.head);
    const V low = sum.tail + (series.tail + exponent * kTail);
    const V head = leadingBits<V>(sum.head + low);
    return {head, (sum.head - head) + low};
}

} // namespace detail

/// e^x, worst error 0.8 ulp, of the denormal unit among denormals. As libm: 0 below -745.2, infinity
/// above 709.8, NaN of NaN.
template <typename V>
VELMORA_KERNEL V expLanes(const V& x)
{
    const V held = minLanes<V>(allLanes<V>(710.0), maxLanes<V>(allLanes<V>(-746.0), x));
    const V k = detail::roundLanes<V>(held * detail::kLog2E);
    return detail::scale<V>(detail::expOfReduced<V>({held - k * detail::kLn2Head, -k * detail::kLn2Tail}), k);
}

/// 10^x, worst error 0.8 ulp, of the denormal unit among denormals. As libm: 0 below -323.6, infinity
/// above 308.3, NaN of NaN.
template <typename V>
VELMORA_KERNEL V exp10Lanes(const V& x)
{
    constexpr double kLog2Of10 = 0x1.a934f0979a371p1;
    constexpr double kLn10 = 0x1.26bb1bbb55516p1;
    constexpr double kLn10Head = 0x1.26bb1b8000000p1; // 26 bits
    constexpr double kLn10Tail = 0x1.daaa8ac16ea57p-26;
    const V held = minLanes<V>(allLanes<V>(309.0), maxLanes<V>(allLanes<V>(-324.5), x));
    const V k = detail::roundLanes<V>(held * kLog2Of10);
    const V r = held - k * detail::kLog10Of2Head; // exact
    const V rHead = detail::leadingBits<V>(r);
    const V rTail = (r - rHead) - k * detail::kLog10Of2Tail;
    return detail::scale<V>(detail::expOfReduced<V>({rHead * kLn10Head, rHead * kLn10Tail + rTail * kLn10}),
                            k);
}

/// Natural logarithm, worst error 0.75 ulp, denormals included. As libm: minus infinity of 0 and -0, NaN
/// below.
template <typename V>
VELMORA_KERNEL V logLanes(const V& x)
{
    const auto [exponent, fraction] = detail::split<V>(x);
    const auto [head, tail] = detail::logOfFraction<V>(fraction);
    const detail::HeadTail<V> sum = detail::settled<V>(exponent * detail::kLn2Head, head);
    return detail::withLogEdges<V>(x, sum.head + (sum.tail + (tail + exponent * detail::kLn2Tail)));
}

/// Decimal logarithm, worst error 0.75 ulp, denormals included; exact of the powers of ten that doubles hold.
/// Edges as `logLanes`.
template <typename V>
VELMORA_KERNEL V log10Lanes(const V& x)
{
    constexpr double kLog10E = 0x1.bcb7b1526e50ep-2;
    constexpr double kLog10EHead = 0x1.bcb7b18000000p-2; // 26 bits
    constexpr double kLog10ETail = -0x1.6c8d78e6acaa4p-29;
    const auto [exponent, fraction] = detail::split<V>(x);
    const auto [head, tail] = detail::logOfFraction<V>(fraction);
    const V high = detail::leadingBits<V>(head);
    const V low = high * kLog10ETail + ((head - high) + tail) * kLog10E;
    const detail::HeadTail<V> sum = detail::settled<V>(exponent * detail::kLog10Of2Head, high * kLog10EHead);
    return detail::withLogEdges<V>(x, sum.head + (sum.tail + (low + exponent * detail::kLog10Of2Tail)));
}

/// x^y for x of 0 and above, worst error 0.8 ulp for results from e^-100 to e^100, 1.5 beyond. As libm at x
/// 0, 1 and infinity, y 0 and infinite, and NaN, but for x below 0, which is NaN for whole y too, and -0,
/// which counts as 0. With one y for many x, what depends on y alone is hoisted by the compiler.
template <typename V>
VELMORA_KERNEL V powLanes(const V& x, const V& y)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    constexpr double kBeyond = 750.0; // natural exponents past overflow and underflow

    // The logarithm is 1.5 times too large; y takes that back. An infinite y becomes one that does the same.
    const V held = minLanes<V>(allLanes<V>(0x1p80), maxLanes<V>(allLanes<V>(-0x1p80), y));
    const V share = held * (2.0 / 3.0);
    const V shareHead = detail::leadingBits<V>(share);
    const V shareTail = (held - 1.5 * shareHead) * (2.0 / 3.0);
    const auto [logHead, logTail] = detail::preciseLog<V>(x);

    const V productHead = shareHead * logHead; // exact
    const V productTail = shareTail * (logHead + logTail) + shareHead * logTail;
    const V head = minLanes<V>(allLanes<V>(kBeyond), maxLanes<V>(allLanes<V>(-kBeyond), productHead));
    const V tail = keepWhere<V>(head == productHead, productTail);
    const V k = detail::roundLanes<V>((head + tail) * detail::kLog2E);
    const V power = detail::scale<V>(
        detail::expOfReduced<V>({head - k * detail::kLn2Head, tail - k * detail::kLn2Tail}), k);

    // Nested selects, as masks joined by operators would run lane by lane.
    const V rising = choose<V>(y > 0.0, allLanes<V>(kInfinity), V{});
    const V falling = choose<V>(y > 0.0, V{}, allLanes<V>(kInfinity));
    const V nan = 0.0 * held; // of a y that is none
    const V positive = choose<V>(x == 0.0, falling + nan, choose<V>(x == kInfinity, rising + nan, power));
    const V valid = choose<V>(x >= 0.0, positive, allLanes<V>(kNaN));
    const V one = allLanes<V>(1.0);
    return choose<V>(x == 1.0, one, choose<V>(y == 0.0, one, valid));
}

/// Hyperbolic tangent, worst error 1.1 ulp. Keeps -0 and denormals.
template <typename V>
VELMORA_KERNEL V tanhLanes(const V& x)
{
    constexpr double kCrossover = 0.75;
    constexpr double kOne = 22.0; // from here on the result is 1
    // Lambert: x / (1 + x^2 / (3 + x^2 / (5 + ...))) cut behind the 17, as x - x^3 * above / below.
    constexpr double kAbove[] = {11486475.0, 810810.0, 12870.0, 44.0};
    constexpr double kBelow[] = {34459425.0, 16216200.0, 945945.0, 13860.0, 45.0};
    const V a = absLanes(x);
    const V square = a * a;
    const MaskOf<V> small = a < kCrossover;

    const V twice = 2.0 * minLanes<V>(allLanes<V>(kOne), a);
    const V k = detail::roundLanes<V>(twice * detail::kLog2E);
    const V squaredExp = detail::expOfReduced<V>({twice - k * detail::kLn2Head, -k * detail::kLn2Tail}) *
                         detail::powerOfTwo<V>(k);

    // One division for both: the fraction, or 2 / (e^2a + 1) taken from 1.
    const V above = choose<V>(small, a * square * detail::polynomial<V>(square, kAbove), allLanes<V>(2.0));
    const V below = choose<V>(small, detail::polynomial<V>(square, kBelow), squaredExp + 1.0);
    const V result = choose<V>(small, a, allLanes<V>(1.0)) - above / below;
    return fromBits<V>(bitsOf(result) | (bitsOf(x) & INT64_MIN));
}

/// Arc tangent, worst error 0.9 ulp. Keeps -0 and denormals; half pi of infinity.
template <typename V>
VELMORA_KERNEL V atanLanes(const V& x)
{
    // (1 - atan(t) / t) / t^2 over t^2
    constexpr double kAtan[] = {0x1.555555555550dp-2,  -0x1.999999998eb4fp-3, 0x1.249249200637fp-3,
                                -0x1.c71c6fe199823p-4, 0x1.745cdc478ddfep-4,  -0x1.3b0f2a3d2f7ffp-4,
                                0x1.10d66363c0d31p-4,  -0x1.dde28602f1ab1p-5, 0x1.97b38bf2f5de2p-5,
                                -0x1.2b41d4a677d20p-5, 0x1.0acf38e5a8bbdp-6};
    // atan(a) = atan(point) + atan((a - point) / (1 + a * point)), from each edge on with its point; the last
    // point is infinite.
    constexpr double kFar = 39.0 / 16.0;
    const V a = absLanes(x);
    V point{};
    V head{};
    V tail{};
    const auto from = [&](double edge, double newPoint, double newHead, double newTail)
                          VELMORA_KERNEL_LAMBDA {
                              const MaskOf<V> within = a >= edge;
                              point = choose<V>(within, allLanes<V>(newPoint), point);
                              head = choose<V>(within, allLanes<V>(newHead), head);
                              tail = choose<V>(within, allLanes<V>(newTail), tail);
                          };
    from(7.0 / 16.0, 0.5, 0.4636476090008061, 2.2698777452961687e-17);
    from(11.0 / 16.0, 1.0, 0.7853981633974483, 3.061616997868383e-17);
    from(19.0 / 16.0, 1.5, 0.982793723247329, 1.3903311031230998e-17);
    from(kFar, 0.0, 1.5707963267948966, 6.123233995736766e-17);
    const MaskOf<V> far = a >= kFar;
    const V t = choose<V>(far, allLanes<V>(-1.0), a - point) / choose<V>(far, a, 1.0 + point * a);
    const V square = t * t;
    const V bent = t * (square * detail::polynomial<V>(square, kAtan));
    const V result = head - ((bent - tail) - t);
    return fromBits<V>(bitsOf(result) | (bitsOf(x) & INT64_MIN));
}

} // namespace velmora
