#include "modules/filters/filter_rail.h"

#include "modules/filters/filter_lanes.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace velmora {

namespace {

// Q of the section that shapes the corner grows by this much for each decade that the filter closes.
constexpr double kCornerQ = 0.4;
constexpr double kCornerQPerDecade = 0.091;
constexpr double kOpenLowPass = 600000.0; // Hz, where the low-pass Q would be the bare corner Q
constexpr double kSecondaryQ = 0.5;

// Places of the high-pass sections below the corner, and of the low-pass sections above it.
constexpr double kHighPass1Ratio = 0.7;
constexpr double kHighPass2Ratio = 0.5;
constexpr double kHighPass3Ratio = 0.4;
constexpr double kLowPassRatio = 1.2;
constexpr double kOnePoleRatio = 1.2;
constexpr double kHighestShare = 0.499; // of the sample rate

struct HighPassSlope {
    bool highPass1, highPass2, highPass3;
};
constexpr std::array<HighPassSlope, 3> kHighPassSlopes{{
    {true, false, false}, // 12 dB per octave
    {true, false, true},  // 18
    {true, true, false},  // 24
}};

struct LowPassSlope {
    bool lowPass1, lowPass2;
};
constexpr std::array<LowPassSlope, 3> kLowPassSlopes{{
    {true, false}, // 6 dB per octave
    {false, true}, // 12
    {true, true},  // 18
}};

template <typename Slope>
const Slope& slopeAt(const std::array<Slope, 3>& slopes, std::int32_t index)
{
    return slopes[static_cast<std::size_t>(std::clamp(index, 0, 2))];
}

double cornerQ(double ratio)
{
    return std::log10(ratio) * kCornerQPerDecade + kCornerQ;
}

} // namespace

void FilterRail::setHighPassFrequency(double hz)
{
    highPass1.setFrequencyAndQ(hz * kHighPass1Ratio, cornerQ(hz));
    highPass2.setFrequencyAndQ(hz * kHighPass2Ratio, kSecondaryQ);
    highPass3.setFrequency(hz * kHighPass3Ratio);
}

void FilterRail::setLowPassFrequency(double hz, double sampleRate)
{
    const double corner = hz * kLowPassRatio;
    lowPass1.setFrequency(std::min(corner, sampleRate * kHighestShare) * kOnePoleRatio);
    lowPass2.setFrequencyAndQ(corner, cornerQ(kOpenLowPass / hz));
}

void FilterRail::setHighPass(bool in, std::int32_t slope)
{
    const HighPassSlope& on = slopeAt(kHighPassSlopes, slope);
    highPass1.setEnabled(in && on.highPass1);
    highPass2.setEnabled(in && on.highPass2);
    highPass3.setEnabled(in && on.highPass3);
}

void FilterRail::setLowPass(bool in, std::int32_t slope)
{
    const LowPassSlope& on = slopeAt(kLowPassSlopes, slope);
    lowPass1.setEnabled(in && on.lowPass1);
    lowPass2.setEnabled(in && on.lowPass2);
}

SectionChain<StripFilterSection> FilterRail::chain(bool withBand, double* block, Links& links)
{
    std::size_t count = 0;
    forEachSection([&](StripFilterSection& section) {
        if (withBand || &section != &parametric) links[count++] = {&section};
    });
    links[count - 1].output = block;
    return {block, std::span(links).first(count)};
}

void runRails(std::span<const SectionChain<StripFilterSection>> rails, std::int32_t frames)
{
    runLaneChains<FilterLanes, 12>(rails, frames);
}

void FilterRail::setSampleRate(double hz)
{
    forEachSection([hz](StripFilterSection& section) { section.setSampleRate(hz); });
}

void FilterRail::reset()
{
    forEachSection([](StripFilterSection& section) { section.resetState(); });
}

} // namespace velmora
