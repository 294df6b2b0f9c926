#include "dsp/section_chains.h"

#include "dsp/run_widest.h"
#include "tests/plain/section_chains.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <random>
#include <vector>

namespace velmora::test {
namespace {

constexpr std::int32_t kFrames = 700;

/// Chains of random sections, some of them off, on random input with all that an input may bring.
class Bench {
public:
    Bench(unsigned seed, std::vector<std::size_t> lengths, bool limited) : random_(seed), lengths_(lengths)
    {
        std::size_t total = 0;
        for (std::size_t length : lengths) total += length;
        for (std::size_t k = 0; k < total; ++k) sections_.push_back(randomSection(limited));
        for (std::size_t c = 0; c < lengths.size(); ++c) inputs_.push_back(randomInput());
        outputs_.assign(total, std::vector<double>(kFrames, 0.0));
    }

    /// Moves some of the designs, so that glides start and end anywhere.
    void disturb()
    {
        for (StripBiquad& section : sections_) {
            if (chance() < 0.1) section.setFrequency(20.0 * std::pow(900.0, chance()));
            if (chance() < 0.05) section.setEnabled(chance() < 0.8);
            if (chance() < 0.02) section.resetState();
        }
    }

    template <typename Run>
    void run(Run runAll, std::int32_t start, std::int32_t frames)
    {
        std::vector<BiquadLink> links;
        for (std::size_t k = 0; k < sections_.size(); ++k)
            links.push_back({&sections_[k], k % 3 == 1 ? nullptr : outputs_[k].data() + start});
        std::vector<BiquadChain> chains;
        std::size_t first = 0;
        for (std::size_t c = 0; c < lengths_.size(); ++c) {
            links[first + lengths_[c] - 1].output = outputs_[first + lengths_[c] - 1].data() + start;
            chains.push_back({inputs_[c].data() + start, std::span(links).subspan(first, lengths_[c])});
            first += lengths_[c];
        }
        runAll(std::span<const BiquadChain>(chains), frames);
    }

    /// Bits of all outputs, NaNs alike.
    std::vector<double> results() const
    {
        std::vector<double> all;
        for (const auto& output : outputs_) all.insert(all.end(), output.begin(), output.end());
        for (const StripBiquad& section : sections_) {
            const BiquadCoefficients& c = section.glide().current();
            all.insert(all.end(), {section.lastOutput(), c.b0, c.b1, c.b2, c.a1, c.a2,
                                   static_cast<double>(section.glide().samplesLeft())});
        }
        for (double& v : all)
            if (v != v) v = std::numeric_limits<double>::quiet_NaN();
        return all;
    }

    double chance() { return std::uniform_real_distribution<double>(0.0, 1.0)(random_); }

private:
    StripBiquad randomSection(bool limited)
    {
        StripBiquad section(static_cast<StripBiquadKind>(random_() % 11), 20.0 * std::pow(900.0, chance()),
                            0.3 + 4.0 * chance(), 24.0 * chance() - 12.0);
        section.setEnabled(chance() < 0.85);
        section.setSoftLimit(limited && chance() < 0.5);
        section.setSampleRate(48000.0);
        if (chance() < 0.5) section.resetState();
        return section;
    }

    std::vector<double> randomInput()
    {
        constexpr double kOdd[]{std::numeric_limits<double>::quiet_NaN(),
                                std::numeric_limits<double>::infinity(),
                                -std::numeric_limits<double>::infinity(),
                                1e-310,
                                -0.0,
                                1e300};
        std::vector<double> input(kFrames);
        for (double& x : input) x = chance() < 0.005 ? kOdd[random_() % std::size(kOdd)] : chance() - 0.5;
        return input;
    }

    std::mt19937 random_;
    std::vector<std::size_t> lengths_;
    std::vector<StripBiquad> sections_;
    std::vector<std::vector<double>> inputs_;
    std::vector<std::vector<double>> outputs_;
};

TEST(SectionChains, AreSectionAfterSectionBitForBit)
{
    const std::vector<std::vector<std::size_t>> layouts{
        {1},          {2},   {3},  {4},  {5},    {6},
        {8},          {18},  {20}, {23}, {4, 2}, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1},
        {3, 3, 1, 5}, {7, 8}};
    int compared = 0;
    unsigned seed = 1;
    for (const auto& lengths : layouts)
        for (bool limited : {false, true})
            for (std::int32_t longest : {1, 5, 16, 64, 300}) {
                Bench plainBench(++seed, lengths, limited);
                Bench fastBench(seed, lengths, limited);
                for (std::int32_t start = 0; start < kFrames;) {
                    const auto frames = std::min<std::int32_t>(
                        kFrames - start, 1 + static_cast<std::int32_t>(longest * plainBench.chance()));
                    fastBench.chance();
                    plainBench.run(plain::runChains, start, frames);
                    fastBench.run(runChains, start, frames);
                    plainBench.disturb();
                    fastBench.disturb();
                    start += frames;
                }
                const auto expected = plainBench.results();
                const auto got = fastBench.results();
                ASSERT_EQ(expected.size(), got.size());
                for (std::size_t i = 0; i < got.size(); ++i)
                    ASSERT_EQ(std::memcmp(&expected[i], &got[i], sizeof(double)), 0)
                        << expected[i] << " " << got[i] << " at " << i << " sections " << lengths[0] << " of "
                        << lengths.size() << " longest " << longest << " limited " << limited;
                compared += static_cast<int>(got.size());
            }
    std::printf("%d values bit-equal\n", compared);
}

} // namespace
} // namespace velmora::test
