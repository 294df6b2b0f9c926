#include "modules/eq/eq_saturation.h"

#include "dsp/run_widest.h"
#include "dsp/vector_math.h"

#include <cmath>
#include <numbers>

namespace velmora {

namespace {

constexpr std::array<double, 3> kDriveHz{3500.0, 2500.0, 1500.0}; // by flavour

constexpr double kSmall = 1e-6; // drive below which the gain is 1, and 0/0 is near
constexpr double kHard = 8.0;
constexpr double kSoft = 16.0;
constexpr double kJuniperSag = 0.02;

template <typename V>
VELMORA_KERNEL V bentByTanh(const V& y, const V& t, double ceiling)
{
    return y * tanhLanes<V>(t / ceiling) * ceiling / t;
}

/// @param bent the drive that the arc tangent sees
template <typename V>
VELMORA_KERNEL V bentByAtan(const V& y, const V& t, const V& bent, double ceiling)
{
    return y * atanLanes<V>(bent / ceiling) * ceiling / t;
}

template <EqFlavour flavour, typename V>
VELMORA_KERNEL V saturated(const V& y, const V& t)
{
    V bent = y;
    if constexpr (flavour == EqFlavour::Sorrel) {
        bent = choose<V>(absLanes<V>(t) > kSmall, bentByAtan<V>(y, t, t, kSoft), y);
    } else if constexpr (flavour == EqFlavour::Tamarin) {
        bent = choose<V>(t > kSmall, bentByTanh<V>(y, t, kSoft), bent);
        bent = choose<V>(t < -kSmall, bentByAtan<V>(y, t, t, kHard), bent);
    } else {
        const V sagging = t / (absLanes<V>(t) * kJuniperSag + 1.0);
        bent = choose<V>(t > kSmall, bentByTanh<V>(y, t, kHard), bent);
        bent = choose<V>(t < -kSmall, bentByAtan<V>(y, t, sagging, kSoft), bent);
    }
    return zeroNanLanes<V>(bent);
}

template <EqFlavour flavour>
void saturate(EqPiece::Row& audio, EqPiece::Row& drive, std::size_t frames)
{
    runWidest([&](auto width) {
        using V = Lanes<decltype(width)::value>;
        constexpr std::size_t kWidth = kLaneCount<V>;
        static_assert(EqPiece::kMaxFrames % kWidth == 0);
        for (std::size_t n = frames; n % kWidth != 0; ++n) audio[n] = drive[n] = 0.0;
        for (std::size_t n = 0; n < frames; n += kWidth) {
            const V y = saturated<flavour, V>(loadLanes<V>(&audio[n]), loadLanes<V>(&drive[n]));
            storeLanes<V>(&audio[n], y);
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
