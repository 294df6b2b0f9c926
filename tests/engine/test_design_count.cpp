// A host writes a preset as a row of single parameters between two blocks. However often a section's settings
// were written by then, its next block finds it designed once. The linker lets every call of the strip's
// design function through the count below.

#include "dsp/biquad_design.h"
#include "tests/engine/lone_module.h"

#include <gtest/gtest.h>

#include <cstdio>

namespace {

int designs = 0;

} // namespace

extern "C" {
velmora::BiquadCoefficients
__real__ZN7velmora12designBiquadERKNS_14BiquadSettingsE(const velmora::BiquadSettings& settings);

velmora::BiquadCoefficients
__wrap__ZN7velmora12designBiquadERKNS_14BiquadSettingsE(const velmora::BiquadSettings& settings)
{
    ++designs;
    return __real__ZN7velmora12designBiquadERKNS_14BiquadSettingsE(settings);
}
}

namespace velmora::test {
namespace {

/// Writes so many presets in a row, the last always the same, and plays a block. They differ by
/// so little that no switch turns between them: a filter that is switched lands on its design of that moment,
/// so each switching may take one.
/// @return the designs that it took.
int designsFor(const ModuleType& type, int presets)
{
    const Values last = randomValues(type, 2);
    LoneModule module(type, last, 96000.0);
    const auto play = [&] {
        for (unsigned c = 0; c < LoneModule::kChannels; ++c)
            std::fill_n(module.channel(c), LoneModule::kLongest, 0.1);
        module.process(LoneModule::kLongest);
    };
    play();
    const int before = designs;
    for (int preset = presets; preset > 0; --preset)
        for (ParameterId offset = 0; offset < 48; ++offset) {
            const double value = last[static_cast<unsigned>(offset)];
            if (travels(offset)) module.set(offset, value * (1.0 - 1e-4 * preset));
        }
    play();
    return designs - before;
}

class Designs : public testing::TestWithParam<ModuleType> {};

INSTANTIATE_TEST_SUITE_P(Rack, Designs, testing::ValuesIn(moduleTypes().begin(), moduleTypes().end()),
                         testName);

TEST(DesignCount, SeesADesignInsideAModule)
{
    EXPECT_GT(designsFor(*std::ranges::find(moduleTypes(), ModuleKind::Equalizer, &ModuleType::kind), 1), 0);
}

TEST_P(Designs, AreAsManyForTenPresetsInARowAsForOne)
{
    const int one = designsFor(GetParam(), 1), ten = designsFor(GetParam(), 10);
    std::printf("one preset: %d designs, ten in a row: %d\n", one, ten);
    EXPECT_LE(ten, one);
}

} // namespace
} // namespace velmora::test
