#pragma once

#include "tests/plain/section_chains.h"
#include "tests/support/instruction_sets.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <functional>
#include <limits>
#include <random>
#include <vector>

namespace velmora::test {

/// Chains of random sections on random input, with all that an input may bring: what comes out, and what the
/// sections keep, is to have the bits of section after section.
template <typename Section>
class ChainCheck {
public:
    using Run = std::function<void(std::span<const SectionChain<Section>>, std::int32_t)>;
    using Random = std::mt19937;

    Run fast;
    std::function<Section(Random&)> make;           ///< a random section
    std::function<void(Section&, Random&)> disturb; ///< perhaps changes a setting
    std::function<std::vector<double>(Section&)> state;

    /// @param lengths of the chains. @param longest block. @param oddities share of NaNs and the like.
    void run(const std::vector<std::size_t>& lengths, std::int32_t longest, double oddities, unsigned seed)
    {
        Setup expected(*this, lengths, oddities, seed);
        Setup got(*this, lengths, oddities, seed);
        std::mt19937 cuts(seed);
        for (std::int32_t start = 0; start < kFrames;) {
            const auto length = static_cast<std::int32_t>(cuts() % static_cast<unsigned>(longest)) + 1;
            const std::int32_t frames = std::min(kFrames - start, length);
            expected.run(plain::runChains<Section>, start, frames);
            got.run(fast, start, frames);
            start += frames;
        }
        ASSERT_EQ(expected.firstDifference(got), -1)
            << lengths.size() << " chains, the first of " << lengths[0] << ", blocks up to " << longest
            << ", seed " << seed;
    }

    /// All lengths and layouts, on all instruction sets.
    void runAll(const std::vector<std::vector<std::size_t>>& layouts)
    {
        unsigned seed = 1;
        forEachInstructionSet([&] {
            for (const auto& lengths : layouts)
                for (double oddities : {0.0, 0.002})
                    for (std::int32_t longest : {1, 5, 16, 64, 300}) run(lengths, longest, oddities, ++seed);
        });
        std::printf("%u runs of %d samples have the bits of section after section\n", seed - 1, kFrames);
    }

private:
    static constexpr std::int32_t kFrames = 700;

    static double chance(Random& random) { return std::uniform_real_distribution<double>(0.0, 1.0)(random); }

    class Setup {
    public:
        Setup(const ChainCheck& check, const std::vector<std::size_t>& lengths, double oddities,
              unsigned seed)
            : check_(check), random_(seed), lengths_(lengths)
        {
            for (std::size_t length : lengths) {
                inputs_.push_back(input(oddities));
                for (std::size_t k = 0; k < length; ++k) sections_.push_back(check.make(random_));
            }
            outputs_.assign(sections_.size(), std::vector<double>(kFrames));
        }

        void run(const Run& runChains, std::int32_t start, std::int32_t frames)
        {
            std::vector<ChainLink<Section>> links;
            for (std::size_t k = 0; k < sections_.size(); ++k)
                links.push_back({&sections_[k], k % 3 == 1 ? nullptr : outputs_[k].data() + start});
            std::vector<SectionChain<Section>> chains;
            std::size_t first = 0;
            for (std::size_t c = 0; c < lengths_.size(); ++c) {
                links[first + lengths_[c] - 1].output = inputs_[c].data() + start; // the last one in place
                chains.push_back({inputs_[c].data() + start, std::span(links).subspan(first, lengths_[c])});
                first += lengths_[c];
            }
            runChains(chains, frames);
            for (Section& section : sections_) check_.disturb(section, random_);
        }

        /// -1: none; NaNs are alike.
        std::ptrdiff_t firstDifference(Setup& other)
        {
            const std::vector<double> a = everything();
            const std::vector<double> b = other.everything();
            for (std::size_t i = 0; i < a.size(); ++i)
                if (std::memcmp(&a[i], &b[i], sizeof(double)) != 0 && !(std::isnan(a[i]) && std::isnan(b[i])))
                    return static_cast<std::ptrdiff_t>(i);
            return -1;
        }

    private:
        std::vector<double> input(double oddities)
        {
            constexpr double kInfinity = std::numeric_limits<double>::infinity();
            constexpr std::array kOdd{
                std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e-310, -0.0, 1e300};
            std::vector<double> x(kFrames);
            for (double& v : x)
                v = chance(random_) < oddities ? kOdd[random_() % kOdd.size()] : chance(random_) - 0.5;
            return x;
        }

        std::vector<double> everything()
        {
            std::vector<double> all;
            const auto append = [&](const std::vector<double>& v) {
                all.insert(all.end(), v.begin(), v.end());
            };
            for (const auto& block : inputs_) append(block);
            for (const auto& block : outputs_) append(block);
            for (Section& section : sections_) append(check_.state(section));
            return all;
        }

        const ChainCheck& check_;
        Random random_;
        std::vector<std::size_t> lengths_;
        std::vector<Section> sections_;
        std::vector<std::vector<double>> inputs_;
        std::vector<std::vector<double>> outputs_;
    };
};

} // namespace velmora::test
