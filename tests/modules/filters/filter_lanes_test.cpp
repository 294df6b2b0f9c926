#include "modules/filters/filter_lanes.h"
#include "modules/filters/filter_rail.h"
#include "tests/support/chain_check.h"

namespace velmora::test {
namespace {

double chance(std::mt19937& random)
{
    return std::uniform_real_distribution<double>(0.0, 1.0)(random);
}

TEST(FilterLanes, HaveTheBitsOfSectionAfterSection)
{
    constexpr std::array kKinds{StripBiquadKind::HighPass, StripFilterSection::kOnePoleHighPass,
                                StripBiquadKind::Peaking,  StripFilterSection::kOnePoleLowPass,
                                StripBiquadKind::LowPass,  StripBiquadKind::None};
    ChainCheck<StripFilterSection> check{
        .fast = runRails,
        .make =
            [&](std::mt19937& random) {
                StripFilterSection section(kKinds[random() % kKinds.size()], 1000.0, 0.5 + chance(random));
                section.setSampleRate(96000.0);
                section.setEnabled(chance(random) < 0.8);
                return section;
            },
        .disturb =
            [](StripFilterSection& section, std::mt19937& random) {
                const double what = chance(random);
                if (what < 0.04)
                    section.setFrequency(20.0 * std::pow(900.0, chance(random)));
                else if (what < 0.06)
                    section.setEnabled(chance(random) < 0.8);
                else if (what < 0.07)
                    section.resetState();
            },
        .state =
            [](StripFilterSection& section) {
                const auto parts = section.parts();
                const BiquadHistory& h = parts.history;
                return std::vector{h.x1, h.x2,          h.y1,
                                   h.y2, parts.onePole, static_cast<double>(parts.glide.samplesLeft())};
            }};
    check.runAll({{1}, {2}, {4}, {6}, {6, 6}, {12}, {14}});
}

} // namespace
} // namespace velmora::test
