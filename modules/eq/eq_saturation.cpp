#include "modules/eq/eq_saturation.h"

#include "dsp/lanes.h"
#include "dsp/run_widest.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <numbers>

namespace velmora {

namespace {

constexpr std::array<double, 3> kDriveHz{3500.0, 2500.0, 1500.0}; // by flavour

constexpr double kSmall = 1e-6; // drive below which the gain is 1, and 0/0 is near
constexpr double kHard = 8.0;
constexpr double kSoft = 16.0;
constexpr double kJuniperSag = 0.02;

// Ceilings of the curve by flavour, for drives above and below 0.
constexpr std::array<double, 3> kAbove{kSoft, kSoft, kHard};
constexpr std::array<double, 3> kBelow{kSoft, kHard, kSoft};

/// The curve at drive t, as a share of its ceiling.
template <EqFlavour flavour>
double curve(double t)
{
    constexpr auto kIndex = static_cast<std::size_t>(flavour) - 1;
    const double x = t / (t > 0.0 ? kAbove[kIndex] : kBelow[kIndex]);
    if constexpr (flavour == EqFlavour::Sorrel) return std::atan(x);
    if (t > 0.0) return std::tanh(x);
    if constexpr (flavour == EqFlavour::Tamarin) return std::atan(x);
    return std::atan(t / (std::fabs(t) * kJuniperSag + 1.0) / kSoft);
}

// The tangents stay libm's: filters and saturators behind raise a last bit to almost 1e-9 of the peak, and a
// compressor may go on from there.
template <EqFlavour flavour>
void saturate(EqPiece::Row& audio, EqPiece::Row& drive, std::size_t frames)
{
    constexpr auto kIndex = static_cast<std::size_t>(flavour) - 1;
    EqPiece::Row bent{};
    for (std::size_t n = 0; n < frames; ++n) bent[n] = curve<flavour>(drive[n]);
    runWidest([&](auto width) VELMORA_KERNEL_LAMBDA {
        using V = Lanes<decltype(width)::value>;
        constexpr std::size_t kWidth = kLaneCount<V>;
        static_assert(EqPiece::kMaxFrames % kWidth == 0);
        for (std::size_t n = frames; n % kWidth != 0; ++n) audio[n] = drive[n] = 0.0;
        for (std::size_t n = 0; n < frames; n += kWidth) {
            const V y = loadLanes<V>(&audio[n]);
            const V t = loadLanes<V>(&drive[n]);
            const V ceiling = choose<V>(t > 0.0, allLanes<V>(kAbove[kIndex]), allLanes<V>(kBelow[kIndex]));
            const V saturated = y * loadLanes<V>(&bent[n]) * ceiling / t;
            storeLanes<V>(&audio[n], zeroNanLanes<V>(choose<V>(absLanes<V>(t) > kSmall, saturated, y)));
        }
    });
}

} // namespace

double eqDriveRate(EqFlavour flavour, double sampleRate)
{
    const double hz = kDriveHz[static_cast<std::size_t>(flavour) - 1];
    return 1.0 - std::exp(-2.0 * std::numbers::pi * hz / sampleRate);
}

void eqSaturate(EqFlavour flavour, EqPiece::Row& audio, EqPiece::Row& drive, std::int32_t frames)
{
    const auto count = static_cast<std::size_t>(frames);
    switch (flavour) {
    case EqFlavour::Sorrel:
        return saturate<EqFlavour::Sorrel>(audio, drive, count);
    case EqFlavour::Tamarin:
        return saturate<EqFlavour::Tamarin>(audio, drive, count);
    case EqFlavour::Juniper:
        return saturate<EqFlavour::Juniper>(audio, drive, count);
    }
}

} // namespace velmora
